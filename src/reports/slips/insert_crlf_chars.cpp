#include "reports/slips/insert_crlf_chars.h"

#include "common/text.h"

namespace lupin::reports::crlf {

std::vector<std::string> SplitLines(std::string_view text) {
  std::vector<std::string> lines;
  std::size_t from = 0;
  while (true) {
    const std::size_t at = text.find("\r\n", from);
    if (at == std::string_view::npos) {
      lines.emplace_back(text.substr(from));
      return lines;
    }
    lines.emplace_back(text.substr(from, at - from));
    from = at + 2;
  }
}

std::string JoinNonEmpty(const std::vector<std::string>& lines) {
  std::string out;
  for (const std::string& line : lines) {
    if (line.empty()) continue;
    if (!out.empty()) out += "\r\n";
    out += line;
  }
  return out;
}

bool IsNumericChar(char32_t ch) { return (ch >= U'0' && ch <= U'9') || (ch >= U'０' && ch <= U'９'); }

std::vector<CharAt> Characters(std::string_view text) {
  std::vector<CharAt> chars;
  chars.reserve(text.size());
  std::size_t pos = 0;
  while (pos < text.size()) {
    const auto lead = static_cast<unsigned char>(text[pos]);
    std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
    // A sequence cut short or with a stray byte counts one byte, as the text helpers count it.
    bool valid = pos + length <= text.size();
    for (std::size_t k = 1; valid && k < length; ++k) valid = (static_cast<unsigned char>(text[pos + k]) & 0xC0) == 0x80;
    if (!valid) length = 1;
    char32_t code_point = lead;
    if (length > 1) {
      code_point = lead & (0x7F >> length);
      for (std::size_t k = 1; k < length; ++k) code_point = (code_point << 6) | (static_cast<unsigned char>(text[pos + k]) & 0x3F);
    }
    const int bytes = lead < 0x80 ? 1 : text::ByteLen(text.substr(pos, length));
    chars.push_back({code_point, pos, length, bytes});
    pos += length;
  }
  return chars;
}

namespace {

template <typename Match>
int BytePositionOf(std::string_view text, Match match) {
  int bytes_before = 0;
  bool first = true;
  for (const CharAt& ch : Characters(text)) {
    if (match(ch.code_point)) return first ? 0 : bytes_before + 1;
    first = false;
    bytes_before += ch.sjis_bytes;
  }
  return 0;
}

}  // namespace

int BlankBytePosition(std::string_view text) {
  return BytePositionOf(text, [](char32_t c) { return c == U' ' || c == U'\u3000'; });
}

int DigitBytePosition(std::string_view text, char32_t digit) {
  return BytePositionOf(text, [digit](char32_t c) { return c == digit || c == digit - U'0' + U'０'; });
}

bool IsNumericChar(std::string_view ch) {
  const std::vector<CharAt> chars = Characters(ch);
  return chars.size() == 1 && IsNumericChar(chars.front().code_point);
}

int CharInStr(std::u32string_view text, std::u32string_view find, int start) {
  if (start < 1) start = 1;
  if (static_cast<std::size_t>(start) > text.size()) return 0;
  const std::size_t at = text.find(find, static_cast<std::size_t>(start - 1));
  return at == std::u32string_view::npos ? 0 : static_cast<int>(at) + 1;
}

}  // namespace lupin::reports::crlf
