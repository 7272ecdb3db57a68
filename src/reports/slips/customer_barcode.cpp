#include "reports/slips/customer_barcode.h"

#include <algorithm>
#include <array>

#include "common/text.h"
#include "common/vb.h"
#include "money/kansuji.h"

namespace lupin::reports {

namespace {

// The words a house number stands in front of, longer words before their prefixes (丁目 before
// 丁, 番地 before 番).
constexpr std::array<std::u32string_view, 11> kAddressWords{
    U"丁目", U"丁", U"番地", U"番", U"号", U"地割", U"線", U"の", U"ノ", U"ﾉ", U"ー"};

bool IsLetter(char32_t c) { return c >= U'A' && c <= U'Z'; }

// 1-based position of word at or after character start, exactly; 0 when absent.
int Find(std::u32string_view text, std::u32string_view word, int start) {
  if (start < 1) start = 1;
  if (static_cast<std::size_t>(start) > text.size()) return 0;
  const std::size_t at = text.find(word, static_cast<std::size_t>(start - 1));
  return at == std::u32string_view::npos ? 0 : static_cast<int>(at) + 1;
}

std::u32string WithoutBlanks(std::u32string text) {
  std::erase(text, U' ');
  return text;
}

// Replaces the numerals in front of the word at 1-based position at by digits. Returns whether
// the run was cut short by a character that is no numeral (rather than by the start of the text).
bool ReplaceRunBefore(std::u32string& text, int at) {
  std::size_t begin = static_cast<std::size_t>(at - 1);  // 0-based end of the run, exclusive
  const std::size_t end = begin;
  while (begin > 0 && money::IsKansujiChar(text, begin - 1)) --begin;
  if (begin < end) {
    std::string run = text::FromU32(std::u32string_view(text).substr(begin, end - begin));
    // Numbers written digit by digit (二〇三) get their units first.
    money::FillPositional(run);
    text.replace(begin, end - begin, text::ToU32(money::KansujiToDigits(run)));
  }
  return begin > 0;
}

}  // namespace

std::string MakeCustomerBarcode(std::string_view zip, std::string_view address) {
  std::string code(zip);
  if (const std::size_t hyphen = code.find('-'); hyphen != std::string::npos) code.erase(hyphen, 1);
  code = text::ToNarrow(code);
  if (!vb::IsNumeric(code)) return {};

  // The part before the first blank is the town, which the postcode already tells.
  std::string rest(address);
  if (const int blank = text::TextInStr(rest, " "); blank != 0) rest = text::CharMid(rest, blank + 1);

  rest = NormalizeLatin(rest);
  rest = RemoveSymbols(rest);
  rest = ConvertKanjiNumerals(rest);
  rest = ReduceToDigits(rest);
  rest = CollapseHyphens(rest);
  rest = TrimHyphensAroundLetters(rest);
  if (rest.starts_with('-')) rest.erase(0, 1);
  rest = LimitBarcodeUnits(rest);
  return text::CharLeft(code + rest, 20);
}

std::string NormalizeLatin(std::string_view text) {
  std::u32string out;
  for (char32_t c : text::ToU32(text)) {
    if (c >= U'a' && c <= U'z') {
      out.push_back(c - U'a' + U'A');
      continue;
    }
    const std::u32string narrow = text::ToU32(text::ToNarrow(text::FromU32(std::u32string_view(&c, 1))));
    if (narrow.size() == 1 && IsLetter(narrow[0])) {
      out.push_back(narrow[0]);
    } else if (narrow.size() == 1 && narrow[0] >= U'a' && narrow[0] <= U'z') {
      out.push_back(narrow[0] - U'a' + U'A');
    } else {
      out.push_back(c);
    }
  }
  return text::FromU32(out);
}

std::string RemoveSymbols(std::string_view text) {
  std::u32string out = text::ToU32(text);
  std::erase_if(out, [](char32_t c) { return c == U'&' || c == U'/' || c == U'・' || c == U'.'; });
  return text::FromU32(out);
}

std::string ConvertKanjiNumerals(std::string_view text) {
  std::u32string s = text::ToU32(text);
  for (std::u32string_view word : kAddressWords) {
    int search = 0;
    while (true) {
      const int at = Find(s, word, search + 1);
      if (at == 0) break;
      const bool cut_short = ReplaceRunBefore(s, at);
      const bool run_found = at >= 2 && !cut_short;
      // Behind a run that reached the start of the text the search stays on the word; in every
      // other case, including a word that is itself the first character, it steps past it.
      int next = Find(s, word, search + 1) + (run_found ? 0 : 1);
      // Numerals become digits, never numerals again, so the search must only move forward.
      search = std::max(next, search + 1);
    }
  }
  return text::FromU32(s);
}

bool IsNextToLetter(std::u32string_view text, int position) {
  const auto at = [&](int p) { return p >= 1 && static_cast<std::size_t>(p) <= text.size() ? text[static_cast<std::size_t>(p - 1)] : U'\0'; };
  if (IsLetter(at(position + 1))) return true;
  return position > 1 && IsLetter(at(position - 1));
}

std::string ReduceToDigits(std::string_view text) {
  const std::u32string in = text::ToU32(text);
  const auto is_digit = [](char32_t c) { return (c >= U'0' && c <= U'9') || (c >= U'０' && c <= U'９'); };
  std::u32string out;
  for (std::size_t i = 0; i < in.size(); ++i) {
    const char32_t c = in[i];
    const char32_t next = i + 1 < in.size() ? in[i + 1] : U'\0';
    if ((c >= U'0' && c <= U'9') || c == U'-') {
      out.push_back(c);
    } else if (c >= U'０' && c <= U'９') {
      out.push_back(c - U'０' + U'0');
    } else if (c == U'－') {
      out.push_back(U'-');
    } else if (c == U'〇') {
      out.push_back(U'0');
    } else if (c == U'ー') {
      out.push_back(is_digit(next) || next == U'〇' ? U'-' : U' ');
    } else if (IsLetter(c)) {
      const bool in_word = IsNextToLetter(in, static_cast<int>(i) + 1);
      // A floor mark such as 3F says nothing to the sorting machine.
      const bool floor_mark = c == U'F' && i > 0 && is_digit(in[i - 1]);
      out.push_back(in_word || floor_mark ? U' ' : c);
    } else {
      out.push_back(U' ');
    }
  }
  // Whatever was dropped between two numbers separates them by one hyphen.
  bool in_run = false;
  for (char32_t& c : out) {
    const bool blank = c == U' ';
    if (blank && !in_run) c = U'-';
    in_run = blank;
  }
  out = WithoutBlanks(std::move(out));
  if (!out.empty() && out.back() == U'-') out.pop_back();
  return text::FromU32(out);
}

std::string CollapseHyphens(std::string_view text) {
  std::u32string s = text::ToU32(text);
  std::size_t run_start = std::u32string::npos;
  // A run is collapsed at the first character behind it, so a run that ends the text stays.
  for (std::size_t i = 0; i < s.size(); ++i) {
    if (s[i] == U'-') {
      if (run_start == std::u32string::npos) run_start = i;
      continue;
    }
    if (run_start != std::u32string::npos && i - run_start >= 2) {
      std::fill(s.begin() + static_cast<std::ptrdiff_t>(run_start) + 1, s.begin() + static_cast<std::ptrdiff_t>(i), U' ');
    }
    run_start = std::u32string::npos;
  }
  return text::FromU32(WithoutBlanks(std::move(s)));
}

std::string TrimHyphensAroundLetters(std::string_view text) {
  const std::u32string in = text::ToU32(text);
  std::u32string out = in;
  for (std::size_t i = 0; i < in.size(); ++i) {
    if (in[i] != U'-') continue;
    const bool letter_before = i > 0 && IsLetter(in[i - 1]);
    const bool letter_after = i + 1 < in.size() && IsLetter(in[i + 1]);
    if (letter_before || letter_after) out[i] = U' ';
  }
  return text::FromU32(WithoutBlanks(std::move(out)));
}

std::string LimitBarcodeUnits(std::string_view text) {
  const std::u32string in = text::ToU32(text::CharLeft(text, 13));
  std::u32string out;
  int units = 0;
  for (char32_t c : in) {
    if (units >= 13) break;
    if (units == 12 && IsLetter(c)) break;  // a letter takes two places and no longer fits
    units += units < 12 && IsLetter(c) ? 2 : 1;
    out.push_back(c);
  }
  return text::FromU32(out);
}

}  // namespace lupin::reports
