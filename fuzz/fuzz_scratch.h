#pragma once
// A folder of this fuzzer process for the files a target writes. Memory-backed when the machine
// has /dev/shm: the settings writer syncs every file, which on a disk caps a run at a few dozen
// inputs a second.
#include <unistd.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace lupin::fuzz {

// Removed when the fuzzer ends normally; a crash leaves it for a look.
struct OwnedFolder {
  std::filesystem::path path;
  ~OwnedFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
};

inline const std::filesystem::path& ScratchFolder() {
  static const OwnedFolder folder{[] {
    std::error_code error;
    const std::filesystem::path shm = "/dev/shm";
    const std::filesystem::path base = std::filesystem::is_directory(shm, error) ? shm : std::filesystem::temp_directory_path();
    const std::filesystem::path path = base / ("lupin-fuzz-" + std::to_string(::getpid()));
    std::filesystem::create_directories(path);
    return path;
  }()};
  return folder.path;
}

}  // namespace lupin::fuzz
