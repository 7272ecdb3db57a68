#include <gtest/gtest.h>

#include "common/text.h"

namespace lupin::text {
namespace {

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

TEST(Width, NarrowsJisFormsLikeTheirWindowsTwins) {
  EXPECT_EQ(ToNarrow("\u301C\u2212"), "~-");
  EXPECT_EQ(ToNarrow("１２－１４"), "12-14");
}

TEST(Width, ComposesOnlyMarksThatBelongToTheKana) {
  EXPECT_EQ(ToWide("ｱﾞ"), "ア゛");   // ア has no voiced form
  EXPECT_EQ(ToWide("ｶﾟ"), "カ゜");
  EXPECT_EQ(ToWide("ﾞｶ"), "゛カ");
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
