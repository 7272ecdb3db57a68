#include "common/cp932_table.h"
#include "common/text.h"
#include "common/text_utf8.h"

namespace lupin::text {

SjisBytes ToCp932(std::string_view utf8) {
  const Cp932Table& table = Cp932Table::Get();
  SjisBytes out;
  out.bytes.reserve(utf8.size());
  std::size_t pos = 0;
  while (pos < utf8.size()) {
    const auto byte = static_cast<unsigned char>(utf8[pos]);
    if (byte < 0x80) {
      out.bytes.push_back(static_cast<char>(byte));
      ++pos;
      continue;
    }
    const std::uint16_t code = table.Encode(NextCodePoint(utf8, pos));
    if (code == Cp932Table::kNoCode) {
      out.bytes.push_back('?');
    } else if (code > 0xFF) {
      out.bytes.push_back(static_cast<char>(code >> 8));
      out.bytes.push_back(static_cast<char>(code & 0xFF));
    } else {
      out.bytes.push_back(static_cast<char>(code));
    }
  }
  return out;
}

std::string FromCp932(std::string_view cp932) {
  const Cp932Table& table = Cp932Table::Get();
  std::string out;
  out.reserve(cp932.size() * 3 / 2);
  std::size_t pos = 0;
  while (pos < cp932.size()) {
    const auto byte = static_cast<unsigned char>(cp932[pos]);
    if (byte < 0x80) {
      out.push_back(static_cast<char>(byte));
      ++pos;
      continue;
    }
    char32_t code_point = Cp932Table::kNoCode;
    if (Cp932Table::IsLeadByte(byte) && pos + 1 < cp932.size() &&
        Cp932Table::IsTrailByte(static_cast<unsigned char>(cp932[pos + 1]))) {
      // A well-formed pair is one character even when the table lacks it, as Windows reads it.
      code_point = table.Decode(static_cast<std::uint16_t>(byte << 8 | static_cast<unsigned char>(cp932[pos + 1])));
      pos += 2;
    } else {
      if (!Cp932Table::IsLeadByte(byte)) code_point = table.Decode(byte);
      ++pos;
    }
    AppendUtf8(out, code_point == Cp932Table::kNoCode ? kReplacementChar : code_point);
  }
  return out;
}

}  // namespace lupin::text
