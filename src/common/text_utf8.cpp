#include "common/text_utf8.h"

#include "common/text.h"

namespace lupin::text {

namespace {

bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

}  // namespace

char32_t NextCodePoint(std::string_view text, std::size_t& pos) {
  const auto lead = static_cast<unsigned char>(text[pos]);
  if (lead < 0x80) {
    ++pos;
    return lead;
  }
  std::size_t length = 0;
  char32_t code_point = 0;
  char32_t lowest = 0;
  if ((lead & 0xE0) == 0xC0) {
    length = 2, code_point = lead & 0x1F, lowest = 0x80;
  } else if ((lead & 0xF0) == 0xE0) {
    length = 3, code_point = lead & 0x0F, lowest = 0x800;
  } else if ((lead & 0xF8) == 0xF0) {
    length = 4, code_point = lead & 0x07, lowest = 0x10000;
  } else {
    ++pos;
    return kReplacementChar;
  }
  if (pos + length > text.size()) {
    ++pos;
    return kReplacementChar;
  }
  for (std::size_t i = 1; i < length; ++i) {
    const auto next = static_cast<unsigned char>(text[pos + i]);
    if (!IsContinuation(next)) {
      ++pos;
      return kReplacementChar;
    }
    code_point = (code_point << 6) | (next & 0x3F);
  }
  // Overlong forms, surrogates and values beyond Unicode are not characters.
  if (code_point < lowest || code_point > 0x10FFFF || (code_point >= 0xD800 && code_point <= 0xDFFF)) {
    ++pos;
    return kReplacementChar;
  }
  pos += length;
  return code_point;
}

void AppendUtf8(std::string& out, char32_t code_point) {
  if (code_point < 0x80) {
    out.push_back(static_cast<char>(code_point));
  } else if (code_point < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (code_point >> 6)));
    out.push_back(static_cast<char>(0x80 | (code_point & 0x3F)));
  } else if (code_point < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (code_point >> 12)));
    out.push_back(static_cast<char>(0x80 | ((code_point >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (code_point & 0x3F)));
  } else {
    out.push_back(static_cast<char>(0xF0 | (code_point >> 18)));
    out.push_back(static_cast<char>(0x80 | ((code_point >> 12) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | ((code_point >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (code_point & 0x3F)));
  }
}

std::size_t OffsetOfChar(std::string_view text, std::size_t char_index) {
  std::size_t pos = 0;
  for (std::size_t i = 0; i < char_index && pos < text.size(); ++i) NextCodePoint(text, pos);
  return pos;
}

bool IsValidUtf8(std::string_view bytes) {
  std::size_t pos = 0;
  while (pos < bytes.size()) {
    const std::size_t start = pos;
    // The walk yields U+FFFD for a malformed sequence; a real U+FFFD is written EF BF BD.
    if (NextCodePoint(bytes, pos) == kReplacementChar && bytes.substr(start, 3) != "\xEF\xBF\xBD") return false;
  }
  return true;
}

std::u32string ToU32(std::string_view utf8) {
  std::u32string out;
  out.reserve(utf8.size());
  std::size_t pos = 0;
  while (pos < utf8.size()) out.push_back(NextCodePoint(utf8, pos));
  return out;
}

std::string FromU32(std::u32string_view text) {
  std::string out;
  out.reserve(text.size());
  for (char32_t c : text) AppendUtf8(out, c);
  return out;
}

int CharLen(std::string_view text) {
  int count = 0;
  std::size_t pos = 0;
  while (pos < text.size()) {
    NextCodePoint(text, pos);
    ++count;
  }
  return count;
}

std::string CharLeft(std::string_view text, int count) {
  if (count <= 0) return {};
  return std::string(text.substr(0, OffsetOfChar(text, static_cast<std::size_t>(count))));
}

std::string CharMid(std::string_view text, int start, int count) {
  if (start < 1) start = 1;
  const std::size_t begin = OffsetOfChar(text, static_cast<std::size_t>(start - 1));
  const std::string_view rest = text.substr(begin);
  if (count < 0) return std::string(rest);
  return std::string(rest.substr(0, OffsetOfChar(rest, static_cast<std::size_t>(count))));
}

std::string CharRight(std::string_view text, int count) {
  if (count <= 0) return {};
  const int length = CharLen(text);
  if (count >= length) return std::string(text);
  return std::string(text.substr(OffsetOfChar(text, static_cast<std::size_t>(length - count))));
}

}  // namespace lupin::text
