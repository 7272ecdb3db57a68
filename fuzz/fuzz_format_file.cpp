// The report format file (form_NN.lprf): whatever a shop's editor left in it must give rows or
// nothing, never a crash; a value out of range is the one fault the parser raises.
#include <stdexcept>
#include <vector>

#include "fuzz_input.h"
#include "layout/format_parser.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  lupin::fuzz::Input input(data, size);
  lupin::layout::clsRptFmtParser parser;
  std::vector<lupin::layout::clsRptFmtRow> rows;
  try {
    const auto last = parser.ParseText(input.Rest(), rows);
    if (last >= 0 && static_cast<std::size_t>(last) >= rows.size()) __builtin_trap();
  } catch (const std::overflow_error&) {
  }
  return 0;
}
