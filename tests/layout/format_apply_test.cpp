// Applying a format file to a report's Detail.
#include <gtest/gtest.h>

#include <functional>

#include "engine/designer.h"
#include "engine/page_collection.h"
#include "format_files.h"
#include "layout/format_apply.h"

namespace lupin::layout {
namespace {

using testing::FormatFolder;

const char* kDesigner = R"({
  "report": "rptApply",
  "sections": [
    {"name": "PageHeader", "type": "PageHeader", "height": 500,
     "controls": [{"kind": "Label", "name": "lblTitle", "left": 100, "top": 100, "width": 2000, "height": 300}]},
    {"name": "Detail", "type": "Detail", "height": 5000, "controls": [
      {"kind": "Label", "name": "lblShopNote", "left": 1000, "top": 2000, "width": 3000, "height": 400,
       "font": {"name": "ＭＳ 明朝", "size": 12}, "caption": "設計の文字", "tag": "keep"},
      {"kind": "TextField", "name": "txtBiko1", "left": 500, "top": 600, "width": 2500, "height": 300,
       "font": {"name": "ＭＳ 明朝", "size": 11}},
      {"kind": "Shape", "name": "shpBox", "left": 50, "top": 60, "width": 700, "height": 800}]}
  ]})";

struct ApplyCase {
  const char* label;
  std::string fields;  // the <field=…> elements of the Detail section
  std::function<void(engine::Report&)> check;
};

class ApplyFormat : public ::testing::TestWithParam<ApplyCase> {};

TEST_P(ApplyFormat, Rule) {
  FormatFolder folder;
  folder.Write("form_07.lprf", "<name=test>\r\n<section=Detail>\r\n" + GetParam().fields + "\r\n</section>\r\n");
  engine::Report report(engine::ParseDesigner("rptApply.json", kDesigner));
  ApplyReportFormat(report, "form_07.lprf", clsRptFmtConstat(folder.Dir()));
  GetParam().check(report);
}

engine::Control& Item(engine::Report& report, const char* name) {
  engine::Control* control = report.Detail().Controls().Item(name);
  if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
  return *control;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ApplyFormat,
    ::testing::Values(
        ApplyCase{"missing_control_becomes_a_label_with_its_text",
                  "<field=lblAdded><text>送料無料</text><fontsize>11</fontsize><left>20</left><top>10.5</top>"
                  "<width>50</width><height>6</height></field>",
                  [](engine::Report& report) {
                    auto& added = Item(report, "lblAdded");
                    EXPECT_EQ(added.Kind(), engine::ControlKind::Label);
                    EXPECT_EQ(added.Caption, "送料無料");
                    EXPECT_EQ(added.Font.name, "ＭＳ Ｐ明朝");
                    EXPECT_EQ(added.Font.size, 11);
                    EXPECT_EQ(added.Left, 1134);
                    EXPECT_EQ(added.Top, 595);
                    EXPECT_EQ(added.Width, 2835);
                    EXPECT_EQ(added.Height, 340);
                  }},
        ApplyCase{"visible_alone_moves_to_the_corner_and_resets_to_9_points",
                  "<field=lblShopNote><visible>1</visible></field>",
                  [](engine::Report& report) {
                    auto& note = Item(report, "lblShopNote");
                    EXPECT_TRUE(note.Visible);
                    EXPECT_EQ(note.Left, 0);
                    EXPECT_EQ(note.Top, 0);
                    EXPECT_EQ(note.Font.size, 9);
                    EXPECT_EQ(note.Font.name, "ＭＳ 明朝");
                    EXPECT_EQ(note.Width, 3000);
                    EXPECT_EQ(note.Height, 400);
                    EXPECT_EQ(note.Tag, "keep") << "a control the format shows keeps its tag";
                  }},
        ApplyCase{"hidden_control_is_marked_for_good", "<field=txtBiko1><visible>0</visible></field>",
                  [](engine::Report& report) {
                    EXPECT_FALSE(Item(report, "txtBiko1").Visible);
                    EXPECT_EQ(Item(report, "txtBiko1").Tag, kHiddenTag);
                  }},
        ApplyCase{"full_width_name_is_ignored", "<field=ｌｂｌＡ><text>x</text></field><field=lbl＿B></field>",
                  [](engine::Report& report) { EXPECT_EQ(report.Detail().Controls().Count(), 3u); }},
        ApplyCase{"a_control_element_fails_quietly",
                  "<field=lblShopNote><control><left>5</left></control><top>2</top></field>",
                  [](engine::Report& report) {
                    EXPECT_EQ(Item(report, "lblShopNote").Left, 0);
                    EXPECT_EQ(Item(report, "lblShopNote").Top, 113);
                  }},
        ApplyCase{"twentieths_round_twice", "<field=txtBiko1><left>10.25</left><top>0.05</top></field>",
                  [](engine::Report& report) {
                    EXPECT_EQ(Item(report, "txtBiko1").Left, 578);
                    EXPECT_EQ(Item(report, "txtBiko1").Top, 0);
                  }},
        ApplyCase{"a_page_header_control_cannot_be_reached",
                  "<field=lblTitle><left>30</left><top>1</top></field>",
                  [](engine::Report& report) {
                    EXPECT_EQ(report.SectionByName("PageHeader")->Controls().Item("lblTitle")->Left, 100);
                    EXPECT_EQ(Item(report, "lblTitle").Left, 1701) << "a label of that name is added to Detail";
                  }},
        ApplyCase{"later_row_of_the_same_name_wins",
                  "<field=txtBiko1><left>1</left><fontsize>8</fontsize></field><field=txtBiko1><left>2</left><fontsize>10</fontsize></field>",
                  [](engine::Report& report) {
                    EXPECT_EQ(Item(report, "txtBiko1").Left, 113);
                    EXPECT_EQ(Item(report, "txtBiko1").Font.size, 10);
                  }}),
    [](const auto& param_info) { return std::string(param_info.param.label); });

TEST(ApplyFormatFile, WithoutAFileTheReportStaysAsDesigned) {
  FormatFolder folder;
  engine::Report report(engine::ParseDesigner("rptApply.json", kDesigner));
  ApplyReportFormat(report, "form_07.lprf", clsRptFmtConstat(folder.Dir()));
  const auto* note = report.Detail().Controls().Item("lblShopNote");
  EXPECT_EQ(note->Left, 1000);
  EXPECT_EQ(note->Font.size, 12);
  EXPECT_EQ(report.Detail().Controls().Count(), 3u);
  EXPECT_TRUE(ControlExists(report, "LBLSHOPNOTE"));
  EXPECT_FALSE(ControlExists(report, "lblTitle")) << "only Detail counts";
}

// The tag rule, through a whole run: logic that shows a control for every record does not show
// what the format hid.
class ShowingReport : public engine::Report {
 public:
  ShowingReport() : engine::Report(engine::ParseDesigner("rptApply.json", kDesigner)) {
    Detail().Format = [this] {
      for (const char* name : {"txtBiko1", "lblShopNote"}) ShowUnlessHidden(*Detail().Controls().Item(name), true);
    };
  }
  std::filesystem::path dir;

 protected:
  void ActiveReport_DataInitialize() override {
    DataControl1.Recordset = db::Recordset({"ID"}, {{db::Value(1)}, {db::Value(2)}});
    ApplyReportFormat(*this, "form_07.lprf", clsRptFmtConstat(dir));
  }
};

TEST(TagRule, AControlHiddenByTheFormatStaysHiddenForEveryRecord) {
  FormatFolder folder;
  folder.Write("form_07.lprf", "<section=Detail><field=txtBiko1><visible>0</visible></field></section>");
  ShowingReport report;
  report.dir = folder.Dir();
  engine::PageCollection pages;
  ASSERT_TRUE(report.Run(pages).ok);
  int details = 0;
  for (const auto& page : pages.Pages()) {
    for (const auto& item : page.items) {
      if (item.name == "txtBiko1") {
        EXPECT_FALSE(item.visible);
      }
      if (item.name == "lblShopNote") {
        EXPECT_TRUE(item.visible);
        ++details;
      }
    }
  }
  EXPECT_EQ(details, 2);
}

TEST(TagRule, ShowUnlessHidden) {
  struct Case {
    const char* tag;
    bool show, visible;
  };
  const Case cases[] = {{"", true, true}, {"", false, false}, {"HIDDEN", true, false}, {"hidden", true, true}, {"HIDDEN ", true, true}};
  for (const auto& c : cases) {
    engine::Control control(engine::ControlKind::Label, "lbl");
    control.Tag = c.tag;
    control.Visible = !c.visible;
    ShowUnlessHidden(control, c.show);
    EXPECT_EQ(control.Visible, c.visible) << "'" << c.tag << "' " << c.show;
  }
}

}  // namespace
}  // namespace lupin::layout
