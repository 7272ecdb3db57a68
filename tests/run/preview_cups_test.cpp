// The print command against the private CUPS server: the job reaches the queue of the report, or
// the one named on the command line, with the report's paper, bin and orientation.
#include "run/preview_fixture.h"

namespace lupin::run {
namespace {

using lupin::testing::JobAttributes;
using lupin::testing::ReadJob;

class PreviewCups : public testing::PreviewRunTest {
 protected:
  static void SetUpTestSuite() {
    std::string why;
    server_ = lupin::testing::StartCupsServer(why);
    ASSERT_NE(server_, "") << why;
  }
  void SetUp() override {
    PreviewRunTest::SetUp();
    testing::UseCupsServer(server_);
  }
  static inline std::string server_;
};

TEST_P(PreviewCups, JobGoesOutWithThePageSetUpOfTheReport) {
  struct Case {
    const char* what;
    std::string device;    // REPORT.DEVICE_NAME
    int paper, bin, orientation;
    std::string printer;   // --print PRINTER
    const char* media;
    const char* source;
    int ipp_orientation;
  };
  const Case cases[] = {
      {"nothing set: the designer's A4 upright on the default printer", "", 0, 0, 0, "", "iso_a4_210x297mm", "", 3},
      {"B5 across from the manual feed", "LupinPDF", 13, 4, 2, "", "jis_b5_182x257mm", "manual", 4},
      {"the queue on the command line wins", "NoSuchQueue", 43, 0, 1, "LupinPDF", "jpn_hagaki_100x148mm", "", 3},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Db().Execute("DELETE FROM [PRINTED]");
    Db().Execute("UPDATE [REPORT] SET [DEVICE_NAME] = '" + c.device + "', [PAPER_SIZE] = " + std::to_string(c.paper) +
                 ", [PAPER_BIN] = " + std::to_string(c.bin) + ", [Orientation] = " + std::to_string(c.orientation) +
                 " WHERE [REPORT_NO] = 54");
    options.outputs = {.print = true, .printer = c.printer};
    EnginePreviewRunner runner(ReportObjects(), options.outputs);
    ASSERT_EQ(RunHeadless(options, out, err, &runner), 0) << err.str();
    const auto& job = runner.LastPrint();
    ASSERT_TRUE(job.ok) << job.message;
    EXPECT_EQ(job.printer, "LupinPDF");
    const JobAttributes attributes = ReadJob(job.job_id);
    EXPECT_EQ(attributes.media, c.media);
    EXPECT_EQ(attributes.media_source, c.source);
    EXPECT_EQ(attributes.orientation, c.ipp_orientation);
    EXPECT_EQ(Ledger(54), 5);
  }
}

LUPIN_INSTANTIATE_ENGINES(PreviewCups);

}  // namespace
}  // namespace lupin::run
