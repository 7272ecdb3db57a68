#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "engine/measure.h"
#include "engine/render_png.h"
#include "render_test_pages.h"

namespace lupin::engine {
namespace {

FontSpec Font(const char* name, double size) {
  FontSpec font;
  font.name = name;
  font.size = size;
  return font;
}

TEST(TextWidth, FixedPitchFontsGiveOneEmPerFullWidthCharacter) {
  // The fixed-pitch faces draw a full-width character one em wide and a half-width one half.
  struct Case {
    const char* font;
    double size;
    std::string text;
    int full, half;
  };
  const Case cases[] = {
      {"ＭＳ ゴシック", 10, "あいう", 3, 0},
      {"ＭＳ ゴシック", 9, "東京都ABC", 3, 3},
      {"ＭＳ 明朝", 12, "１２３４５", 5, 0},
      {"ＭＳ 明朝", 10.5, "123-4567", 0, 8},
      {"MS Gothic", 8, "ｱｲｳ株式会社", 4, 3},
      {"ＭＳ ゴシック", 10, "", 0, 0},
  };
  PangoTextMeasurer measurer;
  for (const Case& c : cases) {
    const double expected = (c.full + c.half * 0.5) * c.size * 20;
    EXPECT_NEAR(measurer.WidthTwips(c.text, Font(c.font, c.size)), expected, 0.5)
        << c.font << " " << c.size << " " << c.text;
  }
}

TEST(TextWidth, GrowsWithEveryCharacterAndWithTheSize) {
  const std::string address = "東京都千代田区千代田一丁目１－１ルパンビル３Ｆ";
  PangoTextMeasurer measurer;
  for (const char* name : {"ＭＳ 明朝", "ＭＳ Ｐゴシック", "ＭＳ Ｐ明朝"}) {
    double previous = 0;
    // Grow the text one UTF-8 character at a time.
    for (std::size_t end = 1; end <= address.size(); ++end) {
      if (end < address.size() && (static_cast<unsigned char>(address[end]) & 0xC0) == 0x80) continue;
      const double width = measurer.WidthTwips(address.substr(0, end), Font(name, 10));
      EXPECT_GT(width, previous) << name << " at byte " << end;
      previous = width;
    }
    EXPECT_GT(measurer.WidthTwips(address, Font(name, 11)), previous) << name;
  }
}

TEST(TextWidth, ProportionalFaceIsNarrowerForNarrowLetters) {
  PangoTextMeasurer measurer;
  EXPECT_LT(measurer.WidthTwips("illinois", Font("ＭＳ Ｐゴシック", 10)),
            measurer.WidthTwips("illinois", Font("ＭＳ ゴシック", 10)));
}

TEST(TextWidth, RepeatedMeasurementGivesTheSameWidth) {
  PangoTextMeasurer first, second;
  for (const char* text : {"株式会社ルパン", "ルパン三世 様", "〒100-0001"}) {
    const double a = first.WidthTwips(text, Font("ＭＳ 明朝", 9));
    EXPECT_EQ(first.WidthTwips(text, Font("ＭＳ 明朝", 9)), a) << text;
    EXPECT_EQ(second.WidthTwips(text, Font("ＭＳ 明朝", 9)), a) << text;
    EXPECT_NE(first.WidthTwips(text, Font("ＭＳ ゴシック", 9.5)), a) << text;
  }
}

// A box exactly as wide as the measured text holds it on one line; a narrower one wraps it.
TEST(TextWidth, RendererWrapsExactlyWhereTheMeasurerSays) {
  struct Case {
    const char* font;
    std::string text;
  };
  const Case cases[] = {
      {"ＭＳ Ｐ明朝", "北海道札幌市中央区北一条西"},
      {"ＭＳ Ｐゴシック", "株式会社ルパン商事 御中"},
      {"ＭＳ 明朝", "大阪府大阪市北区梅田"},
  };
  const double dpi = 150;
  const std::int32_t top = 1440, line = 300;
  PangoTextMeasurer measurer;
  PageRasterizer rasterizer;
  for (const Case& c : cases) {
    const double width = measurer.WidthTwips(c.text, Font(c.font, 12));
    struct Box {
      std::int32_t width;
      bool wraps;
    };
    const Box boxes[] = {{static_cast<std::int32_t>(std::ceil(width)) + 1, false},
                         {static_cast<std::int32_t>(width) - 60, true}};
    for (const Box& box : boxes) {
      Page page = test::A4Page();
      page.items.push_back(test::Label("lbl", c.text, 1440, top, box.width, 2000, c.font, 12));
      std::vector<std::string> problems;
      RasterImage image = rasterizer.Render(page, dpi, problems);
      int ink = 0;
      const int y0 = static_cast<int>((top + line + 40) * dpi / 1440);
      const int y1 = static_cast<int>((top + 2 * line) * dpi / 1440);
      for (int y = y0; y < y1; ++y)
        for (int x = 0; x < image.width; ++x) ink += (image.At(x, y) & 0xff) < 160 ? 1 : 0;
      EXPECT_EQ(ink > 0, box.wraps) << c.text << " in " << box.width << " twips, measured " << width;
    }
  }
}

}  // namespace
}  // namespace lupin::engine
