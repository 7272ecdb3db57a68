// Where sections land: flowing lists with page breaks and "page N of M",
// label sheets in columns with a start place, groups breaking on a field, and growing controls.
#include <gtest/gtest.h>

#include "run_fixture.h"

namespace lupin::engine::testing {
namespace {

std::vector<std::vector<db::Value>> Numbered(int count, const std::string& prefix = "") {
  std::vector<std::vector<db::Value>> rows;
  for (int i = 1; i <= count; ++i) rows.push_back({prefix.empty() ? db::Value(i) : db::Value(prefix + std::to_string(i))});
  return rows;
}

// A4 portrait with 1000-twip margins: the body between header and footer is 16838 - 2000 - 1000
// = 13838 twips, so thirteen 1000-twip details fit on a page.
TEST(FlowingList, BreaksWhenTheNextDetailDoesNotFitAndNumbersPagesOfTheTotal) {
  const std::pair<int, std::vector<int>> cases[] = {{0, {0}}, {14, {13, 1}}, {30, {13, 13, 4}}};
  for (const auto& [records, per_page] : cases) {
    SCOPED_TRACE(records);
    LoggingReport report(R"({"report": "rptFlow", "margins": {"left": 1000, "right": 1000, "top": 1000, "bottom": 1000},
      "sections": [{"name": "PageHeader", "type": "PageHeader", "height": 500},
        {"name": "Detail", "type": "Detail", "height": 1000, "controls": [{"kind": "TextField", "name": "fldNo", "data_field": "No"}]},
        {"name": "PageFooter", "type": "PageFooter", "height": 500, "controls": [
          {"kind": "TextField", "name": "fldPage", "summary": "page_number"},
          {"kind": "TextField", "name": "fldPages", "summary": "page_count", "output_format": "#,##0", "left": 700}]}]})");
    report.SetRows({"No"}, Numbered(records));
    PageCollection pages;
    const RunResult result = report.Run(pages);
    ASSERT_TRUE(result.ok) << result.fault.description;
    ASSERT_EQ(pages.Pages().size(), per_page.size());
    EXPECT_EQ(result.pages, static_cast<int>(per_page.size()));
    int next = 1;
    for (std::size_t p = 0; p < per_page.size(); ++p) {
      const Page& page = pages.Pages()[p];
      EXPECT_EQ(page.height, 16838);
      const auto details = ItemsNamed(page, "fldNo");
      ASSERT_EQ(details.size(), static_cast<std::size_t>(per_page[p])) << "page " << p + 1;
      for (std::size_t d = 0; d < details.size(); ++d) {
        EXPECT_EQ(details[d]->text, std::to_string(next++));
        EXPECT_EQ(details[d]->top, 1500 + static_cast<int>(d) * 1000);
      }
      EXPECT_EQ(ItemsNamed(page, "fldPage").at(0)->text + "/" + ItemsNamed(page, "fldPages").at(0)->text,
                std::to_string(p + 1) + "/" + std::to_string(per_page.size()));
      EXPECT_EQ(ItemsNamed(page, "fldPage").at(0)->top, 16838 - 1000 - 500) << "the footer sits on the bottom margin";
    }
  }
}

// Two columns of 5000 twips and six rows of 2600 twips in a body of 16000: twelve labels a sheet.
TEST(LabelSheet, SkippedPlacesStayBlankAndRecordsFillTheRest) {
  struct Case {
    std::string direction;
    int start;  // first place to print on, from 1
    int records;
    std::size_t sheets;
  };
  const Case cases[] = {{"across_down", 1, 13, 2}, {"across_down", 5, 8, 1}, {"down_across", 4, 10, 2}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.direction + " from " + std::to_string(c.start));
    LoggingReport report(R"({"report": "rptLabels", "margins": {"left": 953, "right": 953, "top": 500, "bottom": 338},
      "print_width": 10000, "sections": [{"name": "Detail", "type": "Detail", "height": 2600, "columns": 2,
      "column_direction": ")" + c.direction + R"(", "controls": [{"kind": "Label", "name": "lblName", "left": 100, "top": 100}]}]})");
    report.SetRows({"Name"}, Numbered(c.records, "客"));
    int skipped = 0;
    report.on_format = [&](const std::string&) {
      auto* label = report.Detail().Controls().Item("lblName");
      label->Caption = skipped < c.start - 1 ? "" : report.Fields().Value("Name").Text();
      if (skipped < c.start - 1) {
        report.LayoutAction = LayoutAction::KeepRecord;
        ++skipped;
      }
    };
    PageCollection pages;
    ASSERT_TRUE(report.Run(pages).ok);
    ASSERT_EQ(pages.Pages().size(), c.sheets);
    const bool across = c.direction == "across_down";
    int place = 0;
    for (const Page& page : pages.Pages()) {
      for (const PageItem* label : ItemsNamed(page, "lblName")) {
        const int on_sheet = place % 12;
        const int column = across ? on_sheet % 2 : on_sheet / 6, row = across ? on_sheet / 2 : on_sheet % 6;
        EXPECT_EQ(label->left, 953 + column * 5000 + 100) << "place " << place;
        EXPECT_EQ(label->top, 500 + row * 2600 + 100) << "place " << place;
        const int record = place - c.start + 2;
        EXPECT_EQ(label->text, record >= 1 ? "客" + std::to_string(record) : "") << "place " << place;
        ++place;
      }
    }
    EXPECT_EQ(place, c.start - 1 + c.records);
  }
}

// Groups on a column and on a calculated field filled in FetchData; a and e print the shop at its
// header and footer, b and d the key, c the item.
const char* kGroupDesigner = R"({"report": "rptGroups", "fields": ["GroupKey"], "sections": [
  {"name": "GroupShopHeader", "type": "GroupHeader", "data_field": "Shop", "controls": [{"kind": "TextField", "name": "a", "data_field": "Shop"}]},
  {"name": "GroupIdHeader", "type": "GroupHeader", "data_field": "GroupKey", "controls": [{"kind": "TextField", "name": "b", "data_field": "GroupKey"}]},
  {"name": "Detail", "type": "Detail", "controls": [{"kind": "TextField", "name": "c", "data_field": "Item"}]},
  {"name": "GroupIdFooter", "type": "GroupFooter", "controls": [{"kind": "TextField", "name": "d", "data_field": "Item"}]},
  {"name": "GroupShopFooter", "type": "GroupFooter", "controls": [{"kind": "TextField", "name": "e", "data_field": "Shop"}]},
  {"name": "ReportFooter", "type": "ReportFooter"}]})";

TEST(Groups, HeadersAndFootersBreakOnTheirFieldAndFootersSeeTheRecordThatEndedTheGroup) {
  LoggingReport report(kGroupDesigner);
  std::vector<std::vector<db::Value>> rows;
  for (const auto& [shop, id, date, item] : std::vector<std::tuple<const char*, int, const char*, const char*>>{
           {"A", 1, "2024/01/05", "a1"}, {"A", 1, "2024/01/05", "a2"}, {"A", 1, "2024/01/06", "a3"},
           {"B", 1, "2024/01/06", "b1"}, {"B", 2, "2024/01/06", "b2"}})
    rows.push_back({db::Value(shop), db::Value(id), db::Value(date), db::Value(item)});
  report.SetRows({"Shop", "Id", "Date", "Item"}, rows);
  report.on_fetch = [&](bool& eof) {
    if (eof) return;
    const auto& rs = *report.DataControl1.Recordset;
    std::string date = rs["Date"].Text();
    date.erase(std::remove(date.begin(), date.end(), '/'), date.end());
    report.Fields().Set("GroupKey", db::Value(date + rs["Id"].Text()));
  };
  PageCollection pages;
  ASSERT_TRUE(report.Run(pages).ok);
  std::string printed;
  for (const auto& item : pages.Pages().at(0).items) printed += item.name + item.text + " ";
  EXPECT_EQ(printed, "aA b202401051 ca1 ca2 da2 b202401061 ca3 da3 eA aB b202401061 cb1 db1 b202401062 cb2 db2 eB ");
}

TEST(Groups, WithoutDataTheGroupSectionsPrintOnceUnlessHidden) {
  for (const bool hide : {false, true}) {
    LoggingReport report(kGroupDesigner);
    report.SetRows({"Shop", "Id", "Date", "Item"}, {});
    report.on_fetch = [&](bool& eof) {
      if (eof && hide) report.SectionByName("GroupIdHeader")->Visible = report.SectionByName("GroupIdFooter")->Visible = false;
    };
    PageCollection pages;
    ASSERT_TRUE(report.Run(pages).ok);
    ASSERT_EQ(pages.Pages().size(), 1u);
    std::string names;
    for (const auto& item : pages.Pages()[0].items) names += item.name;
    EXPECT_EQ(names, hide ? "ae" : "abde");
    EXPECT_NE(std::find(report.log.begin(), report.log.end(), "NoData"), report.log.end());
  }
}

// A 10-point font: lines 240 twips apart; the fallback gives a full-width character 200 twips.
TEST(CanGrow, TheControlAndItsSectionGrowToTheLinesOfTheText) {
  struct Case {
    const char* text;
    bool injected_measurer;
    std::int32_t control_height, section_height;
  };
  const Case cases[] = {{"東京都", false, 300, 400}, {"東京\r\n千代田\r\n一丁目\r\n一番", false, 960, 960},
                        {"東京都千代田区千代田一丁目", true, 480, 480}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    LoggingReport report(R"({"report": "rptGrow", "margins": {"left": 0, "right": 0, "top": 0, "bottom": 0},
      "sections": [{"name": "Detail", "type": "Detail", "height": 400, "controls": [
        {"kind": "Label", "name": "lblMemo", "width": 1000, "height": 300, "can_grow": true, "font": {"name": "ＭＳ 明朝", "size": 10}},
        {"kind": "Label", "name": "lblFixed", "left": 1000, "width": 1000, "height": 300}]}]})");
    FixedMeasurer measurer;
    if (c.injected_measurer) report.Measurer = &measurer;
    report.SetRows({"Memo"}, {{db::Value(c.text)}, {db::Value(c.text)}});
    report.on_format = [&](const std::string&) {
      for (const char* name : {"lblMemo", "lblFixed"}) report.Detail().Controls().Item(name)->Caption = c.text;
    };
    PageCollection pages;
    ASSERT_TRUE(report.Run(pages).ok);
    const auto memos = ItemsNamed(pages.Pages().at(0), "lblMemo");
    ASSERT_EQ(memos.size(), 2u);
    EXPECT_EQ(memos[0]->height, c.control_height);
    EXPECT_EQ(memos[1]->top - memos[0]->top, c.section_height);
    EXPECT_EQ(ItemsNamed(pages.Pages()[0], "lblFixed")[0]->height, 300) << "a control that cannot grow keeps its box";
  }
}

}  // namespace
}  // namespace lupin::engine::testing

namespace lupin::engine::testing {
namespace {

// The order list's shapes: footers named after their headers in an order the position rule would
// pair wrongly, a header hidden in BeforePrint, and sections as tall as their lowest visible control.
TEST(Groups, FootersPairByNameHiddenSectionsTakeNoRoomAndAddedControlsGrowTheirSection) {
  LoggingReport report(R"({"report": "rptPair", "margins": {"left": 0, "right": 0, "top": 0, "bottom": 0},
    "sections": [
      {"name": "GroupOuter", "type": "GroupHeader", "data_field": "Shop", "height": 100, "controls": [{"kind": "Label", "name": "o"}]},
      {"name": "GroupInner", "type": "GroupHeader", "data_field": "Id", "height": 100, "controls": [{"kind": "Label", "name": "i"}]},
      {"name": "Detail", "type": "Detail", "height": 100, "controls": [{"kind": "Label", "name": "d"}]},
      {"name": "OuterFooter", "type": "GroupFooter", "header": "GroupOuter", "height": 100, "controls": [{"kind": "Label", "name": "of"}]},
      {"name": "InnerFooter", "type": "GroupFooter", "header": "GroupInner", "height": 100, "controls": [{"kind": "Label", "name": "if"}]},
      {"name": "ReportFooter", "type": "ReportFooter", "height": 200, "controls": [{"kind": "Label", "name": "rf"}]}]})");
  report.SetRows({"Shop", "Id"}, {{db::Value("A"), db::Value(1)}, {db::Value("A"), db::Value(2)}});
  report.SectionByName("GroupInner")->BeforePrint = [&] {
    report.SectionByName("GroupInner")->Visible = report.Fields().Value("Id").Long() != 2;
  };
  const auto add_label = [&](const char* section, const std::string& name, std::int32_t top) -> Control& {
    Control& added = report.SectionByName(section)->Controls().Add(ControlKind::Label, name);
    added.Top = top;
    added.Height = 340;
    return added;
  };
  report.on_format = [&](const std::string& section) {
    if (section == "Detail" && report.Fields().Value("Id").Long() == 1) add_label("Detail", "grow", 300);
    if (section == "Detail" && report.Fields().Value("Id").Long() == 2)
      report.Detail().Controls().Item("grow")->Visible = false;
    if (section == "ReportFooter")
      for (int i = 0; i < 3; ++i) add_label("ReportFooter", std::to_string(i) + "lbl", i * 300 + 300);
  };
  PageCollection pages;
  ASSERT_TRUE(report.Run(pages).ok);
  std::string placed;
  for (const auto& item : pages.Pages().at(0).items)
    if (item.visible) placed += item.name + "@" + std::to_string(item.top) + " ";
  EXPECT_EQ(placed, "o@0 i@100 d@200 grow@500 if@840 d@940 if@1040 of@1140 rf@1240 0lbl@1540 1lbl@1840 2lbl@2140 ");
}

}  // namespace
}  // namespace lupin::engine::testing
