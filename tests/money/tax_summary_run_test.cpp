// The CHUMON_T rows of a run over many orders: stored rows as they are, missing ones as a new
// clsCalcChumonT per order computes and writes them, on both engines.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "common/vb.h"
#include "money/calc_chumon_t.h"
#include "money/tax_summary_run.h"
#include "support/temp_files.h"
#include "support/test_databases.h"
#include "tax_fixture.h"

namespace lupin::money {
namespace {

using fixture::Order;

class TaxSummaryRunTest : public lupin::testing::EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    fixture::CreateSchemaWithTax(Db(), fixture::StandardRates());
  }
  settings::Settings Stores() { return settings::Settings(settings::StorePaths::InFolder(temp_.Path())); }
  // The orders holding a CHUMON_T row, in ID order.
  std::vector<std::int32_t> RowIds() {
    std::vector<std::int32_t> ids;
    for (db::Recordset rs = Db().Open("SELECT [ID] FROM [CHUMON_T] ORDER BY [ID]"); !rs.Eof(); rs.MoveNext())
      ids.push_back(static_cast<std::int32_t>(rs["ID"].Long()));
    return ids;
  }
  const lupin::testing::TempFolder temp_{"lupin_money_run_"};
};

std::string Text(const TaxSummaryRow& row) {
  std::string text;
  for (std::size_t s = 0; s < 3; ++s)
    text += row.rate[s].Text() + "," + row.komikin[s].Text() + "," + row.zeikin[s].Text() + ";";
  return text;
}

std::string Text(const clsCalcChumonT& c) {
  return c.Zeirate1().ToString() + "," + std::to_string(c.Komikin1()) + "," + std::to_string(c.Zeikin1()) + ";" +
         c.Zeirate2().ToString() + "," + std::to_string(c.Komikin2()) + "," + std::to_string(c.Zeikin2()) + ";" +
         c.Zeirate3().ToString() + "," + std::to_string(c.Komikin3()) + "," + std::to_string(c.Zeikin3()) + ";";
}

TEST_P(TaxSummaryRunTest, RowsAreWhatEachOrderAloneGets) {
  // 11 is dated before every TAX generation and follows an order that has rates: alone it gets none.
  const std::vector<Order> orders = {
      {.id = 10, .postage = 600, .fee = 330, .points_8 = 24, .points_10 = 100, .handling_taxkbn = 1,
       .lines = {{"1005", "0", "0"}, {"501", "1", "1"}, {"324", "1", "2"}}},
      {.id = 11, .order_date = "1980/01/01", .lines = {{"300"}}},
      {.id = 12, .order_date = "2015/01/10", .postage = 600, .shipping_taxkbn = 1, .lines = {{"1000"}, {"2000", "2"}}},
      {.id = 14, .postage = 500}};
  std::vector<std::string> alone;
  for (const Order& order : orders) {
    fixture::InsertOrder(Db(), order);
    clsCalcChumonT calc(Stores());
    calc.SetDb(Db());
    calc.SetId(order.id);
    calc.Calc();
    alone.push_back(Text(calc));
  }
  Db().Execute("DELETE FROM [CHUMON_T]");
  // A stored row is taken as it stands, even for an order that is gone.
  Db().Execute("INSERT INTO [CHUMON_T]([ID],[ZEIRATE1],[ZEIRATE1KIN],[ZEIRATE1ZEI]) VALUES(13,0.1,1234,5)");

  TaxSummaryRun run(Stores(), Db(), 0);
  run.SetOrders({10, 11, 12, 13, 14, 99});
  for (std::size_t i = 0; i < orders.size(); ++i) {
    const TaxSummaryRow* row = run.Row(orders[i].id);
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(Text(*row), alone[i]) << orders[i].id;
  }
  const TaxSummaryRow* stored = run.Row(13);
  ASSERT_NE(stored, nullptr);
  EXPECT_EQ(stored->komikin[0].Number() + stored->zeikin[0].Number(), 1239);
  EXPECT_TRUE(stored->rate[1].IsNull());
  EXPECT_EQ(run.Reads(), 2) << "the batch's CHUMON_T rows and its orders, one statement each";
  EXPECT_EQ(RowIds(), (std::vector<std::int32_t>{10, 11, 12, 13, 14}));
  // An order without a row or an order fails as alone; one outside the list is the caller's.
  EXPECT_THROW(run.Row(99), db::DbError);
  EXPECT_EQ(run.Row(7), nullptr);
}

TEST_P(TaxSummaryRunTest, OrdersLeftOutOrAfterAFailureAreCalculatedWhenAsked) {
  const std::vector<Order> orders = {
      {.id = 24, .lines = {{"3000000000"}}},             // a price beyond a Long: unreadable
      {.id = 20, .lines = {{"1000"}}},                   //
      {.id = 21, .order_date = "2015/01/10", .lines = {{"1000"}}},  // left out by the caller
      {.id = 22, .lines = {{"2147483647"}, {"1"}}},      // overflows in the calculation
      {.id = 23, .lines = {{"2000"}}}};
  std::vector<std::int32_t> ids;
  for (const Order& order : orders) {
    fixture::InsertOrder(Db(), order);
    ids.push_back(order.id);
  }
  const auto reduced_from = *vb::CDate("2019/10/01");
  TaxSummaryRun run(Stores(), Db(), 0, [&](vb::DateSerial date) { return date >= reduced_from; });
  run.SetOrders(ids);
  ASSERT_NE(run.Row(20), nullptr);
  EXPECT_EQ(run.Row(20)->komikin[0].Number(), 1100);
  EXPECT_EQ(RowIds(), (std::vector<std::int32_t>{20})) << "the batch stops at the failing order";
  EXPECT_THROW(run.Row(24), vb::OverflowError);
  EXPECT_THROW(run.Row(22), vb::OverflowError);
  EXPECT_EQ(run.Row(23)->komikin[0].Number(), 2200);
  EXPECT_EQ(run.Row(21)->komikin[0].Number(), 1080);
  EXPECT_EQ(RowIds(), (std::vector<std::int32_t>{20, 21, 23}));
}

LUPIN_INSTANTIATE_ENGINES(TaxSummaryRunTest);

}  // namespace
}  // namespace lupin::money
