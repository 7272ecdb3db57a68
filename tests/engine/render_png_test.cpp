// The raster renderer: page size in pixels, ink where items stand, alignment, wrapping and clipping.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "engine/render_png.h"
#include "render_test_pages.h"

namespace lupin::engine {
namespace {

using test::A4Page;
using test::InkIn;
using test::Label;
using test::Render;

TEST(PngPageSize, PixelsFollowTwipsAndDpi) {
  struct Case {
    std::int32_t width, height;
    double dpi;
    int px_width, px_height;
  };
  const Case cases[] = {{16838, 11906, 96, 1123, 794}, {5669, 8391, 200, 787, 1165}};  // A4 landscape, postcard
  for (const Case& c : cases) {
    Page page;
    page.width = c.width;
    page.height = c.height;
    RasterImage image = Render(page, c.dpi);
    EXPECT_EQ(image.width, c.px_width) << c.width << "x" << c.height << " @" << c.dpi;
    EXPECT_EQ(image.height, c.px_height) << c.width << "x" << c.height << " @" << c.dpi;
    EXPECT_EQ(InkIn(image, c.dpi, 0, 0, c.width, c.height), 0) << "an empty page is white";
  }
}

TEST(PngItems, InkStandsWhereTheItemStands) {
  const double dpi = 100;
  Page page = A4Page();
  page.items.push_back(Label("lblName", "山田太郎 様", 1440, 1440, 4000, 400, "ＭＳ ゴシック", 14));
  page.items.push_back(Label("lblHidden", "表示しない", 1440, 4000, 4000, 400));
  page.items.back().visible = false;
  page.items.push_back(test::Item(ItemKind::Shape, 1440, 6000, 3000, 1500));
  page.items.push_back(test::Item(ItemKind::Line, 1440, 9000, 5000, 0));
  page.items.push_back(test::Item(ItemKind::Barcode, 1440, 10000, 4233, 184));  // 74.665 x 3.24 mm
  page.items.back().barcode_style = "JapanPost";
  page.items.back().text = "1000001-1-1";
  RasterImage image = Render(page, dpi);
  struct Region {
    const char* what;
    std::int32_t left, top, width, height;
    bool inked;
  };
  const Region regions[] = {
      {"label", 1440, 1440, 4000, 400, true},          {"hidden label", 1440, 4000, 4000, 400, false},
      {"rectangle edge", 1400, 5960, 3080, 100, true}, {"rectangle inside", 1700, 6300, 2500, 900, false},
      {"line", 1440, 8960, 5000, 80, true},            {"barcode", 1440, 10000, 4233, 184, true},
      {"beside the label", 6000, 1440, 4000, 400, false},
  };
  for (const Region& r : regions) {
    const int ink = InkIn(image, dpi, r.left, r.top, r.width, r.height);
    EXPECT_EQ(r.inked ? ink > 10 : ink == 0, true) << r.what << ": " << ink;
  }
  if (const char* keep = std::getenv("LUPIN_KEEP_PNG"); keep != nullptr) {
    std::vector<std::string> problems;
    PageRasterizer().WritePng(page, dpi, keep, problems);
  }
}

// Each case sets one label and names where its ink must fall: thirds of a line, or the second line.
TEST(PngItems, AlignmentWrappingAndClipping) {
  const double dpi = 150;
  const std::int32_t line = 300;  // a 12 pt line is about 15 pt = 300 twips high
  struct Case {
    const char* what;
    std::string text;
    Alignment alignment;
    bool word_wrap;
    std::int32_t width, height;
    std::string thirds;  // which thirds of a 6000-twip first line hold ink; empty: not looked at
    bool second_line;
  };
  const Case cases[] = {
      {"left", "１２３", Alignment::Left, true, 6000, 400, "x..", false},
      {"center", "１２３", Alignment::Center, true, 6000, 400, ".x.", false},
      {"right", "１２３", Alignment::Right, true, 6000, 400, "..x", false},
      {"CR LF starts a line", "東京都千代田区\r\n千代田一丁目", Alignment::Left, true, 6000, 2000, "x..", true},
      {"wrap at the box width", "東京都千代田区千代田一丁目一番一号", Alignment::Left, true, 1500, 2000, "x..", true},
      {"no wrap keeps one line", "東京都千代田区千代田一丁目一番一号", Alignment::Left, false, 1500, 2000, "", false},
      {"a line below the box is dropped", "東京都千代田区\r\n千代田一丁目", Alignment::Left, true, 6000, 250, "x..", false},
  };
  for (const Case& c : cases) {
    Page page = A4Page();
    page.items.push_back(Label("lbl", c.text, 1440, 1440, c.width, c.height, "ＭＳ 明朝", 12));
    page.items.back().alignment = c.alignment;
    page.items.back().word_wrap = c.word_wrap;
    RasterImage image = Render(page, dpi);
    std::string thirds;
    for (int third = 0; third < 3; ++third) thirds += InkIn(image, dpi, 1440 + third * 2000, 1440, 2000, line - 40) > 0 ? "x" : ".";
    EXPECT_EQ(c.thirds.empty() ? thirds != "..." : thirds == c.thirds, true) << c.what << ": " << thirds;
    EXPECT_EQ(InkIn(image, dpi, 1440, 1440 + line + 40, 6000, line) > 0, c.second_line) << c.what;
  }
}

TEST(PngRenderer, WritesOneNumberedFilePerPage) {
  const lupin::testing::TempFolder temp("lupin_png_pages_");
  const auto folder = temp.Path() / "pages";
  PngRenderer renderer(folder.string(), 50);
  renderer.Begin({"rptNouhin", "納品書"});
  for (int n = 1; n <= 3; ++n) renderer.AddPage(A4Page(n));
  renderer.End();
  EXPECT_EQ(renderer.Files().size(), 3u);
  EXPECT_TRUE(std::filesystem::exists(folder / "page-0003.png"));
}

}  // namespace
}  // namespace lupin::engine
