// ehiden2_option.txt as a user edits it: any bytes give six slots.
#include "exchange/ehiden_option.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lupin::fuzz::Input input(data, size);
  const auto options = lupin::exchange::ParseEhidenOptions(input.Rest());
  if (options.Speed().empty() || options.Cooling().empty()) __builtin_trap();
  return 0;
}
