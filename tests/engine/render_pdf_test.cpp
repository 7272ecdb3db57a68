#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "engine/render_error.h"
#include "engine/render_pdf.h"
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
  // pdffonts lists a face once per embedding; Latin letters go to a separate simple font.
  for (const char* face : {"IPAMincho", "IPAPGothic"})
    EXPECT_EQ(RunCommand("pdffonts '" + path_ + "' | grep CID | grep -c " + face).output, "1\n") << face;
}

// The writer thread makes the same cairo calls in the same order: the file is the same, byte for
// byte, but for its creation time. Pages mix texts that repeat and change, shapes and bar codes.
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

TEST(PdfRendererErrors, UnwritablePathEndsTheJob) {
  PdfRenderer renderer("/nonexistent-folder/out.pdf");
  EXPECT_THROW(renderer.Begin({"rptNouhin", ""}), RenderError);
}

}  // namespace
}  // namespace lupin::engine
