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

// Each case runs twice: a second run starts from the designer again and applies the format afresh.
TEST_P(ReportFrameTest, ThisWorkstationsRowsThePrintWidthAndTheBaseFontSizeAfterTheFormat) {
  struct Case {
    const char* client;
    std::int16_t orientation;
    const char* format;  // "" for no file
    std::vector<std::string> ids;
    std::int32_t print_width;  // the paper less the side margins
    double base;
    std::int32_t item_left;
  };
  const Case cases[] = {
      {"O'Hara", engine::kPortrait, "", {"2", "4"}, 11906 - 1000, 10, 600 + 1200},
      {"WS9", engine::kPortrait, "", {}, 11906 - 1000, 10, 0},
      {"WS1", engine::kLandscape, "<section=Detail><field=lblItem1><fontsize>12</fontsize><left>21</left></field></section>",
       {"1", "3"}, 16838 - 1000, 12, 600 + 1191},
      {"WS1", engine::kPortrait, "<section=Detail><field=lblItem1><left>21</left></field></section>", {"1", "3"}, 11906 - 1000, 9, 600 + 1191},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.client) + " " + c.format);
    std::filesystem::remove_all(folder_.Dir() / "Format");
    if (*c.format != '\0') {
      std::filesystem::create_directories(folder_.Dir() / "Format");
      folder_.Write("Format/form_54.lprf", c.format);
    }
    auto context = MakeContext(c.client);
    FrameReport report(context);
    report.Printer.Orientation = c.orientation;
    for (int run = 0; run < 2; ++run) {
      engine::PageCollection pages;
      report.ids.clear();
      const auto result = report.Run(pages);
      ASSERT_TRUE(result.ok) << result.fault.description;
      EXPECT_EQ(report.ids, c.ids) << report.sql;
      EXPECT_EQ(report.PrintWidth, c.print_width);
      EXPECT_EQ(report.BaseFontSize(), c.base);
      if (!c.ids.empty()) {
        EXPECT_EQ(pages.Pages().at(0).items.at(1).left, c.item_left);
      }
    }
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
