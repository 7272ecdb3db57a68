#include <gtest/gtest.h>

#include <tuple>

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
      {"abc", "ＡＢＣ", true}, {"ｶﾞｷﾞ", "ガギ", true}, {"がぎ", "ガギ", true}, {" ", "　", true},
      {"１２－１４", "12-14", true}, {"ｶﾞ", "カ", false}, {"abc", "abc ", false},
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
      {"ｱｲｳｴｵＡＢＣ", "abc", 1, 6}, {"abcabc", "ABC", 2, 4}, {"ｶﾞｷﾞｸﾞ", "ギ", 1, 3},  // ｶﾞ is two characters
      {"abc", "", 2, 2},
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
      {"東京都 港区　芝", " ", "", "東京都港区芝"}, {"ｶﾞｽ ガス", "ガス", "G", "G G"}, {"aaa", "aa", "b", "ba"},
      {"abc", "", "x", "abc"},
  };
  for (const auto& c : cases) EXPECT_EQ(TextReplace(c.text, c.find, c.with), c.expected) << c.text;
}

TEST(CharHelpers, CountCodePoints) {
  EXPECT_EQ(CharLen("東京ab😀"), 5);
  EXPECT_EQ(CharLeft("東京ab", 3), "東京a");
  EXPECT_EQ(CharMid("東京ab", 2, 2), "京a");
  EXPECT_EQ(CharMid("東京ab", 3), "ab");
  EXPECT_EQ(CharMid("東京ab", 9), "");
  EXPECT_EQ(FromU32(ToU32("ｱ東😀")), "ｱ東😀");
}

TEST(CharHelpers, MalformedUtf8IsOneReplacementCharacterPerByte) {
  EXPECT_EQ(ToU32("a\xE6\x9D"), (std::u32string{U'a', 0xFFFD, 0xFFFD}));
  EXPECT_EQ(ToU32("\xC0\xAF"), (std::u32string{0xFFFD, 0xFFFD}));  // overlong "/"
}

struct WidthCase {
  const char* wide;
  const char* narrow;
};

// Pairs that convert both ways.
const WidthCase kPairs[] = {
    {"ＡＢＣａｂｃ０１２", "ABCabc012"}, {"　", " "},           {"＼", "\\"},         {"～", "~"},
    {"－", "-"},                          {"ガギグゲゴ", "ｶﾞｷﾞｸﾞｹﾞｺﾞ"}, {"パピプペポ", "ﾊﾟﾋﾟﾌﾟﾍﾟﾎﾟ"}, {"ヴ", "ｳﾞ"},
    {"ヂヅ", "ﾁﾞﾂﾞ"},                     {"。「」、・ー", "｡｢｣､･ｰ"}, {"ァッャヲン", "ｧｯｬｦﾝ"}, {"゛゜", "ﾞﾟ"},
    {"’”", "'\""},                        {"ＴＥＬ：０３－１２３４", "TEL:03-1234"},
    // no other width: left alone both ways
    {"東京都あいう", "東京都あいう"}, {"ヵヶヮ①㈱", "ヵヶヮ①㈱"},
};

TEST(Width, NarrowAndWideAreInverse) {
  for (const auto& c : kPairs) {
    EXPECT_EQ(ToNarrow(c.wide), c.narrow);
    EXPECT_EQ(ToWide(c.narrow), c.wide);
  }
}

// One way only: JIS forms narrow like their Windows twins; a sound mark joins only a kana it belongs to.
TEST(Width, NarrowsJisFormsAndComposesOnlyMarksThatBelongToTheKana) {
  const std::tuple<std::string (*)(std::string_view), const char*, const char*> cases[] = {
      {ToNarrow, "\u301C\u2212", "~-"}, {ToNarrow, "１２－１４", "12-14"},
      {ToWide, "ｱﾞ", "ア゛"},  // ア has no voiced form
      {ToWide, "ｶﾟ", "カ゜"}, {ToWide, "ﾞｶ", "゛カ"},
  };
  for (const auto& [convert, in, out] : cases) EXPECT_EQ(convert(in), out) << in;
}

TEST(Width, EveryKatakanaSurvivesARoundTrip) {
  for (char32_t c = 0x30A1; c <= 0x30F4; ++c) {
    if (c == 0x30EE || c == 0x30F0 || c == 0x30F1) continue;  // ヮヰヱ have no half-width form
    const std::string kana = FromU32(std::u32string(1, c));
    EXPECT_EQ(ToWide(ToNarrow(kana)), kana) << kana;
  }
}

TEST(Width, CaseCoversFullWidthLetters) {
  const WidthCase cases[] = {{"ABCＡＢＣ東", "abcａｂｃ東"}, {"XYZ123", "xyz123"}};
  for (const auto& c : cases) {
    EXPECT_EQ(ToLower(c.wide), c.narrow);
    EXPECT_EQ(ToUpper(c.narrow), c.wide);
  }
}

}  // namespace
}  // namespace lupin::text
