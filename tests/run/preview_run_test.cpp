// The run command with the report engine behind it: previews that write only their files, and the
// print command that books first and keeps what it booked when the pages cannot go out.
#include <nlohmann/json.hpp>

#include "catalogue/load_report_definition.h"
#include "engine/display.h"
#include "engine/json_dump.h"
#include "engine/page_collection.h"
#include "run/preview_fixture.h"

namespace lupin::run {
namespace {

using testing::PartFiles;
using testing::PdfInfo;
using testing::Quoted;
using testing::ReadBytes;
using testing::RunCommand;

class PreviewRun : public testing::PreviewRunTest {};

// The print date of the page header is the clock's; two runs differ only there.
nlohmann::json WithoutPrintDate(nlohmann::json dump) {
  for (auto& page : dump["pages"])
    for (auto& item : page["items"])
      if (item["name"] == "lblPrintDate") item["text"] = "";
  return dump;
}

TEST_P(PreviewRun, PickingListBecomesAValidPdfAndPageImagesAndBooksNothing) {
  options.outputs.pdf = File("picking.pdf").string();
  options.outputs.png_dir = File("pages").string();
  ASSERT_EQ(Run(), 0) << err.str();
  for (int page = 1; page <= 5; ++page) {
    const auto image = File("pages") / ("page-000" + std::to_string(page) + ".png");
    EXPECT_EQ(ReadBytes(image).substr(0, 4), "\x89PNG") << image;
  }
  EXPECT_FALSE(std::filesystem::exists(File("pages") / "page-0006.png"));
  const auto check = RunCommand("qpdf --check " + Quoted(File("picking.pdf")));
  EXPECT_EQ(check.status, 0) << check.output;
  EXPECT_NE(RunCommand("pdftotext " + Quoted(File("picking.pdf")) + " -").output.find("ピッキングリスト"),
            std::string::npos);
  EXPECT_EQ(PdfInfo(File("picking.pdf"), "Pages"), "5") << "one page per checked order";
  EXPECT_EQ(PdfInfo(File("picking.pdf"), "Title"), "ピッキングリスト(出荷日)") << "REPORT_NAME names the document";
  EXPECT_EQ(Ledger(54), 0) << "a preview is no print";
  EXPECT_EQ(PartFiles(folder.Path()), 0);
}

TEST_P(PreviewRun, DumpIsWhatTheEngineLaysOutForTheObjectOfTheNumber) {
  struct Case {
    int report;
    const char* object;
  };
  for (const Case c : {Case{54, "rptPickingSyuDate"}, Case{55, "rptPickingSyuYDate"}}) {
    SCOPED_TRACE(c.report);
    options.report = c.report;
    options.outputs.dump = File("pages.json").string();
    ASSERT_EQ(Run(), 0) << err.str();
    const auto written = nlohmann::json::parse(ReadBytes(File("pages.json")));

    // The same object run straight on the engine, over the rows the run left staged.
    entry::Context context(&Db(), settings::StorePaths::InFolder(File("settings")), folder.Path());
    context.login.client_name = "PC01";
    catalogue::LoadReportDefinition(context, c.report);
    auto report = ReportObjects().Create(c.object, context);
    ASSERT_NE(report, nullptr);
    engine::ApplyReportSettings(*report, context.current);
    engine::PageCollection pages;
    ASSERT_TRUE(report->Run(pages).ok);
    const auto direct = nlohmann::json::parse(engine::JsonDump(pages.Info(), pages.Pages()));

    EXPECT_EQ(written["report"], c.object);
    EXPECT_EQ(written["pages"].size(), 5u);
    EXPECT_EQ(WithoutPrintDate(written), WithoutPrintDate(direct));
  }
}

TEST_P(PreviewRun, PrintToAFileBooksThenWritesTheSamePages) {
  options.outputs = {.pdf = File("preview.pdf").string(), .print = true, .print_pdf = File("printed.pdf").string()};
  ASSERT_EQ(Run(), 0) << err.str();
  EXPECT_EQ(Ledger(54), 5);
  EXPECT_EQ(RunCommand("qpdf --check " + Quoted(File("printed.pdf"))).status, 0);
  EXPECT_EQ(PdfInfo(File("printed.pdf"), "Pages"), "5");
  EXPECT_EQ(RunCommand("pdftotext " + Quoted(File("printed.pdf")) + " -").output,
            RunCommand("pdftotext " + Quoted(File("preview.pdf")) + " -").output)
      << "the print sends the pages of the preview, not a second run";
  EXPECT_EQ(PartFiles(folder.Path()), 0);
}

LUPIN_INSTANTIATE_ENGINES(PreviewRun);

}  // namespace
}  // namespace lupin::run
