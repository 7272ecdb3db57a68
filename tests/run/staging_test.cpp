#include <gtest/gtest.h>

#include "common/grid.h"
#include "run/print_form.h"
#include "run/run_db_support.h"
#include "run/staging.h"
#include "support/test_databases.h"

namespace lupin::run {
namespace {

using testing::Column;
using testing::Count;

common::Grid OrderGrid(const std::vector<std::pair<std::string, bool>>& rows) {
  common::Grid grid(0, kListColumns);
  for (const auto& [id, checked] : rows) {
    const int row = grid.AddRow();
    grid.SetChecked(row, checked);
    grid.SetText(row, kColId, id);
    grid.SetText(row, kColName, "名前" + id);
    grid.SetText(row, kColAmount, "1000");
  }
  return grid;
}

const std::string kHead =
    "INSERT INTO WK_PRINT([ID], [SIMEI], [ORD_DATE], [DATE], [BIKO1], [BIKO2], [BIKO3], [ITEM_ID1], [SEK_GAKU], "
    "[EMAIL], [TEL],[YUBIN],[COMPANY],[CLIENT_NAME],[TAX],[INSHI])VALUES(";

TEST(OrderInsert, WritesTheRowAsTheStatementAlwaysWas) {
  common::Grid grid(1, kListColumns);
  grid.SetText(1, kColId, "7");
  EXPECT_EQ(OrderInsert(grid, 1, "PC'1"), kHead + "7,'','','','','','','',0,'','','','','PC''1',0,0)")
      << "an empty amount becomes 0";
  const std::pair<int, const char*> cells[] = {
      {kColName, "O'Hara"}, {kColOrderDate, "2024/04/01"}, {kColReportDate, "2024/04/02"}, {kColBiko1, "b1"},
      {kColBiko2, "b2"},    {kColBiko3, "b3"},             {kColItem1, "IT"},             {kColAmount, "12345"},
      {kColMail, "m@x"},    {kColTel, "0311"},             {kColZip, "1000001"},          {kColCompany, "株式会社'A"},
      {kColTax, "1122.5"},  {kColStamp, "1"}};
  for (const auto& [col, text] : cells) grid.SetText(1, col, text);
  EXPECT_EQ(OrderInsert(grid, 1, "PC'1"),
            kHead + "7,'O''Hara','2024/04/01','2024/04/02','b1','b2','b3','IT',12345,'m@x','0311','1000001',"
                    "'株式会社''A','PC''1',1122.5,1)");
}

class StagingTest : public testing::SchemaTest {
 protected:
  std::vector<std::string> Staged(const std::string& client) {
    return Column(Db(), "SELECT [ID] FROM [WK_PRINT] WHERE [CLIENT_NAME] = '" + client + "' ORDER BY [ID]", "ID");
  }
};

TEST_P(StagingTest, ReplacesOnlyTheWorkstationsOwnRows) {
  ASSERT_TRUE(StageRows(Db(), "PC01", OrderGrid({{"1", true}, {"2", true}}), false, 18).ok);
  ASSERT_TRUE(StageRows(Db(), "PC02", OrderGrid({{"3", true}}), false, 18).ok);
  const auto result = StageRows(Db(), "PC01", OrderGrid({{"4", false}, {"5", true}}), false, 18);
  EXPECT_TRUE(result.ok);
  EXPECT_EQ(result.rows, 1);
  EXPECT_EQ(Staged("PC01"), std::vector<std::string>{"5"});
  EXPECT_EQ(Staged("PC02"), std::vector<std::string>{"3"});
}

TEST_P(StagingTest, AFailingStatementLeavesThePreviousRows) {
  ASSERT_TRUE(StageRows(Db(), "PC01", OrderGrid({{"1", true}, {"2", true}}), false, 18).ok);
  // An ID cell that is no number breaks the third INSERT after two went through.
  const auto result = StageRows(Db(), "PC01", OrderGrid({{"8", true}, {"9", true}, {"x y", true}}), false, 18);
  EXPECT_FALSE(result.ok);
  EXPECT_FALSE(result.error.empty());
  EXPECT_EQ(Staged("PC01"), (std::vector<std::string>{"1", "2"}));
  EXPECT_FALSE(Db().InTransaction());
}

TEST_P(StagingTest, CustomerRowsAreNumberedAndCarryTheCustomer) {
  common::Grid grid(0, kCustomerColumns);
  for (const auto& [no, checked] : {std::pair{"501", true}, {"502", false}, {"503", true}}) {
    const int row = grid.AddRow();
    grid.SetChecked(row, checked);
    grid.SetText(row, kCusNo, no);
  }
  const auto result = StageRows(Db(), "PC01", grid, true, 23);
  ASSERT_TRUE(result.ok);
  EXPECT_EQ(Staged("PC01"), (std::vector<std::string>{"1", "2"}));
  std::vector<long> numbers;
  for (auto rs = Db().Open("SELECT [SEK_GAKU] FROM [WK_PRINT] ORDER BY [ID]"); !rs.Eof(); rs.MoveNext()) {
    numbers.push_back(static_cast<long>(rs["SEK_GAKU"].Long()));
  }
  EXPECT_EQ(numbers, (std::vector<long>{501, 503}));
  const auto marked = StageRows(Db(), "PC01", grid, true, 27);
  EXPECT_TRUE(marked.has_data) << "report 27 has data without staging a row";
  EXPECT_EQ(Count(Db(), "FROM [WK_PRINT]"), 0);
}

LUPIN_INSTANTIATE_ENGINES(StagingTest);

}  // namespace
}  // namespace lupin::run
