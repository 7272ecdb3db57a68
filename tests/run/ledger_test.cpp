#include <gtest/gtest.h>

#include "common/grid.h"
#include "run/ledger.h"
#include "run/print_form.h"
#include "run/run_db_support.h"
#include "support/test_databases.h"

namespace lupin::run {
namespace {

using testing::AddOrder;
using testing::Column;
using testing::Count;

class LedgerTest : public testing::SchemaTest {
 protected:
  void Stage(const std::string& client, std::initializer_list<std::pair<int, const char*>> rows) {
    for (const auto& [id, person] : rows) {
      Db().Execute("INSERT INTO [WK_PRINT]([ID],[SIMEI],[TEL],[CLIENT_NAME]) VALUES(" + std::to_string(id) + ",'" +
                   person + "','','" + client + "')");
    }
  }
  std::string Ledger(int report, int id, const char* field) {
    auto rs = Db().Open("SELECT [" + std::string(field) + "] FROM [PRINTED] WHERE [REPORT_NO] = " + std::to_string(report) +
                        " AND [ID] = " + std::to_string(id));
    return rs.Eof() ? "none" : std::to_string(rs[field].Long());
  }
};

TEST_P(LedgerTest, FileLedgerRaisesTheCountUnderTheMappedNumber) {
  common::Grid grid(2, kListColumns);
  grid.SetText(1, kColId, "10");
  grid.SetChecked(1, true);
  grid.SetText(2, kColId, "11");
  grid.SetChecked(2, false);
  WriteFileLedger(Db(), 96, grid, "20240401");
  const std::string first_count = Ledger(91, 10, "CNT");
  WriteFileLedger(Db(), 104, grid, "20240402");
  EXPECT_EQ(std::stol(Ledger(91, 10, "CNT")), std::stol(first_count) + 1);
  EXPECT_EQ(Ledger(91, 10, "UPDATE"), "20240402");
  EXPECT_EQ(Ledger(91, 11, "CNT"), "none") << "unchecked rows are not booked";
  EXPECT_EQ(Count(Db(), "FROM [PRINTED] WHERE [REPORT_NO] IN (96, 104)"), 0);
}

TEST_P(LedgerTest, PrintLedgerChangesOnlyTheDate) {
  Stage("PC01", {{1, "a"}, {2, "b"}});
  Stage("PC02", {{3, "c"}});
  ASSERT_TRUE(WritePreviewLedger(Db(), "PC01", 18, false, "20240401").ok);
  const std::string count = Ledger(18, 1, "CNT");
  const auto second = WritePreviewLedger(Db(), "PC01", 18, false, "20240405");
  ASSERT_TRUE(second.ok);
  EXPECT_EQ(second.rows, 2);
  EXPECT_EQ(Ledger(18, 1, "CNT"), count);
  EXPECT_EQ(Ledger(18, 1, "UPDATE"), "20240405");
  EXPECT_EQ(Ledger(18, 3, "CNT"), "none") << "another workstation's rows are not booked";
}

TEST_P(LedgerTest, AggregatingReportsBookNothing) {
  Stage("PC01", {{1, "a"}});
  for (const int report : {35, 44, 45, 46}) {
    EXPECT_TRUE(WritePreviewLedger(Db(), "PC01", report, false, "20240401").ok);
  }
  EXPECT_EQ(Count(Db(), "FROM [PRINTED]"), 0);
}

TEST_P(LedgerTest, LabelsWithDedupeBookEveryOrderOfThePerson) {
  AddOrder(Db(), {.id = 1, .name = "山田", .tel = "0311112222"});
  AddOrder(Db(), {.id = 2, .name = "山田", .tel = "0311112222"});
  AddOrder(Db(), {.id = 3, .name = "山田", .tel = "0399999999"});
  AddOrder(Db(), {.id = 4, .name = "佐藤"});
  AddOrder(Db(), {.id = 5, .name = "佐藤"});
  Db().Execute("INSERT INTO [WK_PRINT]([ID],[SIMEI],[TEL],[CLIENT_NAME]) VALUES(1,'山田','0311112222','PC01')");
  Db().Execute("INSERT INTO [WK_PRINT]([ID],[SIMEI],[TEL],[CLIENT_NAME]) VALUES(4,'佐藤','','PC01')");
  const auto with = WritePreviewLedger(Db(), "PC01", 22, true, "20240401");
  ASSERT_TRUE(with.ok) << with.error;
  EXPECT_EQ(Column(Db(), "SELECT [ID] FROM [PRINTED] WHERE [REPORT_NO] = 22 ORDER BY [ID]", "ID"),
            (std::vector<std::string>{"1", "2", "4", "5"}));
  Db().Execute("DELETE FROM [PRINTED]");
  ASSERT_TRUE(WritePreviewLedger(Db(), "PC01", 22, false, "20240401").ok);
  EXPECT_EQ(Column(Db(), "SELECT [ID] FROM [PRINTED] WHERE [REPORT_NO] = 22 ORDER BY [ID]", "ID"),
            (std::vector<std::string>{"1", "4"}));
}

class BillingTest : public LedgerTest {
 protected:
  void Statement(const std::string& ids, const std::string& client = "PC01") {
    Db().Execute("INSERT INTO [WK_SEIKYU]([ID],[ID_STRING],[請求額],[CLIENT_NAME]) VALUES(1,'" + ids + "',0,'" + client + "')");
  }
  std::vector<std::string> Groups() {
    std::vector<std::string> rows;
    for (auto rs = Db().Open("SELECT [注文番号],[請求NO] FROM [SEIKYU_S] ORDER BY [注文番号]"); !rs.Eof(); rs.MoveNext()) {
      rows.push_back(rs["注文番号"].Text() + ":" + rs["請求NO"].Text());
    }
    return rows;
  }
};

TEST_P(BillingTest, FirstOrderNumbersTheStatementAndRegroupingMovesIt) {
  for (int id = 1; id <= 4; ++id) AddOrder(Db(), {.id = id, .name = "x", .amount = id * 100});
  Statement("1,2,3");
  Statement("4");
  Statement("");
  Statement("9", "PC02");
  const auto first = WritePreviewLedger(Db(), "PC01", 24, false, "20240401");
  ASSERT_TRUE(first.ok) << first.error;
  EXPECT_EQ(Groups(), (std::vector<std::string>{"1:1", "2:1", "3:1", "4:4"}));
  EXPECT_EQ(Count(Db(), "FROM [PRINTED] WHERE [REPORT_NO] = 24"), 4);

  // Orders 2 and 4 now go on one statement: the old group of 2 is dissolved, 4 joins 2.
  Db().Execute("DELETE FROM [WK_SEIKYU]");
  Statement("2,4");
  ASSERT_TRUE(WritePreviewLedger(Db(), "PC01", 24, false, "20240402").ok);
  EXPECT_EQ(Groups(), (std::vector<std::string>{"2:2", "4:2"}));
}

TEST_P(BillingTest, AFailureRollsBackLedgerAndGroups) {
  AddOrder(Db(), {.id = 1, .name = "x"});
  Statement("1,x");
  const auto result = WritePreviewLedger(Db(), "PC01", 24, false, "20240401");
  EXPECT_FALSE(result.ok);
  EXPECT_FALSE(result.error.empty());
  EXPECT_EQ(Count(Db(), "FROM [PRINTED]"), 0);
  EXPECT_EQ(Count(Db(), "FROM [SEIKYU_S]"), 0);
  EXPECT_FALSE(Db().InTransaction());
}

LUPIN_INSTANTIATE_ENGINES(LedgerTest);
LUPIN_INSTANTIATE_ENGINES(BillingTest);

}  // namespace
}  // namespace lupin::run
