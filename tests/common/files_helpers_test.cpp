#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "common/files.h"

namespace lupin::files {
namespace {

namespace fs = std::filesystem;

struct SplitCase {
  const char* path;
  const char* name;
  const char* folder;
};

class SplitTest : public ::testing::TestWithParam<SplitCase> {};

TEST_P(SplitTest, AtLastSeparatorOfEitherKind) {
  EXPECT_EQ(FileNameOf(GetParam().path), GetParam().name);
  EXPECT_EQ(FolderOf(GetParam().path), GetParam().folder);
}

INSTANTIATE_TEST_SUITE_P(Cases, SplitTest,
                         ::testing::Values(SplitCase{"C:\\Lupin\\REPORT.INI", "REPORT.INI", "C:\\Lupin"},
                                           SplitCase{"/home/u/form_01.lprf", "form_01.lprf", "/home/u"},
                                           SplitCase{"C:\\a/b\\c.txt", "c.txt", "C:\\a/b"},
                                           SplitCase{"plain.txt", "plain.txt", ""},
                                           SplitCase{"folder/", "", "folder"}, SplitCase{"", "", ""},
                                           SplitCase{"出力\\ヤマト.csv", "ヤマト.csv", "出力"}));

class FileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() /
              ("lupin_files_" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  void TearDown() override { fs::remove_all(folder_); }
  void Put(const fs::path& file, const std::string& content) { std::ofstream(file, std::ios::binary) << content; }
  static std::string Get(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  }
  int EntryCount() const {
    int count = 0;
    for ([[maybe_unused]] const auto& entry : fs::directory_iterator(folder_)) ++count;
    return count;
  }
  fs::path folder_;
};

TEST_F(FileTest, ExistsOnlyForFiles) {
  Put(folder_ / "hinmei.txt", "x");
  EXPECT_TRUE(FileExists((folder_ / "hinmei.txt").string()));
  EXPECT_FALSE(FileExists((folder_ / "none.txt").string()));
  EXPECT_FALSE(FileExists(folder_.string()));
  EXPECT_FALSE(FileExists(folder_.string() + "/"));
  EXPECT_FALSE(FileExists(""));
}

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
}

TEST_F(FileTest, ReplaceInMissingFolderFails) {
  std::string error;
  EXPECT_FALSE(ReplaceFileAtomically(folder_ / "none" / "out.csv", "x", &error));
  EXPECT_NE(error.find("out.csv"), std::string::npos);
}

struct FirstLineCase {
  const char* label;
  std::string content;
  std::string expected;
};

class FirstLineTest : public FileTest, public ::testing::WithParamInterface<FirstLineCase> {};

TEST_P(FirstLineTest, ReadsOneLine) {
  const fs::path file = folder_ / "hinmei.txt";
  Put(file, GetParam().content);
  EXPECT_EQ(ReadFirstLine(file), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FirstLineTest,
    ::testing::Values(FirstLineCase{"no_newline", "雑貨", "雑貨"},
                      FirstLineCase{"crlf", "健康食品\r\n二行目\r\n", "健康食品"},
                      FirstLineCase{"bom", "\xEF\xBB\xBF" "衣料品\n", "衣料品"},
                      // 健康食品 in CP932
                      FirstLineCase{"cp932", "\x8C\x92\x8D\x4E\x90\x48\x95\x69\r\n", "健康食品"},
                      FirstLineCase{"cp932_katakana", "\xB6\xC0\xDB\xB8\n", "ｶﾀﾛｸ"}),
    [](const auto& p) { return std::string(p.param.label); });

TEST_F(FileTest, FirstLineOfMissingFileIsEmpty) { EXPECT_EQ(ReadFirstLine(folder_ / "none.txt"), ""); }

}  // namespace
}  // namespace lupin::files
