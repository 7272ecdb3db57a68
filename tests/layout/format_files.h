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
  FormatFolder() { std::filesystem::create_directories(dir_); }
  ~FormatFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(dir_, ignored);
  }
  FormatFolder(const FormatFolder&) = delete;
  FormatFolder& operator=(const FormatFolder&) = delete;

  const std::filesystem::path& Dir() const { return dir_; }
  // The format editor saves in CP932.
  std::filesystem::path Write(const std::string& name, const std::string& utf8) const {
    return WriteBytes(name, text::ToCp932(utf8).bytes);
  }
  std::filesystem::path WriteBytes(const std::string& name, const std::string& bytes) const {
    std::ofstream(dir_ / name, std::ios::binary) << bytes;
    return dir_ / name;
  }

 private:
  std::filesystem::path dir_ = std::filesystem::temp_directory_path() / ("lupin_format_" + std::to_string(std::random_device{}()));
};

inline std::string DetailSection(const std::string& fields) {
  return "<name=test>\r\n<section=Detail>\r\n" + fields + "\r\n</section>\r\n";
}

}  // namespace lupin::layout::testing
