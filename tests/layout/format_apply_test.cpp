// Applying a format file to a report's Detail, and the tag rule that keeps hidden controls hidden.
#include <gtest/gtest.h>

#include <sstream>

#include "engine/designer.h"
#include "engine/page_collection.h"
#include "format_files.h"
#include "layout/format_apply.h"

namespace lupin::layout {
namespace {

using testing::DetailSection;
using testing::FormatFolder;

const char* kDesigner = R"({"report": "rptApply", "sections": [
  {"name": "PageHeader", "type": "PageHeader", "height": 500,
   "controls": [{"kind": "Label", "name": "lblTitle", "left": 100, "width": 2000, "height": 300}]},
  {"name": "Detail", "type": "Detail", "height": 5000, "controls": [
    {"kind": "Label", "name": "lblShopNote", "left": 1000, "top": 2000, "width": 3000, "height": 400,
     "font": {"name": "ＭＳ 明朝", "size": 12}, "tag": "keep"},
    {"kind": "TextField", "name": "txtBiko1", "left": 500, "top": 600, "width": 2500, "height": 300},
    {"kind": "Shape", "name": "shpBox", "width": 700, "height": 800}]}]})";

// One line for a Detail control: kind "caption" font size left,top width x height visibility tag alignment.
std::string Summary(engine::Report& report, const char* name) {
  const engine::Control* c = report.Detail().Controls().Item(name);
  if (c == nullptr) return "absent";
  std::ostringstream out;
  out << engine::KindName(c->Kind()) << " \"" << c->Caption << "\" " << c->Font.name << " " << c->Font.size << "pt "
      << c->Left << "," << c->Top << " " << c->Width << "x" << c->Height << (c->Visible ? " shown" : " hidden")
      << " tag=" << c->Tag << " align=" << static_cast<int>(c->alignment);  // 1 is right
  return out.str();
}

TEST(ApplyFormat, Rules) {
  struct Case {
    const char* label;
    std::string fields;
    const char* control;
    std::string after;
  };
  const Case cases[] = {
      {"as designed", "", "lblShopNote", "Label \"\" ＭＳ 明朝 12pt 1000,2000 3000x400 shown tag=keep align=0"},
      {"missing control becomes a label with its text",
       "<field=lblAdded><text>送料無料</text><fontsize>11</fontsize><left>20</left><top>10.5</top><height>6</height></field>",
       "lblAdded", "Label \"送料無料\" ＭＳ Ｐ明朝 11pt 1134,595 0x340 shown tag= align=0"},
      {"visible alone moves to the corner and resets to 9 points", "<field=lblShopNote><visible>1</visible></field>",
       "lblShopNote", "Label \"\" ＭＳ 明朝 9pt 0,0 3000x400 shown tag=keep align=0"},
      {"hidden control is marked for good", "<field=txtBiko1><visible>0</visible><left>1</left></field>", "txtBiko1",
       "TextField \"\" ＭＳ 明朝 9pt 57,0 2500x300 hidden tag=HIDDEN align=0"},
      {"a name with a double-byte character is ignored", "<field=lbl＿B><text>x</text></field>", "lbl＿B", "absent"},
      {"free pairs are set and a bad one fails quietly",
       "<field=lblShopNote><alignment>1</alignment><control><left>5</left></control><top>2</top></field>",
       "lblShopNote", "Label \"\" ＭＳ 明朝 9pt 0,113 3000x400 shown tag=keep align=1"},
      // 99999999 mm is about 5.7e9 twips, beyond any position: those sets are skipped, the rest applies.
      {"a value out of range is skipped",
       "<field=lblShopNote><left>99999999</left><top>2</top><width>99999999</width><height>5</height></field>",
       "lblShopNote", "Label \"\" ＭＳ 明朝 9pt 1000,113 3000x284 shown tag=keep align=0"},
      {"twentieths round twice", "<field=shpBox><left>10.25</left><top>0.05</top></field>", "shpBox",
       "Shape \"\" ＭＳ 明朝 9pt 578,0 700x800 shown tag= align=0"},
      {"a page header control cannot be reached: Detail gets a label", "<field=lblTitle><left>30</left></field>",
       "lblTitle", "Label \"\" ＭＳ Ｐ明朝 9pt 1701,0 0x0 shown tag= align=0"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    FormatFolder folder;
    if (!c.fields.empty()) folder.Write("form_07.lprf", DetailSection(c.fields));
    engine::Report report(engine::ParseDesigner("rptApply.json", kDesigner));
    ApplyReportFormat(report, "form_07.lprf", clsRptFmtConstat(folder.Dir()));
    EXPECT_EQ(Summary(report, c.control), c.after);
    EXPECT_EQ(report.SectionByName("PageHeader")->Controls().Item("lblTitle")->Left, 100);
  }
}

// Logic that shows a control for every record does not show what the format hid; logic that
// shows one for the first record only hides it for the second.
class ShowingReport : public engine::Report {
 public:
  explicit ShowingReport(std::filesystem::path dir)
      : engine::Report(engine::ParseDesigner("rptApply.json", kDesigner)), dir_(std::move(dir)) {
    Detail().Format = [this] {
      ShowUnlessHidden(*Detail().Controls().Item("txtBiko1"), true);
      ShowUnlessHidden(*Detail().Controls().Item("lblShopNote"), Fields().Value("ID").Text() == "1");
    };
  }

 protected:
  void ActiveReport_DataInitialize() override {
    DataControl1.Recordset = db::Recordset({"ID"}, {{db::Value(1)}, {db::Value(2)}});
    ApplyReportFormat(*this, "form_07.lprf", clsRptFmtConstat(dir_));
  }

 private:
  std::filesystem::path dir_;
};

TEST(TagRule, AControlHiddenByTheFormatStaysHiddenForEveryRecord) {
  FormatFolder folder;
  folder.Write("form_07.lprf", "<section=Detail><field=txtBiko1><visible>0</visible></field></section>");
  ShowingReport report(folder.Dir());
  engine::PageCollection pages;
  ASSERT_TRUE(report.Run(pages).ok);
  std::string seen;
  for (const auto& item : pages.Pages().at(0).items)
    if (item.section == "Detail" && item.name != "shpBox") seen += item.name + (item.visible ? "+ " : "- ");
  EXPECT_EQ(seen, "lblShopNote+ txtBiko1- lblShopNote- txtBiko1- ");
}

}  // namespace
}  // namespace lupin::layout
