#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "engine/printer.h"
#include "engine/render_pdf.h"
#include "render_test_pages.h"
#include "support/cups_jobs.h"

namespace lupin::engine {
namespace {

// Starts the private CUPS server of scripts/cups-test-server once for the whole program.
class CupsServer : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    std::string why;
    server_ = lupin::testing::StartCupsServer(why);
    ASSERT_NE(server_, "") << why;
    pdf_ = (std::filesystem::temp_directory_path() / "lupin_print_job.pdf").string();
    PdfRenderer renderer(pdf_);
    renderer.Begin({"rptNouhin", "納品書"});
    Page page = test::A4Page();
    page.items.push_back(test::Label("lblTitle", "納品書", 1440, 1440, 4000, 400));
    renderer.AddPage(page);
    renderer.End();
  }
  void SetUp() override { UseServer(server_); }
  static void UseServer(const std::string& server) { lupin::testing::UseCupsServer(server); }
  static inline std::string server_;
  static inline std::string pdf_;
};

using lupin::testing::JobAttributes;
using lupin::testing::ReadJob;

TEST_F(CupsServer, TheQueueIsListedAndAJobArrivesWithTheReportsPaperAndOrientation) {
  std::string message;
  const auto printers = ListPrinters(&message);
  EXPECT_EQ(message, "");
  const auto pdf = std::find_if(printers.begin(), printers.end(), [](const PrinterInfo& p) { return p.name == "LupinPDF"; });
  ASSERT_NE(pdf, printers.end());
  EXPECT_TRUE(pdf->is_default);
  EXPECT_NE(std::find(pdf->media.begin(), pdf->media.end(), "iso_a3_297x420mm"), pdf->media.end());
  struct Case {
    const char* device;  // empty: the default printer
    int paper_size, bin, orientation;
    const char* media;
    const char* source;
    int ipp_orientation;
  };
  const Case cases[] = {{"", 13, 0, 2, "jis_b5_182x257mm", "", 4}, {"LupinPDF", 43, 4, 0, "jpn_hagaki_100x148mm", "manual", 0}};
  for (const Case& c : cases) {
    PrintJob job;
    job.pdf_path = pdf_;
    job.device_name = c.device;
    job.title = "納品書";
    job.paper_size = c.paper_size;
    job.paper_bin = c.bin;
    job.orientation = c.orientation;
    const PrintOutcome outcome = SubmitPdf(job);
    ASSERT_TRUE(outcome.ok) << outcome.message;
    EXPECT_EQ(outcome.printer, "LupinPDF");
    const JobAttributes attributes = ReadJob(outcome.job_id);
    EXPECT_EQ(attributes.media, c.media) << c.paper_size;
    EXPECT_EQ(attributes.media_source, c.source) << c.paper_size;
    EXPECT_EQ(attributes.orientation, c.ipp_orientation) << c.paper_size;
  }
}

TEST_F(CupsServer, FailuresComeBackAsMessages) {
  struct Case {
    std::string server, device, pdf;
    const char* message_start;
  };
  const Case cases[] = {
      {server_, "NoSuchPrinter", pdf_, "プリンタ 'NoSuchPrinter' に印刷できません: "},
      {"127.0.0.1:9", "", pdf_, "既定のプリンタに印刷できません: "},
      {server_, "LupinPDF", "/nonexistent/out.pdf",
       "プリンタ 'LupinPDF' に印刷できません: ファイル '/nonexistent/out.pdf' がありません"},
  };
  for (const Case& c : cases) {
    UseServer(c.server);
    PrintJob job;
    job.pdf_path = c.pdf;
    job.device_name = c.device;
    PrintOutcome outcome = SubmitPdf(job);
    EXPECT_FALSE(outcome.ok) << c.device;
    EXPECT_EQ(outcome.job_id, 0) << c.device;
    EXPECT_EQ(outcome.message.rfind(c.message_start, 0), 0u) << outcome.message;
  }
  UseServer("127.0.0.1:9");
  std::string message;
  EXPECT_TRUE(ListPrinters(&message).empty());
  EXPECT_EQ(message.rfind("プリンタの一覧を取得できません: ", 0), 0u) << message;
}

}  // namespace
}  // namespace lupin::engine
