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

TEST(DesignerLoad, ReadsSectionsControlsAndPageSetUp) {
  const ReportLayout layout = ParseDesigner("rptOk.json", R"({"report": "rptOk",
    "printer": {"paper_size": 256, "orientation": 1, "paper_width": 11397, "paper_height": 6481},
    "margins": {"left": 10, "right": 20, "top": 30, "bottom": 40}, "print_width": 11000, "fields": ["GroupKey"],
    "sections": [{"name": "Detail", "type": "Detail", "height": 5490, "new_page": "after", "controls": [
      {"kind": "Label", "name": "lblTEL", "font": {"name": "ＭＳ Ｐ明朝", "size": 14.5}, "caption": "電話", "alignment": "center"},
      {"kind": "Shape", "name": "shpDelivery1", "shape": "ellipse", "visible": false}]}]})");
  EXPECT_EQ(layout.printer.PaperHeight, 6481);
  EXPECT_EQ(layout.margins.Bottom, 40);
  EXPECT_EQ(layout.print_width, 11000);
  EXPECT_EQ(layout.fields, std::vector<std::string>{"GroupKey"});
  const Section& detail = layout.sections.at(0);
  EXPECT_EQ(detail.PageBreak, NewPage::After);
  const Control* tel = detail.Controls().Item("LBLtel");
  ASSERT_NE(tel, nullptr) << "names are found without regard to case";
  EXPECT_EQ(tel->Font.size, 14.5);
  EXPECT_EQ(tel->alignment, Alignment::Center);
  EXPECT_EQ(detail.Controls().Item("shpDelivery1")->Shape, ShapeKind::Ellipse);
  EXPECT_FALSE(detail.Controls().Item("shpDelivery1")->Visible);
}

TEST(DesignerLoad, EveryCompiledInDesignerLoads) {
  const auto names = DesignerNames();
  EXPECT_FALSE(names.empty());
  for (const auto& name : names) EXPECT_EQ(LoadDesigner(name).name, name) << "a designer names its own report object";
  EXPECT_THROW(LoadDesigner("rptNowhere"), DesignerError);
}

}  // namespace
}  // namespace lupin::engine
