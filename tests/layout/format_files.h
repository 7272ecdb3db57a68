#pragma once
// Format files written into a temporary folder for one test.
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "common/text.h"

namespace lupin::layout::testing {

class FormatFolder {
 public:
  FormatFolder() {
    std::random_device seed;
    dir_ = std::filesystem::temp_directory_path() / ("lupin_format_" + std::to_string(seed()));
    std::filesystem::create_directories(dir_);
  }
  ~FormatFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(dir_, ignored);
  }
  FormatFolder(const FormatFolder&) = delete;
  FormatFolder& operator=(const FormatFolder&) = delete;

  const std::filesystem::path& Dir() const { return dir_; }
  // Writes UTF-8 text as the format editor does, in CP932.
  std::filesystem::path Write(const std::string& name, const std::string& utf8) const {
    return WriteBytes(name, text::ToCp932(utf8).bytes);
  }
  std::filesystem::path WriteBytes(const std::string& name, const std::string& bytes) const {
    const auto path = dir_ / name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }

 private:
  std::filesystem::path dir_;
};

}  // namespace lupin::layout::testing
