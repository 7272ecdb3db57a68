// Lines of a label's text: CR LF breaks, and word wrap by measured width.
#include <gtest/gtest.h>

#include "engine/text_wrap.h"

namespace lupin::engine {
namespace {

// Every character 100 twips wide, so the breaks are easy to read.
class FixedMeasurer : public TextMeasurer {
 public:
  double WidthTwips(std::string_view text, const FontSpec&) override {
    double width = 0;
    for (const char c : text)
      if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) width += 100;
    return width;
  }
};

struct WrapCase {
  const char* label;
  std::string text;
  std::int32_t width;
  bool word_wrap;
  std::vector<std::string> lines;
};

class Wrap : public ::testing::TestWithParam<WrapCase> {};

TEST_P(Wrap, Lines) {
  FixedMeasurer measurer;
  EXPECT_EQ(WrapText(GetParam().text, FontSpec{}, GetParam().width, GetParam().word_wrap, &measurer), GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, Wrap,
    ::testing::Values(WrapCase{"fits", "東京都", 300, true, {"東京都"}},
                      WrapCase{"breaks_by_width", "東京都千代田区", 300, true, {"東京都", "千代田", "区"}},
                      WrapCase{"crlf_starts_a_line", "東京都\r\n千代田区", 1000, true, {"東京都", "千代田区"}},
                      WrapCase{"lone_lf_too", "ab\ncd", 1000, true, {"ab", "cd"}},
                      WrapCase{"no_wrap_keeps_long_lines", "東京都千代田区", 300, false, {"東京都千代田区"}},
                      WrapCase{"narrower_than_a_character", "東京", 50, true, {"東", "京"}},
                      WrapCase{"empty_line_kept", "a\r\n\r\nb", 1000, true, {"a", "", "b"}}),
    [](const auto& param_info) { return std::string(param_info.param.label); });

TEST(FallbackMeasure, HalfWidthIsHalfTheEm) {
  FallbackMeasurer measurer;
  FontSpec font;
  font.size = 10;  // 200 twips an em
  const std::pair<const char*, double> cases[] = {{"ab", 200}, {"あい", 400}, {"ｱｲ", 200}, {"a東", 300}, {"", 0}};
  for (const auto& [text, width] : cases) EXPECT_DOUBLE_EQ(measurer.WidthTwips(text, font), width) << text;
}

}  // namespace
}  // namespace lupin::engine
