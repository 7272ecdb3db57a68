// ehiden2_option.txt as a user edits it: any bytes, read as the Shift-JIS file or as text already
// converted, give six slots and a speed and cooling code.
#include "common/text.h"
#include "exchange/ehiden_option.h"
#include "fuzz_input.h"

namespace {

void ParseOnce(std::string_view content) {
  const auto options = lupin::exchange::ParseEhidenOptions(content);
  if (options.Speed().empty() || options.Cooling().empty()) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lupin::fuzz::Input input(data, size);
  const std::string bytes = input.Rest();
  ParseOnce(bytes);
  ParseOnce(lupin::text::FromCp932(bytes));
  return 0;
}
