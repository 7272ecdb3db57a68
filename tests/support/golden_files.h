#pragma once
// Whole outputs pinned under tests/golden: compared byte for byte, or rewritten when
// LUPIN_UPDATE_GOLDEN=1, and every rewritten file reviewed before it is committed.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "support/temp_files.h"

namespace lupin::testing {

inline bool UpdatingGolden() {
  const char* update = std::getenv("LUPIN_UPDATE_GOLDEN");
  return update != nullptr && std::string(update) != "0";
}

// tests/golden/RELATIVE against the output. `writer`: this instance rewrites the file when asked
// (of a test run once per engine, one instance writes and the others still compare).
inline void ExpectGoldenFile(const std::filesystem::path& relative, const std::string& actual, bool writer = true) {
  const std::filesystem::path path = std::filesystem::path(LUPIN_GOLDEN_DIR) / relative;
  if (writer && UpdatingGolden()) {
    std::filesystem::create_directories(path.parent_path());
    WriteBytes(path, actual);
    return;
  }
  ASSERT_TRUE(std::filesystem::exists(path)) << path << " is missing; run once with LUPIN_UPDATE_GOLDEN=1";
  EXPECT_EQ(actual, ReadBytes(path)) << "differs from " << relative;
}

}  // namespace lupin::testing
