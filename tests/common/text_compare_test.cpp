#include <gtest/gtest.h>

#include "common/text.h"

namespace lupin::text {
namespace {

struct EqualsCase {
  const char* a;
  const char* b;
  bool equal;
};

TEST(TextEquals, IgnoresCaseWidthAndKanaType) {
  const EqualsCase cases[] = {
      {"abc", "ABC", true},     {"abc", "ＡＢＣ", true},  {"ｶﾞｷﾞ", "ガギ", true}, {"がぎ", "ガギ", true},
      {" ", "　", true},        {"１２－１４", "12-14", true}, {"", "", true},
      {"abc", "abd", false},    {"ｶﾞ", "カ", false},     {"abc", "abc ", false}, {"東京", "京都", false},
  };
  for (const auto& c : cases) EXPECT_EQ(TextEquals(c.a, c.b), c.equal) << c.a << " | " << c.b;
}

struct InStrCase {
  const char* text;
  const char* find;
  int start;
  int expected;
};

TEST(TextInStr, ReportsCharacterPositions) {
  const InStrCase cases[] = {
      {"ｱｲｳｴｵＡＢＣ", "abc", 1, 6}, {"09:00-12:00", "－", 1, 6}, {"abcabc", "ABC", 2, 4},
      {"abcabc", "abc", 5, 0},      {"ｶﾞｷﾞｸﾞ", "ギ", 1, 3},     // ｶﾞ is two characters of the text
      {"abc", "", 2, 2},            {"abc", "x", 1, 0},           {"東京都 港区", "　", 1, 4},
  };
  for (const auto& c : cases) EXPECT_EQ(TextInStr(c.text, c.find, c.start), c.expected) << c.text << " / " << c.find;
}

struct ReplaceCase {
  const char* text;
  const char* find;
  const char* with;
  const char* expected;
};

TEST(TextReplace, ReplacesEveryOccurrenceWhateverItsWidth) {
  const ReplaceCase cases[] = {
      {"東京都 港区　芝", " ", "", "東京都港区芝"}, {"ABC abc ａｂｃ", "abc", "x", "x x x"},
      {"ｶﾞｽ ガス", "ガス", "G", "G G"},             {"aaa", "aa", "b", "ba"},
      {"abc", "", "x", "abc"},                      {"1\r\n2\r\n", "\r\n", "", "12"},
  };
  for (const auto& c : cases) EXPECT_EQ(TextReplace(c.text, c.find, c.with), c.expected) << c.text;
}

TEST(CharHelpers, CountCodePoints) {
  EXPECT_EQ(CharLen("東京ab😀"), 5);
  EXPECT_EQ(CharLeft("東京ab", 3), "東京a");
  EXPECT_EQ(CharMid("東京ab", 2, 2), "京a");
  EXPECT_EQ(CharMid("東京ab", 3), "ab");
  EXPECT_EQ(CharMid("東京ab", 9), "");
  EXPECT_EQ(CharRight("東京ab", 3), "京ab");
  EXPECT_EQ(CharRight("東京", 5), "東京");
  EXPECT_EQ(FromU32(ToU32("ｱ東😀")), "ｱ東😀");
}

TEST(CharHelpers, MalformedUtf8IsOneReplacementCharacterPerByte) {
  EXPECT_EQ(ToU32("a\xE6\x9D"), (std::u32string{U'a', 0xFFFD, 0xFFFD}));
  EXPECT_EQ(ToU32("\xC0\xAF"), (std::u32string{0xFFFD, 0xFFFD}));  // overlong "/"
}

}  // namespace
}  // namespace lupin::text
