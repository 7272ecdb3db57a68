#pragma once
// A fresh folder per test and process under the temporary directory, with whole-file reads and writes.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "support/temp_files.h"

namespace lupin::common::testing {

class FolderTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    folder_ = std::filesystem::temp_directory_path() /
              ("lupin_common_" + std::to_string(::getpid()) + "_" + info->test_suite_name() + "_" + info->name());
    Reset();
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }
  void Reset() {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  static void Put(const std::filesystem::path& file, const std::string& content) { lupin::testing::WriteBytes(file, content); }
  static std::string Get(const std::filesystem::path& file) { return lupin::testing::ReadBytes(file); }

  std::filesystem::path folder_;
};

}  // namespace lupin::common::testing
