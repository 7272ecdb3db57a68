// Reading format files: the worked example, the scanner's edge cases, and arbitrary bytes.
#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "format_files.h"
#include "layout/format_parser.h"

namespace lupin::layout {
namespace {

using testing::DetailSection;
using testing::FormatFolder;

// One line per row: section/name [title|text] visibility font size left,top width x height, pairs.
std::string Summary(const std::vector<clsRptFmtRow>& rows) {
  std::ostringstream out;
  for (const auto& r : rows) {
    out << r.Section << "/" << r.Name << " [" << r.title << "|" << r.Text << "] " << (r.Visible ? "shown " : "hidden ")
        << r.FontName << r.FontSize << "pt " << r.Left << "," << r.Top << " " << r.Width << "x" << r.Height;
    for (int pair = 0; pair <= r.OtherUBound(); ++pair) out << " " << r.GetOther(0, pair) << "=" << r.GetOther(1, pair);
    out << ";";
  }
  return out.str();
}

std::string Field(const std::string& inner) { return DetailSection("<field=lblA>" + inner + "</field>"); }

TEST(FormatParser, Rows) {
  struct Case {
    const char* label;
    std::string text;
    std::string rows;
  };
  const Case cases[] = {
      {"worked example",
       DetailSection("<field=lblShopNote><title>Note</title><text>Thank you</text><visible>1</visible>"
                     "<fontname>ＭＳ Ｐ明朝</fontname><fontsize>11</fontsize><left>20</left><top>250.5</top>"
                     "<width>120</width><height>6</height></field>\r\n<field=txtBiko1><visible>0</visible><left>15</left></field>"),
       "Detail/lblShopNote [Note|Thank you] shown ＭＳ Ｐ明朝11pt 20,250.5 120x6;Detail/txtBiko1 [|] hidden 9pt 15,0 0x0;"},
      {"unclosed section keeps earlier rows",
       "<section=A><field=a><left>1</left></field></section><section=B><field=b><left>2</left></field>",
       "A/a [|] shown 9pt 1,0 0x0;"},
      {"capital title needs the same case at its end", Field("<TITLE>Note</title><left>3</left>"),
       "Detail/lblA [|] shown 9pt 0,0 0x0;"},
      {"empty value hides and drops the rest", Field("<left>10</left><visible></visible><top>20</top>"),
       "Detail/lblA [|] hidden 9pt 10,0 0x0;"},
      {"free pairs in file order, an inner left is part of the value",
       Field("<alignment>1</alignment><control><left>5</left></control><alignment>2</alignment>"),
       "Detail/lblA [|] shown 9pt 0,0 0x0 alignment=1 control=<left>5</left> alignment=2;"},
      {"LF-only line ends stay in values",
       "<section=Detail>\n<field=lblA>\n<text>one\ntwo</text>\n<left>5</left>\n</field>\n</section>\n",
       "Detail/lblA [|one\ntwo] shown 9pt 5,0 0x0;"},
      // Numbers come from the leading digits, visible is any non-zero number, sizes round half to even.
      {"numbers 1", Field("<visible>-1</visible><fontsize>9.5</fontsize><left>12.5mm</left>"), "Detail/lblA [|] shown 10pt 12.5,0 0x0;"},
      {"numbers 2", Field("<visible>abc</visible><fontsize>8.5</fontsize><left>abc</left><top> 3</top>"),
       "Detail/lblA [|] hidden 8pt 0,3 0x0;"},
      {"numbers 3", Field("<visible>0.0</visible><fontsize>12pt</fontsize>"), "Detail/lblA [|] hidden 12pt 0,0 0x0;"},
      {"font size beyond 16 bits gives nothing", Field("<left>1</left>") + Field("<fontsize>40000</fontsize>"), ""},
      {"empty file", "", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    FormatFolder folder;
    clsRptFmtParser parser;
    parser.fileName(folder.Write("FORM_01.LPRF", c.text).parent_path() / "form_01.lprf");  // found without case
    std::vector<clsRptFmtRow> rows(3);
    const int last = parser.Parse(rows);
    EXPECT_EQ(static_cast<int>(rows.size()), last + 1);
    EXPECT_EQ(Summary(rows), c.rows);
  }
}

// The name comes from the first line only; a file is found whatever the case of its name.
TEST(FormatParser, NamesOfFormatsAndFiles) {
  const std::pair<std::string, std::string> cases[] = {
      {"  <NAME=見本>\r\n<section=D></section>", "見本"}, {"<section=D>\r\n<name=late>", ""}, {"<name=unclosed\r\n>", ""}};
  FormatFolder folder;
  for (const auto& [text, name] : cases) {
    clsRptFmtParser parser;
    parser.fileName(folder.Write("FORM_01.LPRF", text).parent_path() / "form_01.lprf");
    EXPECT_EQ(parser.formatName(), name) << text;
  }
  std::vector<clsRptFmtRow> rows;
  clsRptFmtParser parser;
  EXPECT_EQ(parser.Parse(rows), -1) << "no path";
  parser.fileName(folder.Dir() / "form_07.lprf");
  EXPECT_EQ(parser.Parse(rows), -1) << "no file";
  EXPECT_EQ(FormatFileName(7), "form_07.lprf");
  EXPECT_EQ(FormatFileName(112), "form_112.lprf");
}

// Whatever bytes a file holds, the parser returns a row count that matches what it filled.
TEST(FormatParser, SurvivesArbitraryBytes) {
  std::mt19937 random(20240601);
  const std::string pieces[] = {"<section=", "</section>", "<field=", "</field>", "<", ">", "/", "left", "fontsize",
                                "visible", "<title>", "</title>", "9.5", "99999", "\r\n", "\n", "\x82\xa0", "\x81",
                                "-1e40", "1e39"};
  FormatFolder folder;
  for (int round = 0; round < 300; ++round) {
    std::string bytes;
    for (int i = static_cast<int>(random() % 200); i > 0; --i)
      bytes += random() % 3 == 0 ? std::string(1, static_cast<char>(random() % 256)) : pieces[random() % std::size(pieces)];
    clsRptFmtParser parser;
    parser.fileName(folder.WriteBytes("form_" + std::to_string(round) + ".lprf", bytes));
    std::vector<clsRptFmtRow> rows;
    const int last = parser.Parse(rows);
    EXPECT_GE(last, -1);
    EXPECT_EQ(static_cast<int>(rows.size()), last + 1);
    (void)parser.formatName();
  }
}

}  // namespace
}  // namespace lupin::layout
