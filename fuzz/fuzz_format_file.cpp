// The report format file (form_NN.lprf): whatever a shop's editor left in it must give rows or
// nothing, never a crash; a value out of range is the one fault the parser raises. The bytes are
// read both as the Shift-JIS file they are on disk and as text already converted.
#include <stdexcept>
#include <vector>

#include "common/text.h"
#include "fuzz_input.h"
#include "layout/format_parser.h"

namespace {

void ParseOnce(std::string text) {
  lupin::layout::clsRptFmtParser parser;
  std::vector<lupin::layout::clsRptFmtRow> rows;
  try {
    const auto last = parser.ParseText(std::move(text), rows);
    if (last < -1 || (last >= 0 && static_cast<std::size_t>(last) >= rows.size())) lupin::fuzz::Fail("last row index outside the rows");
  } catch (const std::overflow_error&) {
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return lupin::fuzz::ParseRawAndCp932(data, size, ParseOnce);
}
