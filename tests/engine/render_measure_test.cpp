#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "engine/measure.h"
#include "engine/measure_layout.h"
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

// The fixed-pitch faces draw a full-width character one em wide and a half-width one half; the
// proportional face is narrower for narrow letters.
TEST(TextWidth, FixedPitchFontsGiveOneEmPerFullWidthCharacter) {
  struct Case {
    const char* font;
    double size;
    std::string text;
    int full, half;
  };
  const Case cases[] = {{"ＭＳ ゴシック", 9, "東京都ABC", 3, 3}, {"ＭＳ 明朝", 10.5, "123-4567", 0, 8}, {"MS Gothic", 8, "ｱｲｳ株式会社", 4, 3}};
  PangoTextMeasurer measurer;
  for (const Case& c : cases) {
    EXPECT_NEAR(measurer.WidthTwips(c.text, Font(c.font, c.size)), (c.full + c.half * 0.5) * c.size * 20, 0.5)
        << c.font << " " << c.size << " " << c.text;
  }
  EXPECT_LT(measurer.WidthTwips("illinois", Font("ＭＳ Ｐゴシック", 10)), measurer.WidthTwips("illinois", Font("ＭＳ ゴシック", 10)));
}

// Pieces that exercise font fallback, kerning, ligatures, combining marks, half-width kana,
// symbols and characters outside the basic plane.
const std::vector<std::string> kPieces = {
    "東京都", "千代田区", "千代田１－１", "北海道札幌市中央区北一条西", "大阪府大阪市北区梅田",
    "ルパンビル３Ｆ", "山田 太郎", "佐藤花子", "様", "御中", "株式会社", "㈱ルパン", "〒100-0001",
    "TEL 03-1234-5678", "AVAWAY", "To Wa Ty", "office", "fi fl ffi", "Illinois", "ｱｲｳｴｵ",
    "ｶﾞｷﾞｸﾞ", "ﾊﾟﾋﾟﾌﾟ", "①②③", "※", "♪", "™©®", "€¥$", "½¼", "😀", "𠮷野家", "葛\U000E0100城",
    "e\u0301", "ñandú", "Straße", "한국어", "ภาษาไทย", "Ελληνικά", "Кириллица", "　", " ",
    "123", "４５６", "－", "ー", "〜", "～", "(株)", "「注文」", "【至急】", "…", "・", "あ゙",
    "ヴ", "ㇷ゚", "A1000", "1,234,567", "有機緑茶 100g", "黒豆茶 ティーバッグ", "ＡＢＣ", "abc",
};

FontSpec Styled(const char* name, double size, bool bold, bool italic) {
  FontSpec font = Font(name, size);
  font.bold = bold;
  font.italic = italic;
  return font;
}

const std::vector<FontSpec> kFonts = {
    Font("ＭＳ 明朝", 11.5),          Font("ＭＳ ゴシック", 9),        Font("ＭＳ Ｐ明朝", 10.5),
    Font("ＭＳ Ｐゴシック", 12),      Font("MS Gothic", 8),            Font("存在しない書体", 10),
    Styled("ＭＳ Ｐ明朝", 9, true, false), Styled("ＭＳ ゴシック", 14, false, true),
};

std::vector<std::string> Corpus(std::size_t count, unsigned seed) {
  std::mt19937 random(seed);
  std::vector<std::string> out;
  out.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    std::string text;
    const std::size_t parts = 1 + random() % 5;
    for (std::size_t p = 0; p < parts; ++p) text += kPieces[random() % kPieces.size()];
    out.push_back(std::move(text));
  }
  return out;
}

// The shortcut must give the width a full layout gives, to the last bit, for every text: line
// breaks chosen on screen and on paper depend on it.
TEST(TextWidthAgreement, ShapedWidthEqualsLayoutWidthOnAMixedCorpus) {
  PangoTextMeasurer fast(0);
  LayoutTextMeasurer layout;
  const std::vector<std::string> corpus = Corpus(3000, 7);
  int compared = 0, differing = 0;
  for (std::size_t i = 0; i < corpus.size(); ++i) {
    // Fonts interleave so that a font left over from the previous text would show.
    const FontSpec& font = kFonts[(i * 5 + i / kFonts.size()) % kFonts.size()];
    const double expected = layout.WidthTwips(corpus[i], font);
    const double actual = fast.WidthTwips(corpus[i], font);
    ++compared;
    if (std::fabs(actual - expected) > 1e-9 && ++differing <= 10) {
      ADD_FAILURE() << corpus[i] << " in " << font.name << " " << font.size << ": " << actual
                    << " against " << expected;
    }
  }
  EXPECT_EQ(differing, 0) << "of " << compared;
}

TEST(TextWidthAgreement, TextsAPlainShapingWouldMisreadMatchTheLayout) {
  struct Case {
    const char* what;
    std::string text;
  };
  const Case cases[] = {
      {"empty", ""},
      {"CR LF", "東京都千代田区\r\n千代田１－１"},
      {"lone CR", "ABC\rあいうえお"},
      {"LF", "一行目\n二行目は長い行"},
      {"tab", "品名\t数量"},
      {"line separator", "前半\u2028後半の方が長い"},
      {"paragraph separator", "前半の方が長い\u2029後半"},
      {"invalid UTF-8", std::string("ab\xff\xfe") + "あ"},
      {"truncated UTF-8", std::string("東京") + "\xe6\x9d"},
      {"right to left", "שלום עולם"},
      {"Arabic with digits", "مرحبا 123"},
      {"digits only", "0123-4567"},
      {"spaces only", "   　"},
      {"DEL", "A\x7f" "B"},
      {"next line", "前半\u0085後半"},
      {"right-to-left mark", "\u200fABC 123"},
      {"left-to-right embedding", "\u202a東京\u202c"},
      {"combining mark alone", "\u0301"},
      {"no-break and zero-width spaces", "A\u00a0B\u200bC\ufeffD"},
  };
  PangoTextMeasurer fast(0);
  LayoutTextMeasurer layout;
  for (const FontSpec& font : kFonts) {
    for (const Case& c : cases) {
      EXPECT_NEAR(fast.WidthTwips(c.text, font), layout.WidthTwips(c.text, font), 1e-9)
          << c.what << " in " << font.name << " " << font.size;
    }
  }
}

// A cache that clears itself or meets the same text in another font must not return the other
// font's width.
TEST(TextWidthAgreement, CachedWidthsStayWithTheirFont) {
  const std::vector<std::string> corpus = Corpus(200, 11);
  for (std::size_t limit : {std::size_t{0}, std::size_t{1}, std::size_t{7}, std::size_t{100000}}) {
    PangoTextMeasurer cached(limit);
    LayoutTextMeasurer layout;
    for (int round = 0; round < 2; ++round) {
      for (std::size_t i = 0; i < corpus.size(); ++i) {
        for (const FontSpec& font : {kFonts[i % kFonts.size()], kFonts[(i + 3) % kFonts.size()]}) {
          EXPECT_NEAR(cached.WidthTwips(corpus[i], font), layout.WidthTwips(corpus[i], font), 1e-9)
              << corpus[i] << " limit " << limit << " round " << round;
        }
      }
    }
  }
}

// A box exactly as wide as the measured text holds it on one line; a narrower one wraps it.
TEST(TextWidth, RendererWrapsExactlyWhereTheMeasurerSays) {
  const std::pair<const char*, std::string> cases[] = {{"ＭＳ Ｐ明朝", "北海道札幌市中央区北一条西"}, {"ＭＳ Ｐゴシック", "株式会社ルパン商事 御中"}};
  const double dpi = 150;
  const std::int32_t top = 1440, line = 300;
  PangoTextMeasurer measurer;
  for (const auto& [font, text] : cases) {
    const double width = measurer.WidthTwips(text, Font(font, 12));
    const std::pair<std::int32_t, bool> boxes[] = {{static_cast<std::int32_t>(std::ceil(width)) + 1, false},
                                                   {static_cast<std::int32_t>(width) - 60, true}};
    for (const auto& [box_width, wraps] : boxes) {
      Page page = test::A4Page();
      page.items.push_back(test::Label("lbl", text, 1440, top, box_width, 2000, font, 12));
      const int second_line = test::InkIn(test::Render(page, dpi), dpi, 0, top + line + 40, test::kA4Width, line - 40);
      EXPECT_EQ(second_line > 0, wraps) << text << " in " << box_width << " twips, measured " << width;
    }
  }
}

}  // namespace
}  // namespace lupin::engine
