// The report frame on a real database: the workstation restriction, the data control, the print
// width, and a format file that changes the base font size.
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
  explicit FrameReport(entry::Context& context) : ReportFrame(context, engine::ParseDesigner("rptFrame.json", kDesigner)) {
    Detail().Format = [this] { ids.push_back(FieldText("ID")); };
  }
  std::string sql;
  std::vector<std::string> ids;

 protected:
  void ActiveReport_DataInitialize() override {
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
    for (const auto& [id, client] : std::vector<std::pair<int, std::string>>{{1, "WS1"}, {2, "O'Hara"}, {3, "WS1"}, {4, "O'Hara"}})
      Db().Execute("INSERT INTO [WK_PRINT]([ID],[CLIENT_NAME]) VALUES(" + std::to_string(id) + ",'" +
                   (client == "O'Hara" ? std::string("O''Hara") : client) + "')");
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
  const std::pair<std::string, std::vector<std::string>> cases[] = {
      {"WS1", {"1", "3"}}, {"O'Hara", {"2", "4"}}, {"WS9", {}}};
  for (const auto& [client, ids] : cases) {
    auto context = MakeContext(client);
    FrameReport report(context);
    engine::PageCollection pages;
    const auto result = report.Run(pages);
    ASSERT_TRUE(result.ok) << result.fault.description;
    EXPECT_EQ(report.ids, ids) << client;
    if (client == "O'Hara") {
      EXPECT_NE(report.sql.find("[CLIENT_NAME] = 'O''Hara'"), std::string::npos) << report.sql;
    }
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
  struct Case {
    const char* format;  // "" for no file
    double base;
  };
  const Case cases[] = {
      {"", 10},
      {"<section=Detail><field=lblItem1><fontsize>12</fontsize><left>21</left></field></section>", 12},
      {"<section=Detail><field=lblItem1><left>21</left></field></section>", 9},
  };
  for (const auto& c : cases) {
    std::filesystem::remove_all(folder_.Dir() / "Format");
    if (*c.format != '\0') {
      std::filesystem::create_directories(folder_.Dir() / "Format");
      folder_.Write("Format/form_54.lprf", c.format);
    }
    auto context = MakeContext("WS1");
    FrameReport report(context);
    engine::PageCollection pages;
    ASSERT_TRUE(report.Run(pages).ok);
    EXPECT_EQ(report.BaseFontSize(), c.base) << c.format;
    // A second run starts from the designer again and applies the format afresh.
    ASSERT_TRUE(report.Run(pages).ok);
    EXPECT_EQ(report.BaseFontSize(), c.base) << c.format;
    const auto& item = pages.Pages().at(0).items.at(1);
    EXPECT_EQ(item.left, 600 + (*c.format != '\0' ? 1191 : 1200)) << c.format;
  }
}

TEST_P(ReportFrameTest, AQueryFailureIsAFaultOfTheRun) {
  class Broken : public ReportFrame {
   public:
    explicit Broken(entry::Context& context) : ReportFrame(context, engine::ParseDesigner("rptFrame.json", kDesigner)) {}

   protected:
    void ActiveReport_DataInitialize() override { OpenData("SELECT [NOPE] FROM [NOWHERE]"); }
  };
  auto context = MakeContext("WS1");
  Broken report(context);
  engine::PageCollection pages;
  const auto result = report.Run(pages);
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.fault.number, engine::kFaultGeneral);
  EXPECT_FALSE(result.fault.description.empty());
}

LUPIN_INSTANTIATE_ENGINES(ReportFrameTest);

}  // namespace
}  // namespace lupin::layout
