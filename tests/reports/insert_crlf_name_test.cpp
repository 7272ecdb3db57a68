#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "common/text.h"
#include "reports/slips/insert_crlf.h"

namespace lupin::reports {
namespace {

TEST(InsertCrLfName, BreaksBehindTheCompanyWordOrAtTheWidth) {
  const struct {
    const char* name;
    std::string text;
    int line_bytes;
    std::string expected;
  } cases[] = {
      {"BehindCompanyWord", "山田商事株式会社営業本部第一課", 20, "山田商事株式会社\r\n営業本部第一課"},
      // The search starts at character 2: the leading word is not found, the width decides, byte 9 is lost.
      {"LeadingCompanyWordNotFound", "株式会社A山田商事営業部", 10, "株式会社\r\n山田商事営\r\n業部"},
      {"HalfWidthBracketsAreACompanyWord", "山田商事(株)営業本部", 16, "山田商事(株)\r\n営業本部"},
      {"FullWidthBracketsAreNot", "山田商事（株）営業本部", 16, "山田商事（株）営\r\n業本部"},
      {"PriorityBeatsPosition", "山田(株)鈴木有限会社営業部", 22, "山田(株)鈴木有限会社\r\n営業部"},
      // The word ends at byte 12, short of 60 per cent of 22: the width decides.
      {"WordTooEarly", "山田株式会社営業本部第一課長", 22, "山田株式会社営業本部第\r\n一課長"},
      // A lead byte at the width: the first line loses byte N - 1 as the slips always printed.
      {"ByteBeforeTheWidthLost", "ABCDEFGHI山田太郎", 10, "ABCDEFGH\r\n山田太郎"},
  };
  for (const auto& c : cases) {
    InsertCrLf crlf;
    crlf.LineBytes = static_cast<std::int16_t>(c.line_bytes);
    EXPECT_EQ(crlf.InsertCrLfName(c.text), c.expected) << c.name;
  }
}

// Widths as a label sized to its caption reports them: a fixed width, or so many twips a byte.
class FakeMeasurer : public engine::TextMeasurer {
 public:
  explicit FakeMeasurer(double twips_per_byte, std::optional<double> fixed_width = std::nullopt)
      : twips_per_byte_(twips_per_byte), fixed_width_(fixed_width) {}
  double WidthTwips(std::string_view text, const engine::FontSpec&) override {
    measured.emplace_back(text);
    return fixed_width_ ? *fixed_width_ : text::ByteLen(text) * twips_per_byte_;
  }
  std::vector<std::string> measured;

 private:
  double twips_per_byte_;
  std::optional<double> fixed_width_;
};

engine::FontSpec Mincho() {
  engine::FontSpec font;
  font.name = "ＭＳ 明朝";
  font.size = 11.5;
  return font;
}

TEST(FitLineBytes, AveragesOverThePrintingCharactersOfTheText) {
  const struct {
    const char* name;
    std::string text;
    double label_width;  // what the label reports for the cleaned caption; 0 for nothing measured
    int box_width;
    int expected;
    const char* caption;  // "" when nothing may be measured
  } cases[] = {
      // Blanks of both widths and line breaks are not measured and not counted: 120 a byte, 28.4 - 2.
      {"BlanksAndBreaksRemoved", "東京都　千代田区 丸\r\nの内", 2400, 3405, 26, "東京都千代田区丸の内"},
      // Whole numbers by halves to even, both for the twips a byte and for the result.
      {"ResultHalfDown", "ABCDEFGHIJ", 1000, 2850, 26, "ABCDEFGHIJ"},
      {"TwipsPerByteHalfToEven", "ABCDEFGHIJ", 1125, 6780, 59, "ABCDEFGHIJ"},
      {"NarrowBoxGivesNegative", "ABCDEFGHIJ", 1000, 100, -1, "ABCDEFGHIJ"},
      {"OnlyBlanks", "　 \r\n", 1000, 3405, 0, ""},
      {"ZeroWidthLabel", "東京", 0, 3405, 0, "東京"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    FakeMeasurer measurer(0, c.label_width);
    InsertCrLf crlf;
    crlf.LineBytes = 7;
    EXPECT_EQ(crlf.FitLineBytes(measurer, Mincho(), c.box_width, c.text), c.expected);
    EXPECT_EQ(measurer.measured, std::string(c.caption).empty() ? std::vector<std::string>{}
                                                                 : std::vector<std::string>{c.caption});
    EXPECT_EQ(crlf.LineBytes, 7) << "the shared width is the caller's to set";
  }
}

TEST(FitCompanyLines, FlowsBothOverTheTwoLinesWhenEitherIsTooWide) {
  // 100 twips a byte in a box of 2200: 20 bytes a line.
  const struct {
    const char* name;
    std::string company, department;
    std::string expected_company, expected_department;
  } cases[] = {
      {"BothFit", "山田商事株式会社", "営業部", "山田商事株式会社", "営業部"},
      {"LeadByteAtTheWidth", "A一般社団法人山田商事協会", "総務部", "A一般社団法人山田商", "事協会総務部"},
      {"DepartmentTooWide", "山田商事", "製造部品質管理課第一係生産技術", "山田商事製造部品質管", "理課第一係生産技術"},
  };
  for (const auto& c : cases) {
    FakeMeasurer measurer(100);
    InsertCrLf crlf;
    std::string company = c.company;
    std::string department = c.department;
    crlf.FitCompanyLines(company, department, measurer, Mincho(), 2200);
    EXPECT_EQ(company, c.expected_company) << c.name;
    EXPECT_EQ(department, c.expected_department) << c.name;
    EXPECT_EQ(measurer.measured, std::vector<std::string>{c.company + c.department}) << c.name;
  }
}

}  // namespace
}  // namespace lupin::reports
