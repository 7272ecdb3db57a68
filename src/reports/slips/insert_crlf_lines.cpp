// The passes over the lines of an address or a name, and the breaks at a byte width.
#include "common/text.h"
#include "reports/slips/insert_crlf.h"
#include "reports/slips/insert_crlf_chars.h"

namespace lupin::reports {

namespace {

using text::ByteClass;
using text::ByteLeft;
using text::ByteLen;
using text::ByteMid;

constexpr int kLeadByte = 2;
constexpr int kTrailByte = 3;

// The character that starts at byte position: two bytes for a lead byte, else one.
std::string CharStartingAt(std::string_view line, int position) {
  return ByteMid(line, position, ByteClass(line, position) == kLeadByte ? 2 : 1);
}

bool IsNumberOrLatin(std::string_view narrow) {
  return crlf::IsNumericChar(narrow) || text::IsLatinText(narrow, 1);
}

constexpr int kKeepWhole = 0;
constexpr int kLoseLine = -1;

// Where SplitLongLine cuts a line longer than n bytes, as the byte count of the first line, or
// kKeepWhole, or kLoseLine.
int LongLineCut(std::string_view line, int n) {
  std::string a;
  std::string b;
  int cut = n;
  if (ByteClass(line, n) == kLeadByte) {
    b = ByteMid(line, n, 2);
    a = ByteClass(line, n - 1) == kTrailByte ? ByteMid(line, n - 2, 2) : ByteMid(line, n - 1, 1);
    cut = n - 1;
  } else {
    a = ByteClass(line, n) == kTrailByte ? ByteMid(line, n - 1, 2) : ByteMid(line, n, 1);
    b = CharStartingAt(line, n + 1);
  }
  a = text::ToNarrow(a);
  b = text::ToNarrow(b);
  const bool inside_number = crlf::IsNumericChar(a) && crlf::IsNumericChar(b);
  const bool inside_word = text::IsLatinText(a, 1) && text::IsLatinText(b, 1);
  if (!inside_number && !inside_word) return cut;

  // Never cut a house number or a Latin word: move the cut in front of it. A lead byte on its
  // own reads as the empty text, which counts as Latin, so the walk steps over it.
  int q = cut - 1;
  while (q >= 2) {
    const bool trail = ByteClass(line, q) == kTrailByte;
    const std::string ch = text::ToNarrow(trail ? ByteMid(line, q - 1, 2) : ByteMid(line, q, 1));
    if (!IsNumberOrLatin(ch)) return q;
    q -= trail ? 2 : 1;
  }
  return q == 1 ? kKeepWhole : kLoseLine;
}

// Each pass rebuilds the line list: a line gives itself, two pieces, or nothing.
template <typename Split>
void EachLine(std::vector<std::string>& lines, Split split) {
  std::vector<std::string> out;
  out.reserve(lines.size() + 1);
  for (std::string& line : lines) split(line, out);
  lines = std::move(out);
}

// The first `left` bytes as one line and the bytes from `rest` on as the next.
void PushSplit(std::vector<std::string>& out, std::string_view line, int left, int rest) {
  out.push_back(ByteLeft(line, left));
  out.push_back(ByteMid(line, rest));
}

// Byte n ends the first line, unless a double-byte character starts there.
int FirstLineBytes(std::string_view line, int n) { return ByteClass(line, n) == kLeadByte ? n - 1 : n; }

// A blank at byte p is dropped, one byte or two.
int AfterBlank(std::string_view line, int p) { return p + (ByteClass(line, p) == kLeadByte ? 2 : 1); }

}  // namespace

std::string HardBreak(std::string_view text, int n) {
  const int first = FirstLineBytes(text, n);
  return ByteLeft(text, first) + std::string(kCrLf) + ByteMid(text, first + 1);
}

void InsertCrLf::SplitAtSpace(std::vector<std::string>& lines) const {
  EachLine(lines, [this](std::string& line, std::vector<std::string>& out) {
    const int p = crlf::BlankBytePosition(line);
    if (p < LineBytes && p >= MinLineBytes) {
      PushSplit(out, line, p - 1, AfterBlank(line, p));
    } else {
      out.push_back(std::move(line));
    }
  });
}

void InsertCrLf::SplitAtDigit(std::vector<std::string>& lines) const {
  EachLine(lines, [this](std::string& line, std::vector<std::string>& out) {
    if (ByteLen(line) <= LineBytes) {
      out.push_back(std::move(line));
      return;
    }
    char32_t digit = 0;
    for (const crlf::CharAt& ch : crlf::Characters(line)) {
      if (crlf::IsNumericChar(ch.code_point)) {
        digit = ch.code_point >= U'０' ? ch.code_point - U'０' + U'0' : ch.code_point;
        break;
      }
    }
    // The first place of the same digit at either width: the house number may be written in full-width.
    const int p = digit == 0 ? 0 : crlf::DigitBytePosition(line, digit);
    if (digit != 0 && p >= MinLineBytes) {
      PushSplit(out, line, p - 1, p);
    } else {
      out.push_back(std::move(line));
    }
  });
}

void InsertCrLf::SplitLongLine(std::vector<std::string>& lines) const {
  EachLine(lines, [this](std::string& line, std::vector<std::string>& out) {
    const int cut = ByteLen(line) <= LineBytes ? kKeepWhole : LongLineCut(line, LineBytes);
    // A number that starts the line keeps it whole; when the walk steps past byte 1 the line is
    // lost, as the slips have always printed it.
    if (cut == kLoseLine) return;
    if (cut == kKeepWhole) {
      out.push_back(std::move(line));
    } else {
      PushSplit(out, line, cut, cut + 1);
    }
  });
}

void InsertCrLf::SplitNameLines(std::vector<std::string>& lines) const {
  EachLine(lines, [this](std::string& line, std::vector<std::string>& out) {
    if (ByteLen(line) <= LineBytes) {
      out.push_back(std::move(line));
      return;
    }
    const int p = crlf::BlankBytePosition(line);
    if (p != 0) {
      PushSplit(out, line, p - 1, AfterBlank(line, p));
    } else {
      const int first = FirstLineBytes(line, LineBytes);
      PushSplit(out, line, first, first + 1);
    }
  });
}

std::string InsertCrLf::SplitAtCompanyWord(std::string_view text) const {
  // An order of priority, not of position: 株式会社 anywhere wins over an earlier 有限会社.
  static constexpr std::u32string_view kCompanyWords[] = {U"株式会社", U"有限会社", U"(株)", U"(有)", U"㈱", U"㈲"};
  const std::u32string whole = text::ToU32(text);
  std::string word;
  for (std::u32string_view candidate : kCompanyWords) {
    if (crlf::CharInStr(whole, candidate, 2) != 0) {
      word = text::FromU32(candidate);
      break;
    }
  }
  const int n = LineBytes;
  if (!word.empty()) {
    const int p = text::ByteInStr(text, word, 2, 0);
    if (p == 0) return std::string(text);
    const int e = p + ByteLen(word) - 1;
    if (e < MinLineBytes) return std::string(text);
    if (e <= n) return ByteLeft(text, e) + std::string(kCrLf) + ByteMid(text, e + 1);
  } else if (ByteLen(text) <= n) {
    return std::string(text);
  }
  if (ByteClass(text, n) != kLeadByte) return ByteLeft(text, n) + std::string(kCrLf) + ByteMid(text, n + 1);
  // The first line is two bytes short while the second starts at n: byte n - 1 is not printed.
  return ByteLeft(text, n - 2) + std::string(kCrLf) + ByteMid(text, n);
}

}  // namespace lupin::reports
