#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "catalogue/catalogue_listing.h"
#include "common/text.h"
#include "report_test_fixture.h"

namespace lupin::catalogue {
namespace {

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// Display column where a cell begins: the CP932 byte offset of the text before it.
int ColumnOf(const std::string& line, const std::string& cell) {
  const std::size_t at = line.find(cell);
  return at == std::string::npos ? -1 : text::ByteLen(line.substr(0, at));
}

const std::vector<CatalogueRow> kRows{{0, "納品書", true, 1}, {25, "ﾔﾏﾄ", false, 20},
                                      {104, "e-飛伝III", true, 105}, {100, "予備", true, 3}};

TEST(CatalogueListing, TableColumnsLineUpInDisplayWidth) {
  const std::vector<std::string> lines = Lines(FormatCatalogueTable(kRows));
  ASSERT_EQ(lines.size(), 5u);
  // The output column starts at the same display position on every line.
  const int column = ColumnOf(lines[0], "出力");
  for (const auto& [line, cell] : {std::pair{1, "帳票"}, {2, "帳票"}, {3, "ファイル"}, {4, "なし"}}) {
    EXPECT_EQ(ColumnOf(lines[line], cell), column) << cell;
  }
  for (const char* cell : {"無効", "rptYamatoNew", "ヤマト"}) EXPECT_NE(lines[2].find(cell), std::string::npos) << cell;
  for (const char* cell : {"modEhiden3Csv", "佐川"}) EXPECT_NE(lines[3].find(cell), std::string::npos) << cell;
  for (const std::string& line : lines) EXPECT_NE(line.back(), ' ');
}

class CatalogueRowsTest : public testing::ReportDbTest {};

TEST_P(CatalogueRowsTest, RowsInListOrder) {
  Db().Execute("INSERT INTO [REPORT] ([REPORT_NO], [REPORT_NAME], [ORD], [ENABLED]) VALUES (91, 'e-飛伝', 2, 1), "
               "(0, '納品書', 2, 0), (25, 'ヤマト', 1, 1)");
  Db().Execute("INSERT INTO [REPORT] ([REPORT_NO], [REPORT_NAME], [ORD]) VALUES (4, NULL, NULL)");
  const std::vector<CatalogueRow> rows = ReadCatalogueRows(Db());
  ASSERT_EQ(rows.size(), 4u);
  std::vector<int> numbers;
  for (const CatalogueRow& row : rows) numbers.push_back(row.report_no);
  // NULL sorts first on one engine and last on the other; the rest keep ORD, then number.
  numbers.erase(std::remove(numbers.begin(), numbers.end(), 4), numbers.end());
  EXPECT_EQ(numbers, (std::vector<int>{25, 0, 91}));
  for (const CatalogueRow& row : rows) {
    SCOPED_TRACE(row.report_no);
    EXPECT_EQ(row.enabled, row.report_no != 0);  // ENABLED defaults to 1
    if (row.report_no == 4) {
      EXPECT_EQ(row.report_name, "");
    }
  }
}

LUPIN_INSTANTIATE_ENGINES(CatalogueRowsTest);

}  // namespace
}  // namespace lupin::catalogue
