// The page dump, the spooled "page N of M" run, and showing a report by its number.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "engine/display.h"
#include "engine/json_dump.h"
#include "run_fixture.h"

namespace lupin::engine::testing {
namespace {

const char* kDumpDesigner = R"({
  "report": "rptDump", "margins": {"left": 100, "right": 100, "top": 200, "bottom": 200},
  "sections": [{"name": "Detail", "type": "Detail", "height": 1000, "controls": [
    {"kind": "Label", "name": "lblAddress", "left": 10, "top": 20, "width": 3000, "height": 600,
     "font": {"name": "ＭＳ 明朝", "size": 11.5}, "alignment": "right"},
    {"kind": "Shape", "name": "shpMark", "visible": false, "width": 500, "height": 300}]}]})";

TEST(PageDump, HoldsEveryControlWithItsTextAndVisibilityInAFixedKeyOrder) {
  LoggingReport report(kDumpDesigner);
  report.SetRows({"Address"}, {{db::Value("東京都\r\n千代田区")}});
  report.on_format = [&](const std::string&) {
    report.Detail().Controls().Item("lblAddress")->Caption = report.Fields().Value("Address").Text();
  };
  std::ostringstream out;
  JsonDumpSink sink(out);
  ASSERT_TRUE(report.Run(sink).ok);

  const auto dump = nlohmann::ordered_json::parse(out.str());
  EXPECT_EQ(dump["report"], "rptDump");
  ASSERT_EQ(dump["pages"].size(), 1u);
  const auto& items = dump["pages"][0]["items"];
  ASSERT_EQ(items.size(), 2u);
  EXPECT_EQ(items[0].dump(), R"({"section":"Detail","name":"lblAddress","kind":"Label","text":"東京都\r\n千代田区",)"
                             R"("visible":true,"left":110,"top":220,"width":3000,"height":600,)"
                             R"("font":{"name":"ＭＳ 明朝","size":11.5},"alignment":"right"})");
  EXPECT_EQ(items[1]["visible"], false);

  std::ostringstream empty;
  JsonDumpSink empty_sink(empty);
  empty_sink.Begin({"rptNone", ""});
  empty_sink.End();
  EXPECT_TRUE(nlohmann::json::parse(empty.str())["pages"].empty()) << "an empty run is still a document";
}

// A sink that counts and forgets, as a printer stream does.
class CountingSink : public PageSink {
 public:
  void Begin(const DocumentInfo&) override {}
  void AddPage(const Page& page) override {
    for (const auto& item : page.items)
      if (item.name == "fldPages") counts.push_back(item.text);
  }
  void End() override {}
  std::vector<std::string> counts;  // one a page
};

TEST(PageCount, ALongRunKnowsItsTotalOnTheFirstPage) {
  LoggingReport report(R"({"report": "rptLong", "sections": [
    {"name": "Detail", "type": "Detail", "height": 500, "new_page": "after", "controls": [
      {"kind": "TextField", "name": "fldPages", "summary": "page_count", "output_format": "#,##0"}]}]})");
  std::vector<std::vector<db::Value>> rows(2500, std::vector<db::Value>{db::Value(1)});
  report.SetRows({"One"}, rows);
  CountingSink sink;
  ASSERT_TRUE(report.Run(sink).ok);
  ASSERT_EQ(sink.counts.size(), 2500u);
  EXPECT_EQ(sink.counts.front() + " " + sink.counts.back(), "2,500 2,500");
}

entry::Context MakeContext(std::int32_t report_no, const std::string& name) {
  entry::Context context(nullptr, settings::StorePaths{}, std::filesystem::temp_directory_path());
  context.current.report_no = report_no;
  context.current.report_name = name;
  return context;
}

// Zero in the definition keeps the designer's paper (13) and orientation (2); margins are tenths of
// a millimetre, a bottom of one to ten meaning one centimetre.
TEST(ReportSettings, ApplyOnlyWhatTheDefinitionSets) {
  const std::tuple<std::int16_t, std::int16_t, std::int32_t, std::string> cases[] = {
      {0, 0, 0, "13 2 595,618,0,0"}, {9, 1, 1, "9 1 595,618,0,567"}, {9, 0, 10, "9 2 595,618,0,567"}, {0, 1, 11, "13 1 595,618,0,62"}};
  for (const auto& [paper_size, orientation, bottom, expected] : cases) {
    LoggingReport report(R"({"report": "rptX", "printer": {"paper_size": 13, "orientation": 2}, "sections": [{"name": "Detail", "type": "Detail"}]})");
    entry::ReportDefinition definition;
    definition.device_name = "LBP-1";
    definition.paper_size = paper_size;
    definition.orientation = orientation;
    definition.margin_left = 105;
    definition.margin_top = 109;
    definition.margin_bottom = bottom;
    ApplyReportSettings(report, definition);
    EXPECT_EQ(report.Printer.DeviceName, "LBP-1");
    const auto& m = report.PageSettings;
    EXPECT_EQ(std::to_string(report.Printer.PaperSize) + " " + std::to_string(report.Printer.Orientation) + " " +
                  std::to_string(m.Left) + "," + std::to_string(m.Top) + "," + std::to_string(m.Right) + "," + std::to_string(m.Bottom),
              expected);
  }
}

TEST(DisplayReport, ByNumberThroughTheRegistry) {
  ReportRegistry registry;
  registry.Register("rptPickingSyuDate", [](entry::Context&) {
    return std::make_unique<LoggingReport>(R"({"report": "rptPickingSyuDate", "sections": [{"name": "Detail", "type": "Detail"}]})");
  });
  const std::tuple<std::int32_t, bool, std::string, std::string> cases[] = {
      {54, true, "", "印刷プレビュー  [ピッキング]"},
      {55, false, "帳票が登録されていません。", "印刷プレビュー"},  // its object is not registered here
      {9, false, "", ""},                                          // a mail text: neither report nor message
  };
  for (const auto& [number, shown, message, caption] : cases) {
    SCOPED_TRACE(number);
    auto context = MakeContext(number, "ピッキング");
    PageCollection pages;
    const DisplayResult result = S_DisplayReport(context, registry, "印刷プレビュー", pages);
    EXPECT_EQ(result.shown, shown);
    EXPECT_EQ(result.message, message);
    EXPECT_EQ(result.message_style, message.empty() ? 0 : 48);
    if (!caption.empty()) {
      EXPECT_EQ(result.caption, caption);
    }
    EXPECT_EQ(pages.Ended(), shown);
  }
}

}  // namespace
}  // namespace lupin::engine::testing
