// Reading format files: the worked example, the scanner's edge cases, and arbitrary bytes.
#include <gtest/gtest.h>

#include <functional>
#include <random>

#include "format_files.h"
#include "layout/format_parser.h"

namespace lupin::layout {
namespace {

using testing::FormatFolder;

std::int16_t ParseText(const std::string& text, std::vector<clsRptFmtRow>& rows) {
  FormatFolder folder;
  clsRptFmtParser parser;
  parser.fileName(folder.Write("form_01.lprf", text));
  return parser.Parse(rows);
}

TEST(FormatParser, WorkedExample) {
  const std::string file =
      "<name=Delivery note with own logo>\r\n"
      "<section=Detail>\r\n"
      "<field=lblShopNote><title>Note to customer</title><text>Thank you for your order</text><visible>1</visible>"
      "<fontname>ＭＳ Ｐ明朝</fontname><fontsize>11</fontsize><left>20</left><top>250.5</top><width>120</width>"
      "<height>6</height></field>\r\n"
      "<field=txtBiko1><visible>0</visible><left>15</left><top>40</top></field>\r\n"
      "</section>\r\n";
  FormatFolder folder;
  clsRptFmtParser parser;
  parser.fileName(folder.Write("form_07.lprf", file));
  EXPECT_EQ(parser.formatName(), "Delivery note with own logo");
  std::vector<clsRptFmtRow> rows;
  ASSERT_EQ(parser.Parse(rows), 1);
  ASSERT_EQ(rows.size(), 2u);
  const auto& note = rows[0];
  EXPECT_EQ(note.Section, "Detail");
  EXPECT_EQ(note.Name, "lblShopNote");
  EXPECT_EQ(note.title, "Note to customer");
  EXPECT_EQ(note.Text, "Thank you for your order");
  EXPECT_TRUE(note.Visible);
  EXPECT_EQ(note.FontName, "ＭＳ Ｐ明朝");
  EXPECT_EQ(note.FontSize, 11);
  EXPECT_FLOAT_EQ(note.Left, 20);
  EXPECT_FLOAT_EQ(note.Top, 250.5f);
  EXPECT_FLOAT_EQ(note.Width, 120);
  EXPECT_FLOAT_EQ(note.Height, 6);
  EXPECT_EQ(note.OtherUBound(), -1);
  const auto& biko = rows[1];
  EXPECT_EQ(biko.Section, "Detail");
  EXPECT_EQ(biko.Name, "txtBiko1");
  EXPECT_FALSE(biko.Visible);
  EXPECT_FLOAT_EQ(biko.Left, 15);
  EXPECT_FLOAT_EQ(biko.Top, 40);
  EXPECT_EQ(biko.FontSize, 9);
  EXPECT_FLOAT_EQ(biko.Width, 0);
  EXPECT_FLOAT_EQ(biko.Height, 0);
}

struct ParseCase {
  const char* label;
  std::string text;
  int last;
  std::function<void(const std::vector<clsRptFmtRow>&)> check;
};

std::string Field(const std::string& inner, const std::string& name = "lblA") {
  return "<name=x>\r\n<section=Detail>\r\n<field=" + name + ">" + inner + "</field>\r\n</section>\r\n";
}

class FormatParserCases : public ::testing::TestWithParam<ParseCase> {};

TEST_P(FormatParserCases, Parse) {
  std::vector<clsRptFmtRow> rows;
  const int last = ParseText(GetParam().text, rows);
  ASSERT_EQ(last, GetParam().last);
  ASSERT_EQ(static_cast<int>(rows.size()), last + 1);
  if (GetParam().check) GetParam().check(rows);
}

INSTANTIATE_TEST_SUITE_P(
    EdgeCases, FormatParserCases,
    ::testing::Values(
        ParseCase{"unclosed_section_keeps_earlier_rows",
                  "<section=A><field=a><left>1</left></field></section><section=B><field=b><left>2</left></field>", 0,
                  [](const auto& rows) { EXPECT_EQ(rows[0].Name, "a"); }},
        ParseCase{"capital_title_needs_the_same_case_at_its_end", Field("<TITLE>Note</title><left>3</left>"), 0,
                  [](const auto& rows) {
                    EXPECT_EQ(rows[0].title, "");
                    EXPECT_FLOAT_EQ(rows[0].Left, 0) << "the end tag stopped the field";
                  }},
        ParseCase{"empty_value_drops_the_rest", Field("<left>10</left><title></title><top>20</top>"), 0,
                  [](const auto& rows) {
                    EXPECT_FLOAT_EQ(rows[0].Left, 10);
                    EXPECT_FLOAT_EQ(rows[0].Top, 0);
                  }},
        ParseCase{"empty_visible_hides", Field("<visible></visible><left>4</left>"), 0,
                  [](const auto& rows) {
                    EXPECT_FALSE(rows[0].Visible);
                    EXPECT_FLOAT_EQ(rows[0].Left, 0);
                  }},
        ParseCase{"free_pairs_in_file_order",
                  Field("<alignment>1</alignment><control><left>5</left></control><alignment>2</alignment>"), 0,
                  [](const auto& rows) {
                    const auto& row = rows[0];
                    ASSERT_EQ(row.OtherUBound(), 2);
                    EXPECT_EQ(row.GetOther(0, 0), "alignment");
                    EXPECT_EQ(row.GetOther(1, 0), "1");
                    EXPECT_EQ(row.GetOther(0, 1), "control");
                    EXPECT_EQ(row.GetOther(1, 1), "<left>5</left>");
                    EXPECT_EQ(row.GetOther(1, 2), "2");
                    EXPECT_FLOAT_EQ(row.Left, 0) << "the inner left is part of the control value";
                    EXPECT_EQ(row.Alignment, 0);
                  }},
        ParseCase{"lf_only_line_ends_stay_in_values",
                  "<name=x>\n<section=Detail>\n<field=lblA>\n<text>one\ntwo</text>\n<left>5</left>\n</field>\n</section>\n", 0,
                  [](const auto& rows) {
                    EXPECT_EQ(rows[0].Name, "lblA");
                    EXPECT_EQ(rows[0].Text, "one\ntwo");
                    EXPECT_FLOAT_EQ(rows[0].Left, 5);
                  }},
        ParseCase{"leading_number_of_a_value", Field("<left>12.5mm</left><top>abc</top><width> 3</width>"), 0,
                  [](const auto& rows) {
                    EXPECT_FLOAT_EQ(rows[0].Left, 12.5f);
                    EXPECT_FLOAT_EQ(rows[0].Top, 0);
                    EXPECT_FLOAT_EQ(rows[0].Width, 3);
                  }},
        ParseCase{"font_size_beyond_16_bits_gives_nothing", Field("<left>1</left>") + Field("<fontsize>40000</fontsize>"), -1, {}}),
    [](const auto& param_info) { return std::string(param_info.param.label); });

TEST(FormatParser, VisibleIsTheNumericValueNotZero) {
  const std::pair<const char*, bool> cases[] = {{"0", false}, {"-1", true}, {"1", true}, {"2", true}, {"abc", false}, {"0.0", false}};
  for (const auto& [value, visible] : cases) {
    std::vector<clsRptFmtRow> rows;
    ASSERT_EQ(ParseText(Field(std::string("<visible>") + value + "</visible>"), rows), 0) << value;
    EXPECT_EQ(rows[0].Visible, visible) << value;
  }
}

TEST(FormatParser, FontSizeRoundsHalfToEven) {
  const std::pair<const char*, int> cases[] = {{"9.5", 10}, {"8.5", 8}, {"10.5", 10}, {"11.4", 11}, {"12pt", 12}};
  for (const auto& [value, size] : cases) {
    std::vector<clsRptFmtRow> rows;
    ASSERT_EQ(ParseText(Field(std::string("<fontsize>") + value + "</fontsize>"), rows), 0) << value;
    EXPECT_EQ(rows[0].FontSize, size) << value;
  }
}

TEST(FormatParser, NoFileEmptyFileOrNoPathGivesNoRows) {
  FormatFolder folder;
  std::vector<clsRptFmtRow> rows(3);
  clsRptFmtParser parser;
  EXPECT_EQ(parser.Parse(rows), -1);
  EXPECT_EQ(parser.formatName(), "");
  parser.fileName(folder.Dir() / "form_99.lprf");
  EXPECT_EQ(parser.Parse(rows), -1);
  EXPECT_TRUE(rows.empty());
  parser.fileName(folder.WriteBytes("form_98.lprf", ""));
  EXPECT_EQ(parser.Parse(rows), -1);
}

TEST(FormatParser, FileNamesDifferingOnlyInCaseAreFound) {
  FormatFolder folder;
  folder.Write("FORM_07.LPRF", Field("<left>1</left>"));
  clsRptFmtParser parser;
  parser.fileName(folder.Dir() / "form_07.lprf");
  std::vector<clsRptFmtRow> rows;
  EXPECT_EQ(parser.Parse(rows), 0);
}

TEST(FormatParser, FormatNameComesFromTheFirstLineOnly) {
  const std::pair<std::string, std::string> cases[] = {
      {"<name=見本>\r\n<section=D></section>", "見本"},
      {"<NAME=Upper>rest\r\n", "Upper"},
      {"  <name=spaced out>  ", "spaced out"},
      {"<section=D>\r\n<name=late>", ""},
      {"<name=unclosed\r\n>", ""},
  };
  for (const auto& [text, name] : cases) {
    FormatFolder folder;
    clsRptFmtParser parser;
    parser.fileName(folder.Write("form_01.lprf", text));
    EXPECT_EQ(parser.formatName(), name) << text;
  }
}

TEST(FormatFileName, TwoDigitsAtLeast) {
  const std::pair<int, const char*> cases[] = {{7, "form_07.lprf"}, {0, "form_00.lprf"}, {54, "form_54.lprf"}, {112, "form_112.lprf"}};
  for (const auto& [number, name] : cases) EXPECT_EQ(FormatFileName(number), name);
}

// Whatever bytes a file holds, the parser returns a row count that matches what it filled.
TEST(FormatParser, SurvivesArbitraryBytes) {
  std::mt19937 random(20240601);
  const std::string pieces[] = {"<section=", "</section>", "<field=", "</field>", "<", ">", "/", "left", "top",
                                "fontsize", "visible", "<title>", "</title>", "9.5", "99999", "\r\n", "\r", "\n", "\t",
                                "\x82\xa0", "\x81", "\xff", "-1e40", "1e39"};
  FormatFolder folder;
  for (int round = 0; round < 300; ++round) {
    std::string bytes;
    const int length = static_cast<int>(random() % 200);
    for (int i = 0; i < length; ++i) {
      if (random() % 3 == 0)
        bytes.push_back(static_cast<char>(random() % 256));
      else
        bytes += pieces[random() % std::size(pieces)];
    }
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
