// An INI store as it may come from another machine (Shift-JIS, stray brackets, long lines): reading
// any key gives at most 1,024 characters, and writing a key keeps the file readable.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "common/settings.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::filesystem::path file =
      std::filesystem::temp_directory_path() / ("lupin-fuzz-ini-" + std::to_string(::getpid()) + ".ini");
  lupin::fuzz::Input input(data, size);
  const std::string section = input.Piece();
  const std::string key = input.Piece();
  {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << input.Rest();
  }
  const std::string value = lupin::settings::ReadProfileString(file, section, key, "既定");
  if (value.size() > 4 * 1024) __builtin_trap();
  if (!key.empty() && key.find_first_of("=\r\n") == std::string::npos && section.find_first_of("]\r\n") == std::string::npos &&
      lupin::settings::WriteProfileString(file, section, key, "値")) {
    // What was written reads back, unless the key or section has blanks a profile trims.
    const bool trimmed = key.front() == ' ' || key.back() == ' ' || key.front() == '\t' || key.back() == '\t' ||
                         (!section.empty() && (section.front() == ' ' || section.back() == ' '));
    if (!trimmed && key[0] != ';' && key[0] != '[' && lupin::settings::ReadProfileString(file, section, key, "") != "値") {
      __builtin_trap();
    }
  }
  return 0;
}
