// Lines of a label's text: CR LF breaks, and word wrap by measured width.
#include <gtest/gtest.h>

#include "engine/text_wrap.h"
#include "run_fixture.h"

namespace lupin::engine {
namespace {

TEST(WrapText, Lines) {
  struct Case {
    std::string text;
    std::int32_t width;
    bool word_wrap;
    std::vector<std::string> lines;
  };
  const Case cases[] = {
      {"東京都千代田区", 300, true, {"東京都", "千代田", "区"}},
      {"東京都\r\n\r\n千代田区\nb", 1000, true, {"東京都", "", "千代田区", "b"}},
      {"東京都千代田区", 300, false, {"東京都千代田区"}},
      {"東京", 50, true, {"東", "京"}},  // narrower than a character
  };
  testing::FixedMeasurer measurer;
  for (const Case& c : cases) EXPECT_EQ(WrapText(c.text, FontSpec{}, c.width, c.word_wrap, &measurer), c.lines) << c.text;
}

TEST(FallbackMeasure, HalfWidthIsHalfTheEm) {
  FallbackMeasurer measurer;
  FontSpec font;
  font.size = 10;  // 200 twips an em
  const std::pair<const char*, double> cases[] = {{"あい", 400}, {"ｱｲ", 200}, {"a東", 300}};
  for (const auto& [text, width] : cases) EXPECT_DOUBLE_EQ(measurer.WidthTwips(text, font), width) << text;
}

}  // namespace
}  // namespace lupin::engine
