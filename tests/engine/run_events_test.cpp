// The order in which a run fires its events, and how faults end a run.
#include <gtest/gtest.h>

#include <stdexcept>

#include "run_fixture.h"

namespace lupin::engine::testing {
namespace {

const char* kListDesigner = R"({"report": "rptTest", "margins": {"left": 1000, "right": 1000, "top": 1000, "bottom": 1000},
  "sections": [{"name": "PageHeader", "type": "PageHeader", "height": 500},
    {"name": "Detail", "type": "Detail", "height": 1000, "controls": [{"kind": "TextField", "name": "fldName", "data_field": "Name"}]},
    {"name": "PageFooter", "type": "PageFooter", "height": 500}]})";

std::vector<std::vector<db::Value>> NamedRows(int count) {
  std::vector<std::vector<db::Value>> rows;
  for (int i = 1; i <= count; ++i) rows.push_back({db::Value("名前" + std::to_string(i))});
  return rows;
}

// Detail_Format also logs its bound field, which must already carry the record.
TEST(RunEvents, FireInTheFixedOrder) {
  const std::pair<int, std::vector<std::string>> cases[] = {
      {0, {"ReportStart", "DataInitialize", "FetchData(eof)", "NoData", "PageHeader_Format", "PageFooter_Format", "ReportEnd"}},
      {2, {"ReportStart", "DataInitialize", "FetchData", "PageHeader_Format", "Detail_Format", "名前1", "Detail_AfterPrint",
           "FetchData", "Detail_Format", "名前2", "Detail_AfterPrint", "FetchData(eof)", "PageFooter_Format", "ReportEnd"}}};
  for (const auto& [records, expected] : cases) {
    LoggingReport report(kListDesigner);
    report.SetRows({"Name"}, NamedRows(records));
    report.on_format = [&](const std::string& section) {
      if (section == "Detail") report.log.push_back(report.Detail().Controls().Item("fldName")->Text);
    };
    PageCollection pages;
    const RunResult result = report.Run(pages);
    EXPECT_TRUE(result.ok) << result.fault.description;
    EXPECT_EQ(report.log, expected);
  }
}

TEST(RunFaults, AHandlerFaultGoesToTheErrorEventAndEndsTheRun) {
  const std::tuple<std::function<void()>, int, std::string> cases[] = {
      {[] { throw std::runtime_error("データが壊れています"); }, kFaultGeneral, "データが壊れています"},
      {[] { throw ReportFault(3021, "レコードがありません"); }, 3021, "レコードがありません"},
  };
  for (const auto& [raise, number, description] : cases) {
    LoggingReport report(kListDesigner);
    report.SetRows({"Name"}, NamedRows(3));
    int formats = 0;
    report.on_format = [&](const std::string& section) {
      if (section == "Detail" && ++formats == 2) raise();
    };
    PageCollection pages;
    const RunResult result = report.Run(pages);
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.fault.number, number);
    EXPECT_EQ(result.fault.description, description);
    EXPECT_EQ(report.log.back(), "Error " + std::to_string(number) + " " + description);
    EXPECT_EQ(std::count(report.log.begin(), report.log.end(), "ReportEnd"), 0);
    EXPECT_TRUE(pages.Ended()) << "the sink is closed so a partial document stays readable";
  }
}

TEST(RunFaults, ADetailThatNeverLetsGoOfItsRecordIsStopped) {
  LoggingReport report(kListDesigner);
  report.SetRows({"Name"}, NamedRows(1));
  report.on_format = [&](const std::string&) { report.LayoutAction = LayoutAction::KeepRecord; };
  PageCollection pages;
  EXPECT_EQ(report.Run(pages).fault.number, kFaultLayoutLoop);
}

TEST(RunData, ASectionSwitchedOffInFetchDataTakesNoPlace) {
  LoggingReport report(kListDesigner);
  report.SetRows({"Name"}, NamedRows(3));
  report.on_fetch = [&](bool& eof) {
    if (!eof && report.Fields().Value("Name").Text() == "名前2") report.Detail().PrintSection = false;
  };
  PageCollection pages;
  ASSERT_TRUE(report.Run(pages).ok);
  const auto names = ItemsNamed(pages.Pages().at(0), "fldName");
  ASSERT_EQ(names.size(), 2u);
  EXPECT_EQ(names[1]->text, "名前3");
  EXPECT_EQ(names[1]->top - names[0]->top, 1000) << "the skipped record leaves no gap";
  EXPECT_EQ(std::count(report.log.begin(), report.log.end(), "Detail_Format"), 2);
}

TEST(RunData, ASecondRunStartsFromTheDesignedLayout) {
  LoggingReport report(kListDesigner);
  report.SetRows({"Name"}, NamedRows(1));
  report.on_format = [&](const std::string& section) {
    if (section != "Detail") return;
    report.Detail().Controls().Item("fldName")->Left = 4321;
    report.Detail().Controls().Add(ControlKind::Label, "lblAdded").Caption = "追加";
  };
  PageCollection first;
  ASSERT_TRUE(report.Run(first).ok);
  EXPECT_EQ(ItemsNamed(first.Pages()[0], "fldName")[0]->left, 1000 + 4321);
  report.on_format = nullptr;
  PageCollection second;
  ASSERT_TRUE(report.Run(second).ok);
  EXPECT_EQ(ItemsNamed(second.Pages()[0], "fldName")[0]->left, 1000);
  EXPECT_TRUE(ItemsNamed(second.Pages()[0], "lblAdded").empty());
  EXPECT_EQ(report.Detail().Controls().Count(), 1u);
}

}  // namespace
}  // namespace lupin::engine::testing
