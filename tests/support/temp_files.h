#pragma once
// A folder of the test's own under the temporary directory, whole-file reads and writes, and the
// outside tools (qpdf, pdfinfo, the CUPS script) run with their output captured.
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace lupin::testing {

class TempFolder {
 public:
  explicit TempFolder(const std::string& prefix = "lupin_test_")
      : path_(std::filesystem::temp_directory_path() / (prefix + std::to_string(std::random_device{}()))) {
    std::filesystem::create_directories(path_ / "settings");
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

inline std::string ReadBytes(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

inline void WriteBytes(const std::filesystem::path& file, const std::string& bytes) {
  std::ofstream(file, std::ios::binary) << bytes;
}

struct CommandResult {
  int status = -1;
  std::string output;  // standard output and error together
};

inline CommandResult RunCommand(const std::string& command) {
  CommandResult result;
  FILE* pipe = popen((command + " 2>&1").c_str(), "r");
  if (pipe == nullptr) return result;
  std::array<char, 4096> buffer{};
  while (const std::size_t n = fread(buffer.data(), 1, buffer.size(), pipe)) result.output.append(buffer.data(), n);
  const int status = pclose(pipe);
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return result;
}

}  // namespace lupin::testing
