#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/render_shaper.h"

namespace lupin::engine {
namespace {

FontSpec Font(const char* name, double size, bool bold = false, bool italic = false) {
  FontSpec font;
  font.name = name;
  font.size = size;
  font.bold = bold;
  font.italic = italic;
  return font;
}

std::vector<unsigned long> Glyphs(const ShapedText& shaped) {
  std::vector<unsigned long> out;
  for (const ShapedLine& line : shaped.lines)
    for (const GlyphRun& run : line.runs)
      for (const cairo_glyph_t& g : run.glyphs) out.push_back(g.index);
  return out;
}

// The cache key must tell apart every input that changes the shaping: a text served from the
// cache for another font, size or wrap width would print in the wrong face or on the wrong lines.
TEST(TextShaperCache, EachFontSizeStyleAndWrapWidthShapesOnItsOwn) {
  const std::string text = "東京都千代田区千代田１－１ 山田 太郎 様";
  TextShaper shaper;
  const auto base = shaper.ShapeShared(text, Font("ＭＳ 明朝", 9), 0);
  struct Variant {
    const char* what;
    FontSpec font;
    double wrap;
  };
  const Variant variants[] = {
      {"another face", Font("ＭＳ ゴシック", 9), 0},
      {"another size", Font("ＭＳ 明朝", 9.5), 0},
      {"bold", Font("ＭＳ 明朝", 9, true), 0},
      {"italic", Font("ＭＳ 明朝", 9, false, true), 0},
      {"wrapped", Font("ＭＳ 明朝", 9), 60},
  };
  for (const Variant& v : variants) {
    const auto shaped = shaper.ShapeShared(text, v.font, v.wrap);
    EXPECT_NE(shaped, base) << v.what;
    EXPECT_TRUE(shaped->width != base->width || Glyphs(*shaped) != Glyphs(*base) ||
                shaped->lines.size() != base->lines.size() ||
                shaped->lines[0].runs[0].font != base->lines[0].runs[0].font)
        << v.what << " came back shaped like the plain text";
  }
  EXPECT_GT(shaper.ShapeShared(text, Font("ＭＳ 明朝", 9), 60)->lines.size(), 1u);
  EXPECT_EQ(shaper.ShapeShared(text, Font("ＭＳ 明朝", 9), 0), base) << "the same text is shaped once";
}

// A text pushed out of a small cache is shaped again to the same glyphs and width.
TEST(TextShaperCache, ShapedAgainAfterEvictionTheSame) {
  TextShaper small(1);
  const FontSpec font = Font("ＭＳ Ｐゴシック", 11);
  const auto first = small.ShapeShared("株式会社ルパン通販", font, 0);
  small.ShapeShared("別の文字列", font, 0);
  const auto again = small.ShapeShared("株式会社ルパン通販", font, 0);
  EXPECT_NE(first, again);
  EXPECT_EQ(Glyphs(*first), Glyphs(*again));
  EXPECT_DOUBLE_EQ(first->width, again->width);
}

}  // namespace
}  // namespace lupin::engine
