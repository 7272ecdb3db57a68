// Designer files: what the loader refuses, with an error that names the file and the property,
// and the designers compiled into the program.
#include <gtest/gtest.h>

#include "engine/designer.h"

namespace lupin::engine {
namespace {

struct BadDesigner {
  const char* label;
  const char* json;
  std::vector<std::string> message_parts;
};

class DesignerErrors : public ::testing::TestWithParam<BadDesigner> {};

TEST_P(DesignerErrors, NameTheFileAndWhatIsWrong) {
  try {
    ParseDesigner("rptBad.json", GetParam().json);
    FAIL() << "accepted";
  } catch (const DesignerError& error) {
    const std::string message = error.what();
    EXPECT_EQ(message.rfind("rptBad.json: ", 0), 0u) << message;
    for (const auto& part : GetParam().message_parts) EXPECT_NE(message.find(part), std::string::npos) << message;
  }
}

#define DETAIL_WITH(control) \
  R"({"report": "rptBad", "sections": [{"name": "Detail", "type": "Detail", "controls": [)" control "]}]}"

INSTANTIATE_TEST_SUITE_P(
    Loader, DesignerErrors,
    ::testing::Values(
        BadDesigner{"unknown_top", R"({"report": "rptBad", "colour": 1, "sections": []})", {"\"colour\""}},
        BadDesigner{"unknown_control_property", DETAIL_WITH(R"({"kind": "Label", "name": "lblA", "colour": 3})"),
                    {"lblA", "\"colour\""}},
        BadDesigner{"property_of_another_kind",
                    DETAIL_WITH(R"({"kind": "TextField", "name": "fldA", "caption": "x"})"), {"fldA", "\"caption\""}},
        BadDesigner{"unknown_kind", DETAIL_WITH(R"({"kind": "Picture", "name": "imgLogo"})"), {"imgLogo", "\"Picture\""}},
        BadDesigner{"text_for_a_number", DETAIL_WITH(R"({"kind": "Label", "name": "lblA", "left": "10"})"),
                    {"lblA", "\"left\""}},
        BadDesigner{"bad_alignment", DETAIL_WITH(R"({"kind": "Label", "name": "lblA", "alignment": "justify"})"),
                    {"lblA", "\"alignment\""}},
        BadDesigner{"unknown_font_property",
                    DETAIL_WITH(R"({"kind": "Label", "name": "lblA", "font": {"name": "x", "weight": 700}})"),
                    {"lblA", "\"weight\""}},
        BadDesigner{"unknown_section_type",
                    R"({"report": "rptBad", "sections": [{"name": "Detail", "type": "Body"}]})", {"\"Body\""}},
        BadDesigner{"group_without_field",
                    R"({"report": "rptBad", "sections": [{"name": "GH", "type": "GroupHeader"}, {"name": "Detail", "type": "Detail"}]})",
                    {"GH", "\"data_field\""}},
        BadDesigner{"no_detail", R"({"report": "rptBad", "sections": [{"name": "PH", "type": "PageHeader"}]})",
                    {"Detail"}},
        BadDesigner{"not_json", R"({"report": )", {"JSON"}}),
    [](const auto& param_info) { return std::string(param_info.param.label); });

TEST(DesignerLoad, ReadsSectionsControlsAndPageSetUp) {
  const ReportLayout layout = ParseDesigner("rptOk.json", R"({
    "report": "rptOk", "title": "見本",
    "printer": {"paper_size": 256, "orientation": 1, "paper_width": 11397, "paper_height": 6481},
    "margins": {"left": 10, "right": 20, "top": 30, "bottom": 40}, "print_width": 11000, "fields": ["GroupKey"],
    "sections": [{"name": "Detail", "type": "Detail", "height": 5490, "new_page": "after", "controls": [
      {"kind": "Label", "name": "lblTEL", "left": 360, "top": 675, "width": 2610, "height": 300,
       "font": {"name": "ＭＳ Ｐ明朝", "size": 14.5}, "caption": "電話", "alignment": "center", "tag": "x"},
      {"kind": "Shape", "name": "shpDelivery1", "shape": "ellipse", "visible": false},
      {"kind": "Barcode", "name": "BarCode", "style": "JapanPost"}]}]})");
  EXPECT_EQ(layout.name, "rptOk");
  EXPECT_EQ(layout.printer.PaperSize, 256);
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
  EXPECT_EQ(tel->Caption, "電話");
  EXPECT_EQ(detail.Controls().Item("shpDelivery1")->Shape, ShapeKind::Ellipse);
  EXPECT_FALSE(detail.Controls().Item("shpDelivery1")->Visible);
  EXPECT_EQ(detail.Controls().Item("BarCode")->Style, "JapanPost");
}

TEST(DesignerLoad, EveryCompiledInDesignerLoads) {
  const auto names = DesignerNames();
  EXPECT_FALSE(names.empty());
  for (const auto& name : names) {
    EXPECT_NO_THROW({
      const ReportLayout layout = LoadDesigner(name);
      EXPECT_EQ(layout.name, name) << "a designer names its own report object";
    }) << name;
  }
  EXPECT_THROW(LoadDesigner("rptNowhere"), DesignerError);
}

}  // namespace
}  // namespace lupin::engine
