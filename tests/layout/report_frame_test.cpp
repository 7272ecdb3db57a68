// The report frame on a real database: the workstation restriction, the print width, a format
// file that changes the base font size, and a failing query.
#include <gtest/gtest.h>

#include "engine/designer.h"
#include "engine/page_collection.h"
#include "entry/schema.h"
#include "format_files.h"
#include "layout/report_frame.h"
#include "support/test_databases.h"

namespace lupin::layout {
namespace {

const char* kDesigner = R"({
  "report": "rptFrame", "margins": {"left": 600, "right": 400, "top": 500, "bottom": 500},
  "sections": [{"name": "Detail", "type": "Detail", "height": 600, "controls": [
    {"kind": "TextField", "name": "fldID", "data_field": "ID", "width": 1000, "height": 300},
    {"kind": "Label", "name": "lblItem1", "left": 1200, "width": 3000, "height": 300, "font": {"name": "ＭＳ 明朝", "size": 10}}]}]})";

class FrameReport : public ReportFrame {
 public:
  explicit FrameReport(entry::Context& context, std::string query = "")
      : ReportFrame(context, engine::ParseDesigner("rptFrame.json", kDesigner)), sql(std::move(query)) {
    Detail().Format = [this] { ids.push_back(FieldText("ID")); };
  }
  std::string sql;
  std::vector<std::string> ids;

 protected:
  void ActiveReport_DataInitialize() override {
    if (sql.empty())
      sql = "SELECT [WK_PRINT].[ID] FROM [WK_PRINT] WHERE [WK_PRINT].[ID] > 0" + WorkstationRestriction() +
            " ORDER BY [WK_PRINT].[ID]";
    OpenData(sql);
    SetPrintWidth();
    ApplyFormat();
    RememberBaseFontSize("lblItem1");
  }
};

class ReportFrameTest : public lupin::testing::EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    entry::CreateSchema(Db());
    for (const char* row : {"1,'WS1'", "2,'O''Hara'", "3,'WS1'", "4,'O''Hara'"})
      Db().Execute(std::string("INSERT INTO [WK_PRINT]([ID],[CLIENT_NAME]) VALUES(") + row + ")");
  }
  entry::Context MakeContext(const std::string& client) {
    entry::Context context(&Db(), settings::StorePaths::InFolder(folder_.Dir()), folder_.Dir());
    context.login.client_name = client;
    context.current.report_no = 54;
    return context;
  }
  testing::FormatFolder folder_;
};

TEST_P(ReportFrameTest, ReadsOnlyThisWorkstationsRows) {
  const std::pair<std::string, std::vector<std::string>> cases[] = {{"O'Hara", {"2", "4"}}, {"WS9", {}}};
  for (const auto& [client, ids] : cases) {
    auto context = MakeContext(client);
    FrameReport report(context);
    engine::PageCollection pages;
    const auto result = report.Run(pages);
    ASSERT_TRUE(result.ok) << result.fault.description;
    EXPECT_EQ(report.ids, ids) << report.sql;
  }
}

TEST_P(ReportFrameTest, PrintWidthIsThePaperLessTheSideMargins) {
  auto context = MakeContext("WS1");
  for (const std::int16_t orientation : {engine::kPortrait, engine::kLandscape}) {
    FrameReport report(context);
    report.Printer.Orientation = orientation;
    engine::PageCollection pages;
    ASSERT_TRUE(report.Run(pages).ok);
    EXPECT_EQ(report.PrintWidth, (orientation == engine::kPortrait ? 11906 : 16838) - 600 - 400);
  }
}

TEST_P(ReportFrameTest, TheBaseFontSizeIsReadAfterTheFormat) {
  const std::pair<const char*, double> cases[] = {
      {"", 10},  // no file
      {"<section=Detail><field=lblItem1><fontsize>12</fontsize><left>21</left></field></section>", 12},
      {"<section=Detail><field=lblItem1><left>21</left></field></section>", 9},
  };
  for (const auto& [format, base] : cases) {
    std::filesystem::remove_all(folder_.Dir() / "Format");
    if (*format != '\0') {
      std::filesystem::create_directories(folder_.Dir() / "Format");
      folder_.Write("Format/form_54.lprf", format);
    }
    auto context = MakeContext("WS1");
    FrameReport report(context);
    engine::PageCollection pages;
    // A second run starts from the designer again and applies the format afresh.
    for (int run = 0; run < 2; ++run) {
      ASSERT_TRUE(report.Run(pages).ok);
      EXPECT_EQ(report.BaseFontSize(), base) << format;
    }
    EXPECT_EQ(pages.Pages().at(0).items.at(1).left, 600 + (*format != '\0' ? 1191 : 1200)) << format;
  }
}

TEST_P(ReportFrameTest, AQueryFailureIsAFaultOfTheRun) {
  auto context = MakeContext("WS1");
  FrameReport report(context, "SELECT [NOPE] FROM [NOWHERE]");
  engine::PageCollection pages;
  const auto result = report.Run(pages);
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.fault.number, engine::kFaultGeneral);
  EXPECT_FALSE(result.fault.description.empty());
}

LUPIN_INSTANTIATE_ENGINES(ReportFrameTest);

}  // namespace
}  // namespace lupin::layout
