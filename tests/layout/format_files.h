#pragma once
// Format files written into a temporary folder for one test.
#include <filesystem>
#include <string>

#include "common/text.h"
#include "support/temp_files.h"

namespace lupin::layout::testing {

class FormatFolder {
 public:
  const std::filesystem::path& Dir() const { return folder_.Path(); }
  // The format editor saves in CP932.
  std::filesystem::path Write(const std::string& name, const std::string& utf8) const {
    return WriteBytes(name, text::ToCp932(utf8).bytes);
  }
  std::filesystem::path WriteBytes(const std::string& name, const std::string& bytes) const {
    lupin::testing::WriteBytes(Dir() / name, bytes);
    return Dir() / name;
  }

 private:
  lupin::testing::TempFolder folder_{"lupin_format_"};
};

inline std::string DetailSection(const std::string& fields) {
  return "<name=test>\r\n<section=Detail>\r\n" + fields + "\r\n</section>\r\n";
}

}  // namespace lupin::layout::testing
