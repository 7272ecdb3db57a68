// Designer files: what the loader refuses, with an error that names the file and the property,
// and the designers compiled into the program.
#include <gtest/gtest.h>

#include "engine/designer.h"

namespace lupin::engine {
namespace {

#define DETAIL_WITH(control) \
  R"({"report": "rptBad", "sections": [{"name": "Detail", "type": "Detail", "controls": [)" control "]}]}"

TEST(DesignerErrors, NameTheFileAndWhatIsWrong) {
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {R"({"report": "rptBad", "colour": 1, "sections": []})", {"\"colour\""}},
      {DETAIL_WITH(R"({"kind": "TextField", "name": "fldA", "caption": "x"})"), {"fldA", "\"caption\""}},
      {DETAIL_WITH(R"({"kind": "Label", "name": "lblA", "left": "10"})"), {"lblA", "\"left\""}},
      {DETAIL_WITH(R"({"kind": "Label", "name": "lblA", "font": {"name": "x", "weight": 700}})"), {"lblA", "\"weight\""}},
      {R"({"report": "rptBad", "sections": [{"name": "GH", "type": "GroupHeader"}, {"name": "Detail", "type": "Detail"}]})",
       {"GH", "\"data_field\""}},
      {R"({"report": "rptBad", "sections": [{"name": "PH", "type": "PageHeader"}]})", {"Detail"}},
      {R"({"report": )", {"JSON"}},
      {DETAIL_WITH(R"({"kind": "Label", "name": "lblA{n}", "count": 0})"), {"lblA{n}", "\"count\""}},
      {R"({"extends": "rptYamatoNew", "report": "rptBad", "sections": [{"name": "Detail", "remove": ["lblNone"]}]})",
       {"lblNone"}},
      {DETAIL_WITH(R"({"kind": "Label", "name": "lblRun_", "count": 3, "lefts": [1, 2]})"), {"lblRun_", "\"lefts\""}},
  };
  for (const auto& [json, parts] : cases) {
    try {
      ParseDesigner("rptBad.json", json);
      ADD_FAILURE() << "accepted " << json;
    } catch (const DesignerError& error) {
      const std::string message = error.what();
      EXPECT_EQ(message.rfind("rptBad.json: ", 0), 0u) << message;
      for (const auto& part : parts) EXPECT_NE(message.find(part), std::string::npos) << message;
    }
  }
}

// What the other tests do not read back: a user-defined paper, shape kinds and case-blind names.
TEST(DesignerLoad, ReadsPaperShapesAndNames) {
  const ReportLayout layout = ParseDesigner("rptOk.json", R"({"report": "rptOk",
    "printer": {"paper_size": 256, "orientation": 1, "paper_width": 11397, "paper_height": 6481},
    "sections": [{"name": "Detail", "type": "Detail", "controls": [
      {"kind": "Label", "name": "lblTEL", "alignment": "center"},
      {"kind": "Shape", "name": "shpDelivery1", "shape": "ellipse", "visible": false}]}]})");
  EXPECT_EQ(layout.printer.PaperWidth, 11397);
  EXPECT_EQ(layout.printer.PaperHeight, 6481);
  const Section& detail = layout.sections.at(0);
  ASSERT_NE(detail.Controls().Item("LBLtel"), nullptr);
  EXPECT_EQ(detail.Controls().Item("LBLtel")->alignment, Alignment::Center);
  EXPECT_EQ(detail.Controls().Item("shpDelivery1")->Shape, ShapeKind::Ellipse);
  EXPECT_FALSE(detail.Controls().Item("shpDelivery1")->Visible);
}

TEST(DesignerLoad, NumberedRunsAreDeclaredOnce) {
  const ReportLayout layout = ParseDesigner("rptOk.json", R"({"report": "rptOk", "sections": [
    {"name": "Detail", "type": "Detail", "controls": [
      {"kind": "TextField", "name": "fldITEM_ID{n}", "data_field": "商品ID{n}", "left": 40, "top": 2760,
       "count": 3, "first": 6, "step": {"top": 345}}]}]})");
  const Controls& controls = layout.sections.at(0).Controls();
  ASSERT_EQ(controls.Count(), 3u);
  EXPECT_EQ(controls[2].Name, "fldITEM_ID8");
  EXPECT_EQ(controls[2].DataField, "商品ID8");
  EXPECT_EQ(controls[2].Top, 2760 + 2 * 345);
  EXPECT_EQ(controls[2].Left, 40);
}

// A variant lists what differs from its base; a numbered run stands for its controls.
TEST(DesignerLoad, VariantsAndNumberedRuns) {
  const ReportLayout layout = ParseDesigner("rptVariant.json", R"({"extends": "rptYamatoNew", "report": "rptVariant",
    "printer": {"orientation": 2},
    "sections": [{"name": "Detail", "height": 5000, "remove": ["lblMemo1"], "controls": [
      {"name": "lblTEL", "width": 100, "font": {"size": 9}},
      {"kind": "Label", "name": "lblRun_", "count": 3, "first": 0, "left": 10, "step": {"left": 5}, "top": 7}]}]})");
  EXPECT_EQ(layout.name, "rptVariant");
  EXPECT_EQ(layout.title, "ﾔﾏﾄ宅配伝票");
  EXPECT_EQ(layout.printer.Orientation, 2);
  EXPECT_EQ(layout.printer.PaperSize, 256);
  const Section& detail = layout.sections.at(0);
  EXPECT_EQ(detail.Height, 5000);
  EXPECT_EQ(detail.Controls().Item("lblMemo1"), nullptr);
  const Control& tel = *detail.Controls().Item("lblTEL");
  EXPECT_EQ(tel.Width, 100);
  EXPECT_EQ(tel.Left, 360) << "what the variant does not name stays";
  EXPECT_EQ(tel.Font.size, 9);
  EXPECT_EQ(tel.Font.name, "ＭＳ Ｐ明朝");
  // The base's own runs: positions from a list.
  EXPECT_EQ(detail.Controls().Item("lblYubin_3")->Left, 1065);
  EXPECT_EQ(detail.Controls().Item("shpDelivery6")->Top, 2400);
  for (int i = 0; i < 3; ++i) {
    const Control* run = detail.Controls().Item("lblRun_" + std::to_string(i));
    ASSERT_NE(run, nullptr) << i;
    EXPECT_EQ(run->Left, 10 + 5 * i);
    EXPECT_EQ(run->Top, 7);
  }
  EXPECT_EQ(detail.Controls().Item("lblRun_3"), nullptr);
}

TEST(DesignerLoad, EveryCompiledInDesignerLoads) {
  const auto names = DesignerNames();
  EXPECT_FALSE(names.empty());
  for (const auto& name : names) EXPECT_EQ(LoadDesigner(name).name, name) << "a designer names its own report object";
  EXPECT_THROW(LoadDesigner("rptNowhere"), DesignerError);
}

}  // namespace
}  // namespace lupin::engine
