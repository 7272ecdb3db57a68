#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "common/settings.h"
#include "common/text.h"
#include "folder_test.h"

namespace lupin::settings {
namespace {

namespace fs = std::filesystem;

class ProfileTest : public common::testing::FolderTest {
 protected:
  void SetUp() override {
    FolderTest::SetUp();
    file_ = folder_ / "test.ini";
  }
  void Put(const std::string& content) { FolderTest::Put(file_, content); }
  std::string Get() const { return FolderTest::Get(file_); }
  fs::path file_;
};

TEST_F(ProfileTest, ReadFindsTheValueAsTheOldCallDid) {
  const struct {
    const char *label, *content, *section, *key, *expected;
  } cases[] = {
      {"section_case", "[lupinorder6]\nTax=0.08\n", "LUPINORDER6", "Tax", "0.08"},
      {"blanks_trimmed", "[S]\r\n  Tax   =   0.1  \r\n", "S", "tax", "0.1"},
      {"empty_value_is_not_default", "[S]\nTax=\n", "S", "Tax", ""},
      {"next_section_ends_search", "[S]\nA=1\n[T]\nTax=9\n", "S", "Tax", "DEF"},
      {"first_section_wins", "[S]\nA=1\n[S]\nTax=9\n", "S", "Tax", "DEF"},
      {"comment_is_not_key", "[S]\n;Tax=1\n", "S", "Tax", "DEF"},
      {"double_quotes_dropped", "[S]\nPath=\"a b\"\n", "S", "Path", "a b"},
      {"unmatched_quote_kept", "[S]\nPath=\"a b\n", "S", "Path", "\"a b"},
      {"bom", "\xEF\xBB\xBF[佐川宅配伝票]\nConn=a=b;c=d\n", "佐川宅配伝票", "Conn", "a=b;c=d"},
  };
  for (const auto& c : cases) {
    Put(c.content);
    EXPECT_EQ(ReadProfileString(file_, c.section, c.key, "DEF"), c.expected) << c.label;
  }
}

TEST_F(ProfileTest, ValueIsCutAtBufferSizeInCharacters) {
  const std::string long_ascii(1500, 'x');
  std::string long_japanese;
  for (int i = 0; i < 1100; ++i) long_japanese += "あ";
  Put("[S]\nA=" + long_ascii + "\nB=" + long_japanese + "\n");
  EXPECT_EQ(ReadProfileString(file_, "S", "A", ""), std::string(1024, 'x'));
  const std::string b = ReadProfileString(file_, "S", "B", "");
  EXPECT_EQ(b.size(), 1024u * 3);  // 1,024 characters of three UTF-8 bytes each
}

TEST_F(ProfileTest, WriteChangesOnlyTheOneKey) {
  const struct {
    const char *label, *before, *section, *key, *value, *after;
  } cases[] = {
      {"new_file", nullptr, "LupinOrder6", "Tax", "0.1", "[LupinOrder6]\nTax=0.1\n"},
      {"replace_keeps_comments", "; settings\n[S]\n; rate\nTax=0.05\nOther=1\n", "S", "tax", "0.1",
       "; settings\n[S]\n; rate\ntax=0.1\nOther=1\n"},
      {"append_in_section_before_blank", "[S]\nA=1\n\n[T]\nB=2\n", "S", "K", "v", "[S]\nA=1\nK=v\n\n[T]\nB=2\n"},
      {"section_at_end_without_final_newline", "[A]\nK=1", "B", "K", "2", "[A]\nK=1\n[B]\nK=2\n"},
      {"crlf_file_stays_crlf", "[A]\r\nK=1\r\n", "A", "L", "2", "[A]\r\nK=1\r\nL=2\r\n"},
      {"last_line_without_newline", "[A]\nK=1", "A", "L", "2", "[A]\nK=1\nL=2"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    fs::remove(file_);
    if (c.before) Put(c.before);
    ASSERT_TRUE(WriteProfileString(file_, c.section, c.key, c.value));
    EXPECT_EQ(Get(), c.after);
    EXPECT_EQ(ReadProfileString(file_, c.section, c.key, "DEF"), c.value);
  }
}

TEST_F(ProfileTest, SeveralKeysInOneWrite) {
  Put("[A]\nK=1\n\n[B]\nX=0\n");
  const std::pair<std::string_view, std::string_view> entries[] = {{"X", "1"}, {"Y", "2"}, {"x", "3"}};
  ASSERT_TRUE(WriteProfileStrings(file_, "B", entries));
  EXPECT_EQ(Get(), "[A]\nK=1\n\n[B]\nx=3\nY=2\n");
  const std::pair<std::string_view, std::string_view> unnamed[] = {{"Z", "1"}, {" ", "2"}};
  EXPECT_FALSE(WriteProfileStrings(file_, "B", unnamed));
  EXPECT_EQ(ReadProfileString(file_, "B", "Z", "none"), "none");
}

// Files carried over from Windows are Shift-JIS: read as CP932 unless valid UTF-8, and written back
// in the encoding they came in, every other byte as it was.
TEST_F(ProfileTest, FileKeepsTheEncodingItWasReadIn) {
  const std::string before = "; 設定\r\n[ヤマト宅配伝票]\r\nDEVICE_NAME=経理のプリンタ\r\n";
  const std::string after = "; 設定\r\n[ヤマト宅配伝票]\r\nDEVICE_NAME=経理のプリンタ\r\nPAPER_SIZE=用紙９\r\n";
  const struct {
    const char* label;
    std::string before, after;
  } cases[] = {
      {"utf8", before, after},
      {"utf8_bom", "\xEF\xBB\xBF" + before, "\xEF\xBB\xBF" + after},
      {"cp932", text::ToCp932(before).bytes, text::ToCp932(after).bytes},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    Put(c.before);
    EXPECT_EQ(ReadProfileString(file_, "ヤマト宅配伝票", "DEVICE_NAME", ""), "経理のプリンタ");
    ASSERT_TRUE(WriteProfileString(file_, "ヤマト宅配伝票", "PAPER_SIZE", "用紙９"));
    EXPECT_EQ(Get(), c.after);
  }
}

TEST_F(ProfileTest, MissingFileReadsDefaultAndMissingFolderFailsToWrite) {
  EXPECT_EQ(ReadProfileString(folder_ / "none.ini", "S", "K", "0.05"), "0.05");
  EXPECT_FALSE(WriteProfileString(folder_ / "no" / "such" / "x.ini", "S", "K", "1"));
}

TEST_F(ProfileTest, LineBreakInValueCannotForgeAnotherKey) {
  ASSERT_TRUE(WriteProfileString(file_, "S", "K", "a\nInjected=1"));
  EXPECT_EQ(ReadProfileString(file_, "S", "Injected", "none"), "none");
  EXPECT_EQ(ReadProfileString(file_, "S", "K", ""), "a");
}

}  // namespace
}  // namespace lupin::settings
