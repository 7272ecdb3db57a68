#include "common/cp932_table.h"

#include <iconv.h>

#include <cerrno>
#include <stdexcept>
#include <string>
#include <vector>

#include "common/text_utf8.h"

namespace lupin::text {

namespace {

class Converter {
 public:
  Converter(const char* to, const char* from) : cd_(iconv_open(to, from)) {
    if (cd_ == reinterpret_cast<iconv_t>(-1)) throw std::runtime_error(std::string("iconv_open failed: ") + from + " to " + to);
  }
  ~Converter() { iconv_close(cd_); }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  // Converts the whole input or returns an empty string.
  std::string Run(const std::string& input) {
    iconv(cd_, nullptr, nullptr, nullptr, nullptr);
    std::string in = input;
    char out_buffer[16];
    char* in_ptr = in.data();
    std::size_t in_left = in.size();
    char* out_ptr = out_buffer;
    std::size_t out_left = sizeof out_buffer;
    if (iconv(cd_, &in_ptr, &in_left, &out_ptr, &out_left) == static_cast<std::size_t>(-1) || in_left != 0) return {};
    return std::string(out_buffer, static_cast<std::size_t>(out_ptr - out_buffer));
  }

 private:
  iconv_t cd_;
};

char32_t SingleCodePoint(const std::string& utf8) {
  if (utf8.empty()) return Cp932Table::kNoCode;
  std::size_t pos = 0;
  const char32_t code_point = NextCodePoint(utf8, pos);
  if (pos != utf8.size() || code_point > 0xFFFF) return Cp932Table::kNoCode;
  return code_point;
}

// Characters that Japanese Windows text carries in their JIS form; the old runtime stored them
// under the code of their Windows twin.
constexpr std::pair<char32_t, std::uint16_t> kExtraEncodings[] = {
    {0x301C, 0x8160},  // wave dash → ～
    {0x2212, 0x817C},  // minus sign → －
    {0x2016, 0x8161},  // double vertical line → ∥
    {0x2014, 0x815C},  // em dash → ―
    {0x00A2, 0x8191},  // ¢ → ￠
    {0x00A3, 0x8192},  // £ → ￡
    {0x00AC, 0x81CA},  // ¬ → ￢
    {0x00A5, 0x005C},  // ¥ → the yen sign of the single-byte set
};

}  // namespace

Cp932Table::Cp932Table() {
  from_unicode_.fill(kNoCode);
  to_unicode_.fill(kNoCode);
  Converter decoder("UTF-8", "CP932");
  Converter encoder("CP932", "UTF-8");

  std::vector<char32_t> seen;
  const auto learn = [&](std::uint16_t code, const std::string& bytes) {
    const char32_t code_point = SingleCodePoint(decoder.Run(bytes));
    if (code_point == kNoCode) return;
    to_unicode_[code] = code_point;
    seen.push_back(code_point);
  };
  for (unsigned byte = 0; byte < 0x100; ++byte) {
    if (IsLeadByte(static_cast<unsigned char>(byte))) continue;
    learn(static_cast<std::uint16_t>(byte), std::string(1, static_cast<char>(byte)));
  }
  for (unsigned lead = 0x81; lead <= 0xFC; ++lead) {
    if (!IsLeadByte(static_cast<unsigned char>(lead))) continue;
    for (unsigned trail = 0x40; trail <= 0xFC; ++trail) {
      if (!IsTrailByte(static_cast<unsigned char>(trail))) continue;
      const std::string bytes{static_cast<char>(lead), static_cast<char>(trail)};
      learn(static_cast<std::uint16_t>(lead << 8 | trail), bytes);
    }
  }
  // Several codes decode to one character (NEC and IBM extensions); iconv's encoder picks the
  // one Windows writes.
  for (char32_t code_point : seen) {
    if (from_unicode_[code_point] != kNoCode) continue;
    std::string utf8;
    AppendUtf8(utf8, code_point);
    const std::string bytes = encoder.Run(utf8);
    if (bytes.size() == 1) {
      from_unicode_[code_point] = static_cast<unsigned char>(bytes[0]);
    } else if (bytes.size() == 2) {
      from_unicode_[code_point] =
          static_cast<std::uint16_t>(static_cast<unsigned char>(bytes[0]) << 8 | static_cast<unsigned char>(bytes[1]));
    }
  }
  for (const auto& [code_point, code] : kExtraEncodings) from_unicode_[code_point] = code;
}

const Cp932Table& Cp932Table::Get() {
  static const Cp932Table* const table = new Cp932Table();  // lives for the process; never destroyed mid-use
  return *table;
}

}  // namespace lupin::text
