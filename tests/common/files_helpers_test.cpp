#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>

#include "common/files.h"
#include "folder_test.h"

namespace lupin::files {
namespace {

namespace fs = std::filesystem;

class FileTest : public common::testing::FolderTest {
 protected:
  int EntryCount() const {
    int count = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator(folder_)) ++count;
    return count;
  }
};

TEST_F(FileTest, ReplaceCreatesAndOverwrites) {
  const fs::path target = folder_ / "out.csv";
  std::string error;
  ASSERT_TRUE(ReplaceFileAtomically(target, "first", &error)) << error;
  EXPECT_EQ(Get(target), "first");
  ASSERT_TRUE(ReplaceFileAtomically(target, std::string("a\0b", 3), &error)) << error;
  EXPECT_EQ(Get(target), std::string("a\0b", 3));
  EXPECT_EQ(EntryCount(), 1);
}

TEST_F(FileTest, FailedReplaceLeavesTargetAndNoTemporary) {
  // A directory in the way of the rename: the write succeeds, the rename fails.
  const fs::path blocked = folder_ / "blocked";
  fs::create_directories(blocked / "inside");
  std::string error;
  EXPECT_FALSE(ReplaceFileAtomically(blocked, "new", &error));
  EXPECT_FALSE(error.empty());
  EXPECT_TRUE(fs::is_directory(blocked / "inside"));
  EXPECT_EQ(EntryCount(), 1);
  EXPECT_FALSE(ReplaceFileAtomically(folder_ / "none" / "out.csv", "x", &error));
  EXPECT_NE(error.find("out.csv"), std::string::npos);
}

TEST_F(FileTest, FirstLineReadsOneLine) {
  const std::pair<std::string, std::string> cases[] = {
      {"健康食品\r\n二行目\r\n", "健康食品"}, {"\xEF\xBB\xBF" "衣料品\n", "衣料品"},
      {"\x8C\x92\x8D\x4E\x90\x48\x95\x69\r\n", "健康食品"},  // 健康食品 in CP932
      {"\xB6\xC0\xDB\xB8\n", "ｶﾀﾛｸ"},
  };
  const fs::path file = folder_ / "hinmei.txt";
  for (const auto& [content, expected] : cases) {
    Put(file, content);
    EXPECT_EQ(ReadFirstLine(file), expected) << expected;
  }
  EXPECT_EQ(ReadFirstLine(folder_ / "none.txt"), "");
}

}  // namespace
}  // namespace lupin::files
