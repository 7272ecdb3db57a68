// ehiden2_option.txt as a user edits it: any bytes, read as the Shift-JIS file or as text already
// converted, give six slots and a speed and cooling code.
#include "common/text.h"
#include "exchange/ehiden_option.h"
#include "fuzz_input.h"

namespace {

void ParseOnce(std::string_view content) {
  const auto options = lupin::exchange::ParseEhidenOptions(content);
  if (options.Speed().empty() || options.Cooling().empty()) lupin::fuzz::Fail("empty speed or cooling code");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return lupin::fuzz::ParseRawAndCp932(data, size, ParseOnce);
}
