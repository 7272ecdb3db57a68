#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "engine/render_error.h"
#include "engine/pdf_syntax.h"
#include "engine/render_pdf.h"
#include "engine/render_png.h"
#include "render_test_pages.h"

namespace lupin::engine {
namespace {

using test::A4Page;
using test::Label;
using test::RunCommand;

class PdfOutput : public ::testing::Test {
 protected:
  const lupin::testing::TempFolder folder_{"lupin_render_"};
  const std::string path_ = (folder_.Path() / "out.pdf").string();
};

// One document: a first page of Japanese text in several faces with a customer barcode that cannot
// be drawn, then sixty pages of three sizes.
TEST_F(PdfOutput, ValidFileWithJapaneseTextPageSizesAndEachFontEmbeddedOnce) {
  const std::pair<const char*, std::string> texts[] = {{"ＭＳ 明朝", "納品書"}, {"ＭＳ Ｐゴシック", "髙橋﨑子 様"}, {"存在しないフォント", "合計金額 ¥12,345"}};
  struct Size {
    std::int32_t width, height;
    const char* points;  // as pdfinfo prints it
  };
  const Size sizes[] = {{11906, 16838, "595.3 x 841.9"}, {16838, 11906, "841.9 x 595.3"}, {5669, 8391, "283.45 x 419.55"}};
  PdfRenderer renderer(path_);
  renderer.Begin({"rptNouhin", "納品書"});
  Page first = A4Page();
  std::int32_t top = 1000;
  for (const auto& [font, text] : texts) first.items.push_back(Label("lbl", text, 1000, top += 600, 8000, 400, font, 12));
  first.items.push_back(test::Item(ItemKind::Barcode, 1000, 4000, 4233, 184));
  first.items.back().name = "BarCode1";
  first.items.back().barcode_style = "JapanPost";
  first.items.back().text = "1000001あ";
  renderer.AddPage(first);
  for (int copy = 0; copy < 20; ++copy) {
    for (const Size& s : sizes) {
      Page page = A4Page(renderer.PageCount() + 1);
      page.width = s.width;
      page.height = s.height;
      page.items.push_back(Label("lblSimei", "郵便太郎", 500, 500, 3000, 300, "ＭＳ 明朝", 11));
      page.items.push_back(Label("lblJusyo", "大阪府大阪市北区", 500, 900, 3000, 300, "ＭＳ 明朝", 9));
      renderer.AddPage(page);
    }
  }
  renderer.End();
  ASSERT_EQ(renderer.PageCount(), 61);
  ASSERT_EQ(renderer.Problems().size(), 1u);
  EXPECT_EQ(renderer.Problems()[0].rfind("BarCode1: バーコードを作成できません", 0), 0u) << renderer.Problems()[0];

  const auto check = RunCommand("qpdf --check '" + path_ + "'");
  EXPECT_EQ(check.status, 0) << check.output;
  const auto [text_status, text] = RunCommand("pdftotext -l 1 -layout '" + path_ + "' -");
  ASSERT_EQ(text_status, 0) << text;
  for (const auto& [font, expected] : texts) EXPECT_NE(text.find(expected), std::string::npos) << font << ": " << expected << "\n" << text;
  const std::string info = RunCommand("pdfinfo -f 2 -l 4 '" + path_ + "'").output;
  for (int i = 0; i < 3; ++i) {
    const std::string line = "Page    " + std::to_string(i + 2) + " size:  " + sizes[i].points;
    EXPECT_NE(info.find(line), std::string::npos) << line << "\n" << info;
  }
  // pdffonts lists a face once per embedding, Latin letters included.
  for (const char* face : {"IPAMincho", "IPAPGothic"})
    EXPECT_EQ(RunCommand("pdffonts '" + path_ + "' | grep CID | grep -c " + face).output, "1\n") << face;
}

// Pages drawn on two threads are written in order and fonts numbered as the layout met them: the
// file is the same, byte for byte. Pages mix texts that repeat and change, shapes and bar codes.
TEST_F(PdfOutput, TwoThreadsWriteTheFileOneThreadWrites) {
  const auto render = [](const std::string& path, int threads) {
    PdfRenderer renderer(path, threads);
    renderer.Begin({"rptYamatoNew", "ヤマト宅配伝票"});
    for (int n = 1; n <= 120; ++n) {
      Page page = A4Page(n);
      page.items.push_back(Label("lblTitle", "お届け先", 500, 400, 3000, 300, "ＭＳ ゴシック", 12));
      page.items.push_back(Label("lblSimei", "山田 太郎 " + std::to_string(n) + " 様", 500, 800, 3000, 300, "ＭＳ 明朝", 11));
      page.items.push_back(test::Item(ItemKind::Shape, 400, 300, 5000, 2000));
      page.items.push_back(test::Item(ItemKind::Barcode, 500, 2600, 4233, 184));
      page.items.back().text = "1000001" + std::to_string(n % 9) + "-" + std::to_string(n % 30);
      page.items.push_back(test::Item(ItemKind::Barcode, 500, 3000, 4233, 184));
      page.items.back().name = "BarCode2";
      page.items.back().text = n % 7 == 0 ? "あ" : "";
      renderer.AddPage(page);
    }
    renderer.End();
    std::string bytes = RunCommand("grep -av CreationDate '" + path + "'").output;
    return std::make_pair(bytes, renderer.Problems().size());
  };
  const auto one = render(path_, 1);
  const auto two = render(path_ + "2", 2);
  EXPECT_GT(one.first.size(), 10000u);
  EXPECT_TRUE(one.first == two.first) << "the two files differ";
  EXPECT_EQ(one.second, 17u) << "every seventh page's bar code cannot be drawn";
  EXPECT_EQ(two.second, one.second);
}

// The PDF, rasterised by a reader, shows what the preview's raster shows: text in its place,
// weight, slant and alignment, every kind of shape, lines, colours and a customer bar code.
TEST_F(PdfOutput, ReaderShowsWhatThePreviewDraws) {
  Page page = A4Page();
  page.items.push_back(Label("lblLeft", "納品書 ご請求額 ¥12,345", 600, 600, 6000, 400, "ＭＳ 明朝", 14));
  page.items.push_back(Label("lblBold", "ルパン堂 本店", 600, 1200, 6000, 400, "ＭＳ ゴシック", 14));
  page.items.back().font.bold = true;
  page.items.push_back(Label("lblRight", "13,292", 600, 1800, 6000, 400, "ＭＳ 明朝", 12));
  page.items.back().alignment = Alignment::Right;
  page.items.push_back(Label("lblCentre", "お届け先", 600, 2400, 6000, 400, "ＭＳ Ｐゴシック", 12));
  page.items.back().alignment = Alignment::Center;
  page.items.back().font.underline = true;
  page.items.push_back(Label("lblWrap", "東京都渋谷区神宮前三丁目十二番八号 ルパンビル二階 総務部 御中", 600, 3000, 3000, 900, "ＭＳ 明朝", 11));
  page.items.push_back(Label("lblItalic", "Italic 斜体", 7000, 1800, 3000, 500, "ＭＳ 明朝", 20));
  page.items.back().font.italic = true;
  page.items.push_back(Label("lblBack", "白抜き", 7000, 600, 3000, 500, "ＭＳ ゴシック", 14));
  page.items.back().back_color = 0x000000;
  page.items.back().fore_color = 0xFFFFFF;
  const ShapeKind shapes[] = {ShapeKind::Rectangle, ShapeKind::Ellipse, ShapeKind::RoundRectangle};
  for (int i = 0; i < 3; ++i) {
    page.items.push_back(test::Item(ItemKind::Shape, 600 + i * 3400, 4500, 3000, 2000));
    page.items.back().shape = shapes[i];
    if (i == 2) page.items.back().back_color = 0x808080;
  }
  page.items.push_back(test::Item(ItemKind::Line, 600, 7000, 9000, 1500));
  page.items.push_back(test::Item(ItemKind::Barcode, 600, 9000, 4233, 184));
  page.items.back().text = "1500001-3-12-8";
  page.items.back().barcode_style = "JapanPost";

  constexpr double kDpi = 100;
  std::vector<std::string> problems;
  PageRasterizer rasterizer;
  const RasterImage preview = rasterizer.Render(page, kDpi, problems);
  PdfRenderer renderer(path_);
  renderer.Begin({"rptTest", "試験"});
  renderer.AddPage(page);
  renderer.End();
  ASSERT_TRUE(problems.empty() && renderer.Problems().empty());
  const std::string raster = (folder_.Path() / "page").string();
  ASSERT_EQ(RunCommand("pdftoppm -r 100 -gray -singlefile '" + path_ + "' '" + raster + "'").status, 0);
  const std::string pgm = lupin::testing::ReadBytes(raster + ".pgm");
  int width = 0, height = 0, offset = 0;
  ASSERT_EQ(std::sscanf(pgm.c_str(), "P5 %d %d 255%n", &width, &height, &offset), 2) << pgm.substr(0, 20);
  const std::size_t start = static_cast<std::size_t>(offset) + 1;
  ASSERT_EQ(pgm.size(), start + static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  // The reader rounds the page's pixel size up, the preview to the nearest.
  ASSERT_LE(std::abs(width - preview.width) + std::abs(height - preview.height), 2);
  // Compared in blocks of 3 × 3 pixels: anti-aliasing differs along every edge, a shifted or
  // missing item in whole blocks.
  constexpr int kBlock = 3;
  std::size_t ink = 0, differing = 0;
  for (int by = 0; by + kBlock <= std::min(height, preview.height); by += kBlock) {
    for (int bx = 0; bx + kBlock <= std::min(width, preview.width); bx += kBlock) {
      int drawn = 0, read = 0;
      for (int y = by; y < by + kBlock; ++y) {
        for (int x = bx; x < bx + kBlock; ++x) {
          const std::uint32_t argb = preview.At(x, y);
          drawn += static_cast<int>((((argb >> 16) & 0xff) * 299 + ((argb >> 8) & 0xff) * 587 + (argb & 0xff) * 114) / 1000);
          read += static_cast<unsigned char>(pgm[start + static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)]);
        }
      }
      if (drawn < 128 * kBlock * kBlock) ++ink;
      if (std::abs(drawn - read) > 96 * kBlock * kBlock) ++differing;
    }
  }
  EXPECT_GT(ink, 1000u);
  EXPECT_LT(differing, ink / 50) << differing << " of " << ink << " inked blocks differ";
  // A thickened outline is too fine for the blocks: the bold label's ink is counted on its own.
  int preview_ink = 0, read_ink = 0;
  for (int y = 1200 * 100 / 1440; y < 1600 * 100 / 1440; ++y) {
    for (int x = 600 * 100 / 1440; x < 6600 * 100 / 1440; ++x) {
      if ((preview.At(x, y) & 0xff) < 128) ++preview_ink;
      if (static_cast<unsigned char>(pgm[start + static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)]) < 128) ++read_ink;
    }
  }
  EXPECT_NEAR(read_ink, preview_ink, preview_ink / 10) << "bold text";
}
TEST(PdfSyntax, NumbersTextStringsAndNames) {
  const std::pair<double, const char*> reals[] = {{0, "0"}, {-0.0001, "0"}, {12.5, "12.5"}, {-3.25, "-3.25"},
                                                  {0.0005, "0.001"}, {595.2756, "595.276"}, {1e300, "1000000000000"},
                                                  {std::nan(""), "0"}, {-841.8898, "-841.89"}};
  for (const auto& [value, expected] : reals) {
    std::string out;
    pdf::AppendReal(out, value);
    EXPECT_EQ(out, expected) << value;
  }
  std::string hex;
  pdf::AppendHex4(hex, 0x1F2A);
  EXPECT_EQ(hex, "1F2A");
  EXPECT_EQ(pdf::TextString("納A\xF0\x9F\x98\x80"), "<FEFF7D0D0041D83DDE00>");
  EXPECT_EQ(pdf::TextString("\xE7\xB4"), "<FEFFFFFDFFFD>");  // a cut sequence
  EXPECT_EQ(pdf::Name("IPA Mincho(1)#"), "/IPA#20Mincho#281#29#23");
}

TEST(PdfRendererErrors, UnwritablePathEndsTheJob) {
  PdfRenderer renderer("/nonexistent-folder/out.pdf");
  EXPECT_THROW(renderer.Begin({"rptNouhin", ""}), RenderError);
}

}  // namespace
}  // namespace lupin::engine
