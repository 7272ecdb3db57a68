// Where sections land: flowing lists with page breaks and "page N of M", one form per page,
// label sheets in columns with a start place, and groups breaking on a field.
#include <gtest/gtest.h>

#include "run_fixture.h"

namespace lupin::engine::testing {
namespace {

// A4 portrait with 1000-twip margins: the body between header and footer is 16838 - 2000 - 1000
// = 13838 twips, so thirteen 1000-twip details fit on a page.
const char* kFlowDesigner = R"({
  "report": "rptFlow",
  "margins": {"left": 1000, "right": 1000, "top": 1000, "bottom": 1000},
  "sections": [
    {"name": "PageHeader", "type": "PageHeader", "height": 500},
    {"name": "Detail", "type": "Detail", "height": 1000,
     "controls": [{"kind": "TextField", "name": "fldNo", "data_field": "No", "width": 900, "height": 300}]},
    {"name": "PageFooter", "type": "PageFooter", "height": 500,
     "controls": [{"kind": "TextField", "name": "fldPage", "summary": "page_number", "width": 600, "height": 300},
                  {"kind": "TextField", "name": "fldPages", "summary": "page_count", "output_format": "#,##0",
                   "left": 700, "width": 600, "height": 300}]}
  ]})";

std::vector<std::vector<db::Value>> Numbered(int count) {
  std::vector<std::vector<db::Value>> rows;
  for (int i = 1; i <= count; ++i) rows.push_back({db::Value(i)});
  return rows;
}

struct FlowCase {
  int records;
  std::vector<int> details_per_page;
};

class FlowingList : public ::testing::TestWithParam<FlowCase> {};

TEST_P(FlowingList, BreaksWhenTheNextDetailDoesNotFitAndNumbersPagesOfTheTotal) {
  LoggingReport report(kFlowDesigner);
  report.SetRows({"No"}, Numbered(GetParam().records));
  PageCollection pages;
  const RunResult result = report.Run(pages);
  ASSERT_TRUE(result.ok) << result.fault.description;
  const auto& expected = GetParam().details_per_page;
  ASSERT_EQ(pages.Pages().size(), expected.size());
  EXPECT_EQ(result.pages, static_cast<int>(expected.size()));
  int next = 1;
  for (std::size_t p = 0; p < expected.size(); ++p) {
    const Page& page = pages.Pages()[p];
    EXPECT_EQ(page.number, static_cast<int>(p + 1));
    EXPECT_EQ(page.width, 11906);
    EXPECT_EQ(page.height, 16838);
    const auto details = ItemsNamed(page, "fldNo");
    ASSERT_EQ(details.size(), static_cast<std::size_t>(expected[p])) << "page " << p + 1;
    for (std::size_t d = 0; d < details.size(); ++d) {
      EXPECT_EQ(details[d]->text, std::to_string(next++));
      EXPECT_EQ(details[d]->top, 1500 + static_cast<int>(d) * 1000);
    }
    EXPECT_EQ(ItemsNamed(page, "fldPage").at(0)->text, std::to_string(p + 1));
    EXPECT_EQ(ItemsNamed(page, "fldPages").at(0)->text, std::to_string(expected.size()));
    EXPECT_EQ(ItemsNamed(page, "fldPage").at(0)->top, 16838 - 1000 - 500) << "the footer sits on the bottom margin";
  }
}

INSTANTIATE_TEST_SUITE_P(Records, FlowingList,
                         ::testing::Values(FlowCase{0, {0}}, FlowCase{1, {1}}, FlowCase{13, {13}},
                                           FlowCase{14, {13, 1}}, FlowCase{30, {13, 13, 4}}));

TEST(OneFormPerPage, EachRecordStartsAPageAtTheTopMargin) {
  LoggingReport report(R"({"report": "rptForm", "margins": {"left": 300, "right": 300, "top": 200, "bottom": 200},
    "sections": [{"name": "Detail", "type": "Detail", "height": 5000, "new_page": "after",
      "controls": [{"kind": "TextField", "name": "fldNo", "data_field": "No", "left": 100, "top": 50}]}]})");
  for (const int records : {1, 3, 12}) {
    report.SetRows({"No"}, Numbered(records));
    PageCollection pages;
    ASSERT_TRUE(report.Run(pages).ok);
    ASSERT_EQ(pages.Pages().size(), static_cast<std::size_t>(records));
    for (int p = 0; p < records; ++p) {
      const auto items = ItemsNamed(pages.Pages()[static_cast<std::size_t>(p)], "fldNo");
      ASSERT_EQ(items.size(), 1u);
      EXPECT_EQ(items[0]->text, std::to_string(p + 1));
      EXPECT_EQ(items[0]->top, 250);
      EXPECT_EQ(items[0]->left, 400);
    }
  }
}

// Label sheet: two columns of 5000 twips (10000 wide less 0 spacing) and six rows of 2600 twips
// in a body of 16000: twelve labels a sheet.
const char* kLabelDesigner = R"({
  "report": "rptLabels",
  "margins": {"left": 953, "right": 953, "top": 500, "bottom": 338},
  "print_width": 10000,
  "sections": [{"name": "Detail", "type": "Detail", "height": 2600, "columns": 2, "column_direction": "%DIR%",
    "controls": [{"kind": "Label", "name": "lblName", "left": 100, "top": 100, "width": 4000, "height": 400}]}]})";

struct LabelCase {
  const char* direction;
  int start;    // first place to print on, from 1
  int records;
  std::size_t sheets;
};

class LabelSheet : public ::testing::TestWithParam<LabelCase> {};

TEST_P(LabelSheet, SkippedPlacesStayBlankAndRecordsFillTheRest) {
  std::string designer = kLabelDesigner;
  designer.replace(designer.find("%DIR%"), 5, GetParam().direction);
  LoggingReport report(designer);
  report.SetRows({"Name"}, [&] {
    std::vector<std::vector<db::Value>> rows;
    for (int i = 1; i <= GetParam().records; ++i) rows.push_back({db::Value("客" + std::to_string(i))});
    return rows;
  }());
  int skipped = 0;
  report.on_format = [&](const std::string&) {
    auto* label = report.Detail().Controls().Item("lblName");
    if (skipped < GetParam().start - 1) {
      report.LayoutAction = LayoutAction::KeepRecord;
      ++skipped;
      label->Caption = "";
    } else {
      label->Caption = report.Fields().Value("Name").Text();
    }
  };
  PageCollection pages;
  ASSERT_TRUE(report.Run(pages).ok);
  ASSERT_EQ(pages.Pages().size(), GetParam().sheets);

  const bool across = std::string(GetParam().direction) == "across_down";
  int place = 0;
  for (const Page& page : pages.Pages()) {
    const auto labels = ItemsNamed(page, "lblName");
    for (std::size_t i = 0; i < labels.size(); ++i, ++place) {
      const int on_sheet = place % 12;
      const int column = across ? on_sheet % 2 : on_sheet / 6;
      const int row = across ? on_sheet / 2 : on_sheet % 6;
      EXPECT_EQ(labels[i]->left, 953 + column * 5000 + 100) << "place " << place;
      EXPECT_EQ(labels[i]->top, 500 + row * 2600 + 100) << "place " << place;
      const int record = place - (GetParam().start - 1) + 1;
      EXPECT_EQ(labels[i]->text, record >= 1 ? "客" + std::to_string(record) : "") << "place " << place;
    }
  }
  EXPECT_EQ(place, GetParam().start - 1 + GetParam().records);
}

INSTANTIATE_TEST_SUITE_P(
    Sheets, LabelSheet,
    ::testing::Values(LabelCase{"across_down", 1, 12, 1}, LabelCase{"across_down", 1, 13, 2},
                      LabelCase{"across_down", 5, 10, 2}, LabelCase{"across_down", 5, 8, 1},
                      LabelCase{"down_across", 1, 12, 1}, LabelCase{"down_across", 4, 10, 2}));

// Groups on a column and on a calculated field filled in FetchData.
const char* kGroupDesigner = R"({
  "report": "rptGroups", "fields": ["GroupKey"],
  "sections": [
    {"name": "GroupShopHeader", "type": "GroupHeader", "data_field": "Shop", "height": 300,
     "controls": [{"kind": "TextField", "name": "fldShop", "data_field": "Shop"}]},
    {"name": "GroupIdHeader", "type": "GroupHeader", "data_field": "GroupKey", "height": 300,
     "controls": [{"kind": "TextField", "name": "fldKey", "data_field": "GroupKey"}]},
    {"name": "Detail", "type": "Detail", "height": 300,
     "controls": [{"kind": "TextField", "name": "fldItem", "data_field": "Item"}]},
    {"name": "GroupIdFooter", "type": "GroupFooter", "height": 300,
     "controls": [{"kind": "TextField", "name": "fldLast", "data_field": "Item"}]},
    {"name": "GroupShopFooter", "type": "GroupFooter", "height": 300,
     "controls": [{"kind": "TextField", "name": "fldShopEnd", "data_field": "Shop"}]},
    {"name": "ReportFooter", "type": "ReportFooter", "height": 300}
  ]})";

TEST(Groups, HeadersAndFootersBreakOnTheirFieldAndFootersSeeTheRecordThatEndedTheGroup) {
  LoggingReport report(kGroupDesigner);
  report.SetRows({"Shop", "Id", "Date", "Item"}, {
                                                    {db::Value("A"), db::Value(1), db::Value("2024/01/05"), db::Value("a1")},
                                                    {db::Value("A"), db::Value(1), db::Value("2024/01/05"), db::Value("a2")},
                                                    {db::Value("A"), db::Value(1), db::Value("2024/01/06"), db::Value("a3")},
                                                    {db::Value("B"), db::Value(1), db::Value("2024/01/06"), db::Value("b1")},
                                                    {db::Value("B"), db::Value(2), db::Value("2024/01/06"), db::Value("b2")},
                                                });
  report.on_fetch = [&](bool& eof) {
    if (eof) return;
    const auto& rs = *report.DataControl1.Recordset;
    std::string date = rs["Date"].Text();
    date.erase(std::remove(date.begin(), date.end(), '/'), date.end());
    report.Fields().Set("GroupKey", db::Value(date + rs["Id"].Text()));
  };
  PageCollection pages;
  ASSERT_TRUE(report.Run(pages).ok);
  std::vector<std::string> printed;
  for (const auto& item : pages.Pages().at(0).items) printed.push_back(item.section + ":" + item.text);
  const std::vector<std::string> expected = {
      "GroupShopHeader:A", "GroupIdHeader:202401051", "Detail:a1", "Detail:a2", "GroupIdFooter:a2",
      "GroupIdHeader:202401061", "Detail:a3", "GroupIdFooter:a3", "GroupShopFooter:A",
      "GroupShopHeader:B", "GroupIdHeader:202401061", "Detail:b1", "GroupIdFooter:b1",
      "GroupIdHeader:202401062", "Detail:b2", "GroupIdFooter:b2", "GroupShopFooter:B"};
  EXPECT_EQ(printed, expected);
}

TEST(Groups, WithoutDataTheGroupSectionsPrintOnceUnlessHidden) {
  for (const bool hide : {false, true}) {
    LoggingReport report(kGroupDesigner);
    report.SetRows({"Shop", "Id", "Date", "Item"}, {});
    report.on_fetch = [&](bool& eof) {
      if (eof && hide) {
        report.SectionByName("GroupIdHeader")->Visible = false;
        report.SectionByName("GroupIdFooter")->Visible = false;
      }
    };
    PageCollection pages;
    ASSERT_TRUE(report.Run(pages).ok);
    ASSERT_EQ(pages.Pages().size(), 1u);
    std::vector<std::string> sections;
    for (const auto& item : pages.Pages()[0].items) sections.push_back(item.section);
    const std::vector<std::string> shown = {"GroupShopHeader", "GroupIdHeader", "GroupIdFooter", "GroupShopFooter"};
    const std::vector<std::string> hidden = {"GroupShopHeader", "GroupShopFooter"};
    EXPECT_EQ(sections, hide ? hidden : shown);
    EXPECT_NE(std::find(report.log.begin(), report.log.end(), "NoData"), report.log.end());
  }
}

}  // namespace
}  // namespace lupin::engine::testing

namespace lupin::engine::testing {
namespace {

// Every character 100 twips wide.
class FixedMeasurer : public TextMeasurer {
 public:
  double WidthTwips(std::string_view text, const FontSpec&) override {
    double width = 0;
    for (const char c : text)
      if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) width += 100;
    return width;
  }
};

struct GrowCase {
  const char* label;
  std::string text;
  bool injected_measurer;
  std::int32_t control_height, section_height;
};

class CanGrow : public ::testing::TestWithParam<GrowCase> {};

// A 10-point font: lines 240 twips apart; the fallback gives a full-width character 200 twips.
TEST_P(CanGrow, TheControlAndItsSectionGrowToTheLinesOfTheText) {
  LoggingReport report(R"({"report": "rptGrow", "margins": {"left": 0, "right": 0, "top": 0, "bottom": 0},
    "sections": [{"name": "Detail", "type": "Detail", "height": 400, "controls": [
      {"kind": "Label", "name": "lblMemo", "width": 1000, "height": 300, "can_grow": true, "font": {"name": "ＭＳ 明朝", "size": 10}},
      {"kind": "Label", "name": "lblFixed", "left": 1000, "width": 1000, "height": 300}]}]})");
  FixedMeasurer measurer;
  if (GetParam().injected_measurer) report.Measurer = &measurer;
  report.SetRows({"Memo"}, {{db::Value(GetParam().text)}, {db::Value(GetParam().text)}});
  report.on_format = [&](const std::string&) {
    report.Detail().Controls().Item("lblMemo")->Caption = report.Fields().Value("Memo").Text();
    report.Detail().Controls().Item("lblFixed")->Caption = report.Fields().Value("Memo").Text();
  };
  PageCollection pages;
  ASSERT_TRUE(report.Run(pages).ok);
  const auto memos = ItemsNamed(pages.Pages().at(0), "lblMemo");
  ASSERT_EQ(memos.size(), 2u);
  EXPECT_EQ(memos[0]->height, GetParam().control_height);
  EXPECT_EQ(memos[1]->top - memos[0]->top, GetParam().section_height);
  EXPECT_EQ(ItemsNamed(pages.Pages()[0], "lblFixed")[0]->height, 300) << "a control that cannot grow keeps its box";
}

INSTANTIATE_TEST_SUITE_P(
    Texts, CanGrow,
    ::testing::Values(GrowCase{"one_line", "東京都", false, 300, 400},
                      GrowCase{"three_lines", "東京都千代田区千代田一丁目", false, 720, 720},
                      GrowCase{"crlf_lines", "東京\r\n千代田\r\n一丁目\r\n一番", false, 960, 960},
                      GrowCase{"renderer_measure", "東京都千代田区千代田一丁目", true, 480, 480}),
    [](const auto& param_info) { return std::string(param_info.param.label); });

}  // namespace
}  // namespace lupin::engine::testing
