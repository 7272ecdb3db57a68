// Kanji numerals in addresses: any text reads as digits, and a number written in kanji comes back
// as the number.
#include <string>

#include "common/text.h"
#include "fuzz_input.h"
#include "money/kansuji.h"

namespace {

const char* const kDigits[] = {"〇", "一", "二", "三", "四", "五", "六", "七", "八", "九"};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lupin::fuzz::Input input(data, size);
  const unsigned a = input.Byte(), b = input.Byte();
  std::string text = input.Rest();
  lupin::money::NormalizeDaiji(text);
  lupin::money::FillPositional(text);
  const std::string digits = lupin::money::KansujiToDigits(text);
  for (const char c : digits) {
    if (c < '0' || c > '9') __builtin_trap();
  }
  // Every position of the text, and one past its end, can be asked about.
  const std::u32string wide = lupin::text::ToU32(text);
  for (std::size_t pos = 0; pos <= wide.size(); ++pos) (void)lupin::money::IsKansujiChar(wide, pos);

  // A number of three digits written digit by digit with a zero sign reads back as itself.
  const unsigned n = (a * 256 + b) % 1000;
  std::string written = std::string(kDigits[n / 100 % 10]) + kDigits[n / 10 % 10] + kDigits[n % 10];
  if (n >= 100 && (n % 10 == 0 || n / 10 % 10 == 0)) {
    lupin::money::FillPositional(written);
    if (lupin::money::KansujiToDigits(written) != std::to_string(n)) __builtin_trap();
  }
  return 0;
}
