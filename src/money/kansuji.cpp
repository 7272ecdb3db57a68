#include "money/kansuji.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "common/text.h"

namespace lupin::money {

namespace {

struct DaijiForm {
  char32_t form;
  std::u32string_view plain;
};

constexpr std::array<DaijiForm, 22> kDaiji{{
    {U'萬', U"万"}, {U'仟', U"千"}, {U'阡', U"千"}, {U'佰', U"百"}, {U'陌', U"百"},
    {U'卅', U"三十"}, {U'廿', U"二十"}, {U'拾', U"十"}, {U'玖', U"九"}, {U'捌', U"八"},
    {U'漆', U"七"}, {U'陸', U"六"}, {U'伍', U"五"}, {U'肆', U"四"}, {U'参', U"三"},
    {U'參', U"三"}, {U'弐', U"二"}, {U'貳', U"二"}, {U'弍', U"二"}, {U'壱', U"一"},
    {U'壹', U"一"}, {U'弌', U"一"},
}};

constexpr std::u32string_view kDigits = U"零一二三四五六七八九";

const DaijiForm* FindDaiji(char32_t ch) {
  for (const auto& d : kDaiji) {
    if (d.form == ch) return &d;
  }
  return nullptr;
}

// 0-9 for 零 to 九, -1 for anything else.
int DigitOf(char32_t ch) {
  const auto pos = kDigits.find(ch);
  return pos == std::u32string_view::npos ? -1 : static_cast<int>(pos);
}

bool IsZeroSign(char32_t ch) { return ch == U'〇' || ch == U'０'; }

// The digit a character stands for when a number is written digit by digit: a plain numeral, a
// formal one that stands for one digit (弐, 参), or a zero sign; -1 for anything else.
int PositionalDigit(char32_t ch) {
  if (IsZeroSign(ch)) return 0;
  if (const DaijiForm* d = FindDaiji(ch); d != nullptr && d->plain.size() == 1) return DigitOf(d->plain.front());
  return DigitOf(ch);
}

bool IsPlainKansuji(char32_t ch) {
  return DigitOf(ch) >= 0 || ch == U'十' || ch == U'百' || ch == U'千' || ch == U'万' ||
         ch == U'億' || ch == U'兆' || FindDaiji(ch) != nullptr;
}

std::u32string Normalized(std::u32string_view text) {
  std::u32string out;
  out.reserve(text.size() + 2);
  // One pass suffices: no plain numeral is itself a formal form.
  for (char32_t ch : text) {
    if (const DaijiForm* d = FindDaiji(ch)) {
      out.append(d->plain);
    } else {
      out.push_back(ch);
    }
  }
  return out;
}

// A group below 万: 千, 百, 十 with the digit before each (none counts as 1), a last digit the ones.
std::int64_t ReadGroup(std::u32string_view group) {
  std::int64_t total = 0;
  std::int64_t digit = 0;
  bool has_digit = false;
  for (char32_t ch : group) {
    std::int64_t unit = 0;
    if (ch == U'千') unit = 1000;
    else if (ch == U'百') unit = 100;
    else if (ch == U'十') unit = 10;
    if (unit != 0) {
      total += (has_digit ? digit : 1) * unit;
      digit = 0;
      has_digit = false;
    } else {
      // Any character that is no numeral reads as 0, as the old reader did.
      digit = DigitOf(ch) < 0 ? 0 : DigitOf(ch);
      has_digit = true;
    }
  }
  return total + digit;
}

std::string FourDigits(std::int64_t value) {
  std::string s = std::to_string(value);
  if (s.size() < 4) s.insert(0, 4 - s.size(), '0');
  return s;
}

}  // namespace

void NormalizeDaiji(std::string& text) {
  text = text::FromU32(Normalized(text::ToU32(text)));
}

std::string KansujiToDigits(std::string_view text) {
  std::u32string rest = Normalized(text::ToU32(text));
  std::string digits;
  for (char32_t marker : {U'兆', U'億', U'万'}) {
    const auto pos = rest.find(marker);
    if (pos == std::u32string::npos) {
      digits += "0000";
      continue;
    }
    const std::u32string_view group(rest.data(), pos);
    // "万" alone is ten thousand, like "十" alone is ten.
    digits += FourDigits(group.empty() ? 1 : ReadGroup(group));
    rest.erase(0, pos + 1);
  }
  digits += FourDigits(ReadGroup(rest));
  const auto first = digits.find_first_not_of('0');
  return first == std::string::npos ? "0" : digits.substr(first);
}

bool IsKansujiChar(std::u32string_view text, std::size_t pos) {
  // A zero sign takes its company's answer, and a run of them the answer of the first character
  // before the run: "〇〇X" is no number, "二〇〇" is one.
  while (pos < text.size() && IsZeroSign(text[pos])) {
    if (pos == 0) return false;
    --pos;
  }
  return pos < text.size() && IsPlainKansuji(text[pos]);
}

void FillPositional(std::string& text) {
  static constexpr std::u32string_view kSmallUnits[] = {U"", U"十", U"百", U"千"};
  static constexpr std::u32string_view kGroupUnits[] = {U"", U"万", U"億", U"兆"};
  const std::u32string in = text::ToU32(text);
  std::u32string out;
  std::size_t i = 0;
  while (i < in.size()) {
    // A run of single digits, plain or formal, 〇 and ０ counting as 0.
    std::size_t end = i;
    bool has_zero_sign = false;
    bool all_zero = true;
    while (end < in.size() && PositionalDigit(in[end]) >= 0) {
      has_zero_sign = has_zero_sign || IsZeroSign(in[end]);
      all_zero = all_zero && PositionalDigit(in[end]) == 0;
      ++end;
    }
    const std::size_t length = end - i;
    // Only a positional number needs units; beyond 兆 groups there is no unit to give.
    if (length < 2 || !has_zero_sign || all_zero || length > 16) {
      out.append(in, i, std::max<std::size_t>(length, 1));
      i = std::max(end, i + 1);
      continue;
    }
    bool group_has_digit = false;
    for (std::size_t k = i; k < end; ++k) {
      const std::size_t place = end - 1 - k;
      const int digit = PositionalDigit(in[k]);
      if (digit > 0) {
        out.push_back(kDigits[static_cast<std::size_t>(digit)]);
        out.append(kSmallUnits[place % 4]);
        group_has_digit = true;
      }
      if (place % 4 == 0) {
        if (group_has_digit) out.append(kGroupUnits[place / 4]);
        group_has_digit = false;
      }
    }
    i = end;
  }
  text = text::FromU32(out);
}

}  // namespace lupin::money
