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
using test::Label;

bool IsInk(std::uint32_t pixel) {
  const unsigned r = (pixel >> 16) & 0xff, g = (pixel >> 8) & 0xff, b = pixel & 0xff;
  return r + g + b < 3 * 160;
}

// Dark pixels inside a rectangle given in twips, at the image's dpi.
int InkIn(const RasterImage& image, double dpi, std::int32_t left, std::int32_t top,
          std::int32_t width, std::int32_t height) {
  const int x0 = static_cast<int>(left * dpi / 1440), y0 = static_cast<int>(top * dpi / 1440);
  const int x1 = std::min(image.width, static_cast<int>((left + width) * dpi / 1440));
  const int y1 = std::min(image.height, static_cast<int>((top + height) * dpi / 1440));
  int count = 0;
  for (int y = std::max(0, y0); y < y1; ++y)
    for (int x = std::max(0, x0); x < x1; ++x) count += IsInk(image.At(x, y)) ? 1 : 0;
  return count;
}

TEST(PngPageSize, PixelsFollowTwipsAndDpi) {
  struct Case {
    std::int32_t width, height;
    double dpi;
    int px_width, px_height;
  };
  const Case cases[] = {
      {11906, 16838, 72, 595, 842},    // A4 portrait
      {16838, 11906, 96, 1123, 794},   // A4 landscape
      {5669, 8391, 200, 787, 1165},    // postcard 100 x 148 mm
      {1440, 720, 300, 300, 150},
  };
  PageRasterizer rasterizer;
  for (const Case& c : cases) {
    Page page;
    page.width = c.width;
    page.height = c.height;
    std::vector<std::string> problems;
    RasterImage image = rasterizer.Render(page, c.dpi, problems);
    EXPECT_EQ(image.width, c.px_width) << c.width << "x" << c.height << " @" << c.dpi;
    EXPECT_EQ(image.height, c.px_height) << c.width << "x" << c.height << " @" << c.dpi;
    EXPECT_EQ(InkIn(image, c.dpi, 0, 0, c.width, c.height), 0) << "an empty page is white";
  }
}

TEST(PngItems, InkStandsWhereTheItemStands) {
  const double dpi = 100;
  Page page = A4Page();
  page.items.push_back(Label("lblName", "山田太郎 様", 1440, 1440, 4000, 400, "ＭＳ ゴシック", 14));
  PageItem hidden = Label("lblHidden", "表示しない", 1440, 4000, 4000, 400);
  hidden.visible = false;
  page.items.push_back(hidden);
  PageItem frame;
  frame.kind = ItemKind::Shape;
  frame.left = 1440;
  frame.top = 6000;
  frame.width = 3000;
  frame.height = 1500;
  frame.line_weight = 2;
  page.items.push_back(frame);
  PageItem rule;
  rule.kind = ItemKind::Line;
  rule.left = 1440;
  rule.top = 9000;
  rule.width = 5000;
  rule.height = 0;
  rule.line_weight = 2;
  page.items.push_back(rule);
  PageItem bar;
  bar.kind = ItemKind::Barcode;
  bar.barcode_style = "JapanPost";
  bar.text = "1000001-1-1";
  bar.left = 1440;
  bar.top = 10000;
  bar.width = 4233;  // 74.665 mm
  bar.height = 184;  // 3.24 mm
  page.items.push_back(bar);

  PageRasterizer rasterizer;
  std::vector<std::string> problems;
  RasterImage image = rasterizer.Render(page, dpi, problems);
  EXPECT_TRUE(problems.empty());

  struct Region {
    const char* what;
    std::int32_t left, top, width, height;
    bool inked;
  };
  const Region regions[] = {
      {"label", 1440, 1440, 4000, 400, true},
      {"hidden label", 1440, 4000, 4000, 400, false},
      {"rectangle edge", 1400, 5960, 3080, 100, true},
      {"rectangle inside", 1700, 6300, 2500, 900, false},
      {"line", 1440, 8960, 5000, 80, true},
      {"barcode", 1440, 10000, 4233, 184, true},
      {"beside the label", 6000, 1440, 4000, 400, false},
  };
  for (const Region& r : regions) {
    const int ink = InkIn(image, dpi, r.left, r.top, r.width, r.height);
    if (r.inked) {
      EXPECT_GT(ink, 10) << r.what;
    } else {
      EXPECT_EQ(ink, 0) << r.what;
    }
  }
  if (const char* keep = std::getenv("LUPIN_KEEP_PNG"); keep != nullptr) {
    rasterizer.WritePng(page, dpi, keep, problems);
  }
}

TEST(PngItems, AlignmentPutsTextAtTheNamedSide) {
  const double dpi = 150;
  const std::int32_t left = 1440, width = 6000;
  struct Case {
    Alignment alignment;
    bool left_third, middle_third, right_third;
  };
  const Case cases[] = {
      {Alignment::Left, true, false, false},
      {Alignment::Center, false, true, false},
      {Alignment::Right, false, false, true},
  };
  PageRasterizer rasterizer;
  for (const Case& c : cases) {
    Page page = A4Page();
    PageItem item = Label("lblAmount", "１２３", left, 1440, width, 400, "ＭＳ ゴシック", 12);
    item.alignment = c.alignment;
    page.items.push_back(item);
    std::vector<std::string> problems;
    RasterImage image = rasterizer.Render(page, dpi, problems);
    const std::int32_t third = width / 3;
    EXPECT_EQ(InkIn(image, dpi, left, 1440, third, 400) > 0, c.left_third);
    EXPECT_EQ(InkIn(image, dpi, left + third, 1440, third, 400) > 0, c.middle_third);
    EXPECT_EQ(InkIn(image, dpi, left + 2 * third, 1440, third, 400) > 0, c.right_third);
  }
}

TEST(PngItems, LineBreaksWrapAndClipToTheBox) {
  const double dpi = 150;
  const std::int32_t line = 300;  // a 12 pt line is about 15 pt = 300 twips high
  struct Case {
    const char* what;
    std::string text;
    bool word_wrap;
    std::int32_t width, height;
    bool second_line;
  };
  const Case cases[] = {
      {"CR LF starts a line", "東京都千代田区\r\n千代田一丁目", true, 6000, 2000, true},
      {"wrap at the box width", "東京都千代田区千代田一丁目一番一号", true, 1500, 2000, true},
      {"no wrap keeps one line", "東京都千代田区千代田一丁目一番一号", false, 1500, 2000, false},
      {"a line below the box is dropped", "東京都千代田区\r\n千代田一丁目", true, 6000, 250, false},
  };
  PageRasterizer rasterizer;
  for (const Case& c : cases) {
    Page page = A4Page();
    PageItem item = Label("txtJusyo", c.text, 1440, 1440, c.width, c.height, "ＭＳ 明朝", 12);
    item.word_wrap = c.word_wrap;
    page.items.push_back(item);
    std::vector<std::string> problems;
    RasterImage image = rasterizer.Render(page, dpi, problems);
    EXPECT_GT(InkIn(image, dpi, 1440, 1440, 6000, line - 40), 0) << c.what << ": first line";
    EXPECT_EQ(InkIn(image, dpi, 1440, 1440 + line + 40, 6000, line) > 0, c.second_line) << c.what;
  }
}

TEST(PngRenderer, WritesOneNumberedFilePerPage) {
  const auto folder = std::filesystem::temp_directory_path() / "lupin_png_pages";
  std::filesystem::remove_all(folder);
  PngRenderer renderer(folder.string(), 50);
  renderer.Begin({"rptNouhin", "納品書"});
  for (int n = 1; n <= 3; ++n) {
    Page page = A4Page(n);
    page.items.push_back(Label("lblPage", std::to_string(n), 1440, 1440, 2000, 300));
    renderer.AddPage(page);
  }
  renderer.End();
  ASSERT_EQ(renderer.Files().size(), 3u);
  for (const char* name : {"page-0001.png", "page-0002.png", "page-0003.png"}) {
    EXPECT_TRUE(std::filesystem::exists(folder / name)) << name;
  }
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace lupin::engine
