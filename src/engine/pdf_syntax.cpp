#include "engine/pdf_syntax.h"

#include <charconv>
#include <cmath>

namespace lupin::engine::pdf {

namespace {

constexpr char kHex[] = "0123456789ABCDEF";
// Far beyond any page; keeps the integer arithmetic below from overflowing on a wild value.
constexpr double kLargest = 1e12;

void AppendUtf16(std::string& out, std::uint32_t unit) {
  out += kHex[(unit >> 12) & 0xf];
  out += kHex[(unit >> 8) & 0xf];
  out += kHex[(unit >> 4) & 0xf];
  out += kHex[unit & 0xf];
}

}  // namespace

void AppendInt(std::string& out, std::int64_t value) {
  char buffer[24];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  out.append(buffer, result.ptr);
}

void AppendReal(std::string& out, double value) {
  if (!std::isfinite(value)) value = 0;
  if (value > kLargest) value = kLargest;
  if (value < -kLargest) value = -kLargest;
  std::int64_t thousandths = std::llround(value * 1000.0);
  if (thousandths < 0) {
    out += '-';
    thousandths = -thousandths;
  }
  AppendInt(out, thousandths / 1000);
  int fraction = static_cast<int>(thousandths % 1000);
  if (fraction == 0) return;
  char digits[4] = {'.', static_cast<char>('0' + fraction / 100), static_cast<char>('0' + fraction / 10 % 10),
                    static_cast<char>('0' + fraction % 10)};
  int length = 4;
  while (digits[length - 1] == '0') --length;
  out.append(digits, static_cast<std::size_t>(length));
}

void AppendHex4(std::string& out, std::uint32_t value) { AppendUtf16(out, value & 0xffff); }

std::string TextString(std::string_view utf8) {
  std::string out = "<FEFF";
  std::size_t i = 0;
  while (i < utf8.size()) {
    const auto lead = static_cast<unsigned char>(utf8[i]);
    std::uint32_t code = 0xFFFD;
    int length = 1;
    if (lead < 0x80) {
      code = lead;
    } else if ((lead >> 5) == 0x6) {
      length = 2;
      code = lead & 0x1f;
    } else if ((lead >> 4) == 0xe) {
      length = 3;
      code = lead & 0x0f;
    } else if ((lead >> 3) == 0x1e) {
      length = 4;
      code = lead & 0x07;
    }
    if (length > 1) {
      if (i + static_cast<std::size_t>(length) > utf8.size()) {
        code = 0xFFFD;
        length = 1;
      } else {
        for (int k = 1; k < length; ++k) code = (code << 6) | (static_cast<unsigned char>(utf8[i + k]) & 0x3f);
      }
    }
    i += static_cast<std::size_t>(length);
    if (code >= 0x10000 && code <= 0x10FFFF) {
      code -= 0x10000;
      AppendUtf16(out, 0xD800 + (code >> 10));
      AppendUtf16(out, 0xDC00 + (code & 0x3ff));
    } else {
      AppendUtf16(out, code > 0x10FFFF ? 0xFFFD : code);
    }
  }
  out += '>';
  return out;
}

std::string Name(std::string_view text) {
  std::string out = "/";
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    const bool regular = byte > 0x20 && byte < 0x7f && std::string_view("()<>[]{}/%#").find(c) == std::string_view::npos;
    if (regular) {
      out += c;
    } else {
      out += '#';
      out += kHex[byte >> 4];
      out += kHex[byte & 0xf];
    }
  }
  return out;
}

}  // namespace lupin::engine::pdf
