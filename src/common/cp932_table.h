#pragma once
// The CP932 code table, built once from glibc iconv "CP932" and then read without locks.
#include <array>
#include <cstdint>

namespace lupin::text {

class Cp932Table {
 public:
  static constexpr std::uint16_t kNoCode = 0xFFFF;

  static const Cp932Table& Get();

  static bool IsLeadByte(unsigned char byte) { return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC); }
  static bool IsTrailByte(unsigned char byte) { return byte >= 0x40 && byte <= 0xFC && byte != 0x7F; }

  // CP932 code of a character: the byte itself for a single-byte one, lead << 8 | trail for a
  // double-byte one, kNoCode for a character the code page lacks.
  std::uint16_t Encode(char32_t code_point) const {
    if (code_point < 0x80) return static_cast<std::uint16_t>(code_point);
    if (code_point > 0xFFFF) return kNoCode;
    return from_unicode_[code_point];
  }
  // Character of a single byte (0x00-0xFF) or of a lead << 8 | trail pair; 0xFFFF when invalid.
  char32_t Decode(std::uint16_t code) const { return to_unicode_[code]; }

  // Bytes the character takes in CP932; a missing character becomes "?", one byte.
  int Width(char32_t code_point) const {
    const std::uint16_t code = Encode(code_point);
    return code != kNoCode && code > 0xFF ? 2 : 1;
  }

 private:
  Cp932Table();

  std::array<std::uint16_t, 0x10000> from_unicode_{};
  std::array<char32_t, 0x10000> to_unicode_{};
};

}  // namespace lupin::text
