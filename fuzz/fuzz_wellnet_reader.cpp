// The WellNet receipts file as the payment service sends it back (Shift-JIS CSV, any line ends):
// reading it either keeps rows or names the lines it skipped, one for each line, or says why it
// could not read the file; nothing escapes the reader.
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

#include "exchange/wellnet.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::filesystem::path file =
      std::filesystem::temp_directory_path() / ("lupin-fuzz-wellnet-" + std::to_string(::getpid()) + ".csv");
  lupin::fuzz::Input input(data, size);
  {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << input.Rest();
  }
  lupin::exchange::clsWellNet wellnet;
  wellnet.fileName = file;
  wellnet.DisplayMsg = false;
  if (wellnet.InputFile() != 0) {
    if (wellnet.ErrorMsg.empty()) __builtin_trap();
    return 0;
  }
  // Each line is either a row or a skipped line, so together they never outnumber the line ends + 1.
  const auto lines = static_cast<std::size_t>(std::count(data, data + size, '\n') + std::count(data, data + size, '\r')) + 1;
  if (static_cast<std::size_t>(wellnet.InputRowCount()) + wellnet.SkippedLines().size() > lines) __builtin_trap();
  for (int i = 1; i <= wellnet.InputRowCount(); ++i) {
    if (wellnet.InputRow(i).NyuYmd == 0) __builtin_trap();
  }
  return 0;
}
