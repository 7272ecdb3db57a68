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
  void SetUp() override {
    path_ = (std::filesystem::temp_directory_path() /
             ("lupin_render_" + std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()) + ".pdf"))
                .string();
    std::filesystem::remove(path_);
  }
  void TearDown() override { std::filesystem::remove(path_); }
  std::string path_;
};

TEST_F(PdfOutput, ValidFileWithExtractableJapaneseText) {
  struct Case {
    const char* font;
    std::string text;
  };
  const Case cases[] = {{"ＭＳ 明朝", "納品書"}, {"ＭＳ Ｐゴシック", "髙橋﨑子 様"}, {"存在しないフォント", "合計金額 ¥12,345"}};
  PdfRenderer renderer(path_);
  renderer.Begin({"rptNouhin", "納品書"});
  Page page = A4Page();
  std::int32_t top = 1000;
  for (const Case& c : cases) {
    page.items.push_back(Label("lbl", c.text, 1000, top, 8000, 400, c.font, 12));
    top += 600;
  }
  renderer.AddPage(page);
  renderer.End();
  EXPECT_EQ(renderer.PageCount(), 1);

  auto [check, check_status] = RunCommand("qpdf --check '" + path_ + "'");
  EXPECT_EQ(check_status, 0) << check;
  auto [text, text_status] = RunCommand("pdftotext -layout '" + path_ + "' -");
  ASSERT_EQ(text_status, 0) << text;
  for (const Case& c : cases) {
    EXPECT_NE(text.find(c.text), std::string::npos) << c.font << ": " << c.text << "\n" << text;
  }
  auto [fonts, fonts_status] = RunCommand("pdffonts '" + path_ + "'");
  EXPECT_NE(fonts.find("IPAPGothic"), std::string::npos) << fonts;
}

TEST_F(PdfOutput, EachPageKeepsItsOwnSizeAndFontsAreEmbeddedOnce) {
  struct Size {
    std::int32_t width, height;
    const char* points;  // as pdfinfo prints it
  };
  const Size sizes[] = {{11906, 16838, "595.3 x 841.9"}, {16838, 11906, "841.9 x 595.3"}, {5669, 8391, "283.45 x 419.55"}};
  PdfRenderer renderer(path_);
  renderer.Begin({"rptYupak", ""});
  int number = 0;
  for (int copy = 0; copy < 20; ++copy) {
    for (const Size& s : sizes) {
      Page page = A4Page(++number);
      page.width = s.width;
      page.height = s.height;
      page.items.push_back(Label("lblSimei", "郵便太郎", 500, 500, 3000, 300, "ＭＳ 明朝", 11));
      page.items.push_back(Label("lblJusyo", "大阪府大阪市北区", 500, 900, 3000, 300, "ＭＳ 明朝", 9));
      renderer.AddPage(page);
    }
  }
  renderer.End();
  ASSERT_EQ(renderer.PageCount(), 60);
  auto [info, status] = RunCommand("pdfinfo -f 1 -l 3 '" + path_ + "'");
  ASSERT_EQ(status, 0) << info;
  for (int i = 0; i < 3; ++i) {
    const std::string line = "Page    " + std::to_string(i + 1) + " size:  " + sizes[i].points;
    EXPECT_NE(info.find(line), std::string::npos) << line << "\n" << info;
  }
  // One face for one font, whatever the sizes and pages: pdffonts lists a face once per embedding.
  auto [fonts, fonts_status] = RunCommand("pdffonts '" + path_ + "' | grep -c IPAMincho");
  EXPECT_EQ(fonts, "1\n");
}

TEST_F(PdfOutput, BadBarcodeIsReportedAndThePageStillWritten) {
  PdfRenderer renderer(path_);
  renderer.Begin({"rptLabel12", ""});
  Page page = A4Page();
  page.items.push_back(Label("lblSimei", "宛名 様", 1000, 1000, 4000, 400));
  page.items.push_back(test::Item(ItemKind::Barcode, 1000, 2000, 4233, 184));
  page.items.back().name = "BarCode1";
  page.items.back().barcode_style = "JapanPost";
  page.items.back().text = "1000001あ";
  renderer.AddPage(page);
  renderer.End();
  ASSERT_EQ(renderer.Problems().size(), 1u);
  EXPECT_EQ(renderer.Problems()[0].rfind("BarCode1: バーコードを作成できません", 0), 0u)
      << renderer.Problems()[0];
  auto [text, status] = RunCommand("pdftotext '" + path_ + "' -");
  EXPECT_NE(text.find("宛名 様"), std::string::npos) << text;
}

TEST(PdfRendererErrors, UnwritablePathEndsTheJob) {
  PdfRenderer renderer("/nonexistent-folder/out.pdf");
  EXPECT_THROW(renderer.Begin({"rptNouhin", ""}), RenderError);
}

}  // namespace
}  // namespace lupin::engine
