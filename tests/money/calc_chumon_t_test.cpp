// Order tax by rate and the CHUMON_T row it leaves, on both engines.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "common/vb.h"
#include "entry/context.h"
#include "money/calc_chumon_t.h"
#include "money/errors.h"
#include "support/temp_files.h"
#include "support/test_databases.h"
#include "tax_fixture.h"

namespace lupin::money {
namespace {

using fixture::Order;

// Rates in hundredths of a per cent: 1000 is the fraction 0.1.
struct Expected {
  std::array<std::int64_t, 3> rate;
  std::array<std::int32_t, 3> komikin, zeikin;
};

void ExpectResults(const clsCalcChumonT& c, const Expected& e) {
  EXPECT_EQ((std::array{c.Zeirate1().Scaled(), c.Zeirate2().Scaled(), c.Zeirate3().Scaled()}), e.rate);
  EXPECT_EQ((std::array{c.Komikin1(), c.Komikin2(), c.Komikin3()}), e.komikin);
  EXPECT_EQ((std::array{c.Zeikin1(), c.Zeikin2(), c.Zeikin3()}), e.zeikin);
}

class CalcChumonTTest : public lupin::testing::EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    fixture::CreateSchemaWithTax(Db(), fixture::StandardRates());
  }
  // A settings store of the test's own, so that a saved TaxCheckDate stays in its test.
  settings::Settings Stores() { return settings::Settings(settings::StorePaths::InFolder(folder_)); }
  clsCalcChumonT Run(const Order& order) {
    fixture::InsertOrder(Db(), order);
    clsCalcChumonT calc(Stores());
    calc.SetDb(Db());
    calc.SetId(order.id);
    calc.Calc();
    return calc;
  }
  long ChumonTRows(std::int32_t id) {
    return Db().Open("SELECT [ID] FROM [CHUMON_T] WHERE [ID] = " + std::to_string(id)).RecordCount();
  }
  const lupin::testing::TempFolder temp_{"lupin_money_"};
  const std::filesystem::path& folder_ = temp_.Path();
};

// 1005 normal and 501 reduced without tax, 324 reduced with tax, postage 600 without and fee 330
// with tax, 100 points at 10 % and 24 at 8 %.
Order MixedOrder(int id, int kind) {
  return {.id = id, .postage = 600, .fee = 330, .points_8 = 24, .points_10 = 100, .handling_taxkbn = 1,
          .tax_calkbn = kind, .lines = {{"1005", "0", "0"}, {"501", "1", "1"}, {"324", "1", "2"}}};
}

TEST_P(CalcChumonTTest, RoundingKindsAndSlotRules) {
  // Mixed order: outer 160.5 and 40.08; inner 2300 / 110 = 20.9091 and 2400 / 108 = 22.2222.
  struct Case {
    const char* name;
    Order order;
    Expected expected;
  };
  const std::vector<Case> cases = {
      {"kind 0 half away", MixedOrder(10, 0), {{1000, 800, 0}, {1996, 841, 0}, {182, 62, 0}}},
      {"kind 1 cut", MixedOrder(11, 1), {{1000, 800, 0}, {1995, 841, 0}, {180, 62, 0}}},
      {"kind 2 up", MixedOrder(12, 2), {{1000, 800, 0}, {1996, 841, 0}, {182, 63, 0}}},
      {"kind 3 no tax", MixedOrder(13, 3), {{1000, 800, 0}, {1835, 801, 0}, {0, 0, 0}}},
      // slot 3: included -124 + 330 = 206 (inner 9.8095), excluded 2000 + 600 (outer 130)
      {"old rate line takes points and charges",
       {.id = 20, .postage = 600, .fee = 330, .points_8 = 24, .points_10 = 100, .handling_taxkbn = 1,
        .lines = {{"1000"}, {"2000", "2"}, {"500", "1"}}},
       {{1000, 800, 500}, {1100, 540, 2936}, {100, 40, 140}}},
      // included postage goes to slot 1 (500, inner 37.037), the excluded fee to slot 3 (2330)
      {"no reduced generation splits charges",
       {.id = 21, .order_date = "2015/01/10", .postage = 600, .fee = 330, .points_10 = 100, .shipping_taxkbn = 1,
        .lines = {{"1000"}, {"2000", "2"}}},
       {{800, 0, 500}, {1580, 0, 2447}, {117, 0, 117}}},
      {"declared includes drops untaxed postage",
       {.id = 22, .postage = 600, .fee = 330, .handling_taxkbn = 1, .includes_declared = 1, .lines = {{"1000"}}},
       {{1000, 0, 0}, {1430, 0, 0}, {130, 0, 0}}},
      // -900 × 8 / 108 = -66.67, rounded away from zero; slot 1 was never touched
      {"points beyond goods go negative", {.id = 24, .points_8 = 1000, .lines = {{"100", "1", "2"}}},
       {{0, 800, 0}, {0, -900, 0}, {0, -67, 0}}},
      {"item tax 2.5 is not included", {.id = 27, .lines = {{"1100", "0", "2.0"}, {"1100", "1", "2.5"}}},
       {{1000, 800, 0}, {1100, 1188, 0}, {100, 88, 0}}},
      {"lines summing to zero keep their rate", {.id = 29, .lines = {{"500", "1"}, {"-500", "1"}, {"1000"}}},
       {{1000, 800, 0}, {1100, 0, 0}, {100, 0, 0}}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ExpectResults(Run(c.order), c.expected);
  }
}

// Every run replaces the order's one row; a failing run leaves the row and the results alone.
TEST_P(CalcChumonTTest, ChumonTHoldsOneRowWithTheResults) {
  Db().Execute("INSERT INTO [CHUMON_T]([ID],[ZEIRATE1]) VALUES(50, 0.5)");
  clsCalcChumonT calc = Run(MixedOrder(50, 2));
  calc.Calc();
  ASSERT_EQ(ChumonTRows(50), 1);
  db::Recordset rs = Db().Open("SELECT * FROM [CHUMON_T] WHERE [ID] = 50");
  EXPECT_DOUBLE_EQ(rs["ZEIRATE1"].Number(), 0.1);
  EXPECT_DOUBLE_EQ(rs["ZEIRATE2"].Number(), 0.08);
  EXPECT_EQ((std::array{rs["ZEIRATE1KIN"].Long(), rs["ZEIRATE1ZEI"].Long(), rs["ZEIRATE2KIN"].Long(),
                        rs["ZEIRATE2ZEI"].Long(), rs["ZEIRATE3KIN"].Long()}),
            (std::array<decltype(rs["ZEIRATE1KIN"].Long()), 5>{1996, 182, 841, 63, 0}));
  Db().Execute("INSERT INTO [CHUMON_T]([ID],[ZEIRATE1KIN]) VALUES(51, 777)");
  calc.SetId(51);  // no such order
  EXPECT_THROW(calc.Calc(), db::DbError);
  EXPECT_EQ(calc.Komikin1(), 1996);
  EXPECT_EQ(Db().Open("SELECT [ZEIRATE1KIN] FROM [CHUMON_T] WHERE [ID] = 51")["ZEIRATE1KIN"].Long(), 777);
  fixture::InsertOrder(Db(), {.id = 60, .lines = {{"2147483647"}, {"1"}}});
  calc.SetId(60);
  EXPECT_THROW(calc.Calc(), vb::OverflowError);
  EXPECT_EQ(ChumonTRows(60), 0);
}

TEST_P(CalcChumonTTest, TaxCheckDatePicksTheRateDate) {
  // Ordered before the reduced rate began, shipped after it.
  fixture::InsertOrder(Db(), {.id = 70, .order_date = "2019/09/30", .ship_date = "2019/10/01",
                              .lines = {{"1000"}, {"1000", "1"}}});
  auto calc_with = [&](const char* mode) {
    Stores().SaveSetting(0, mode, "TaxCheckDate");
    clsCalcChumonT calc(Stores());
    calc.SetDb(Db());
    calc.SetId(70);
    calc.Calc();
    return calc;
  };
  ExpectResults(calc_with("0"), {{1000, 800, 0}, {1100, 1080, 0}, {100, 80, 0}});
  // 2014 rates: everything at 8 %, and the reduced line's slot has no rate at all.
  ExpectResults(calc_with("1"), {{800, 0, 0}, {1080, 1000, 0}, {80, 0, 0}});
}

// A store without ResouceMode (a new workstation) runs in dialect 1, whose dates are #YYYY/MM/DD#;
// every dialect must find the same rates, so CHUMON_T is the same whichever the workstation uses.
TEST_P(CalcChumonTTest, EveryDialectGivesTheSameChumonT) {
  fixture::InsertOrder(Db(), MixedOrder(80, 0));
  fixture::InsertOrder(Db(), {.id = 81, .order_date = "2015/01/10", .postage = 600, .shipping_taxkbn = 1,
                              .lines = {{"1000"}, {"2000", "2"}}});
  std::string first;
  for (const char* mode : {static_cast<const char*>(nullptr), "0", "1", "2"}) {
    SCOPED_TRACE(mode ? mode : "no ResouceMode");
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    if (mode) Stores().SaveSetting(0, mode, "ResouceMode");
    entry::Context context(&Db(), settings::StorePaths::InFolder(folder_), folder_);
    entry::InitialiseContextSettings(context);
    EXPECT_EQ(context.dialect, mode ? mode[0] - '0' : 1);
    clsCalcChumonT calc(Stores());
    calc.SetDb(Db(), context.dialect);
    std::string rows;
    for (const std::int32_t id : {80, 81}) {
      calc.SetId(id);
      calc.Calc();
      db::Recordset rs = Db().Open("SELECT * FROM [CHUMON_T] WHERE [ID] = " + std::to_string(id));
      for (const char* column : {"ZEIRATE1", "ZEIRATE1KIN", "ZEIRATE1ZEI", "ZEIRATE2", "ZEIRATE2KIN", "ZEIRATE2ZEI",
                                 "ZEIRATE3", "ZEIRATE3KIN", "ZEIRATE3ZEI"}) {
        rows += rs[column].Text() + ",";
      }
    }
    if (first.empty()) first = rows;
    EXPECT_EQ(rows, first);
  }
  // The mixed order at 10 % and 8 %, the 2015 order at 8 % with the old line's 5 % in slot 3.
  EXPECT_EQ(first, "0.1,1996,182,0.08,841,62,0,0,0,0.08,1680,124,0,0,0,0.05,2100,100,");
}

// A run over many orders reads them, their lines and the TAX table at once: CHUMON_T must come out
// byte for byte as when each order reads itself, and on PostgreSQL a batch of orders costs two
// round trips (the read with BEGIN, the writes with COMMIT), one order alone two as well.
TEST_P(CalcChumonTTest, PrefetchedRunWritesTheSameChumonT) {
  std::vector<Order> orders = {MixedOrder(10, 0), MixedOrder(11, 1), MixedOrder(12, 2), MixedOrder(13, 3),
                               {.id = 14, .order_date = "2015/01/10", .postage = 600, .shipping_taxkbn = 1,
                                .lines = {{"1000"}, {"2000", "2"}}},
                               {.id = 15, .order_date = "2019/09/30", .ship_date = "2019/10/01",
                                .lines = {{"1000"}, {"1000", "1"}}},
                               {.id = 17, .postage = 500},  // no lines
                               {.id = 18, .order_date = "1980/01/01", .lines = {{"300"}}}};
  for (const Order& order : orders) fixture::InsertOrder(Db(), order);
  const auto chumon_t = [&] {
    std::string rows;
    for (db::Recordset rs = Db().Open("SELECT * FROM [CHUMON_T] ORDER BY [ID]"); !rs.Eof(); rs.MoveNext()) {
      for (std::size_t c = 0; c < rs.FieldCount(); ++c) rows += rs.Field(c).Text() + ",";
      rows += "\n";
    }
    Db().Execute("DELETE FROM [CHUMON_T]");
    return rows;
  };
  clsCalcChumonT plain(Stores());
  plain.SetDb(Db());
  for (const Order& order : orders) {
    plain.SetId(order.id);
    plain.Calc();
  }
  const std::string expected = chumon_t();

  clsCalcChumonT calc(Stores());
  calc.SetDb(Db());
  calc.PrepareRun();
  auto trips = Db().RoundTrips();
  db::Transaction transaction(Db());
  calc.Prefetch(10, 18);
  EXPECT_FALSE(calc.IsPrefetched(16));
  for (const Order& order : orders) {
    calc.SetId(order.id);
    calc.Calc();
  }
  transaction.Commit();
  const bool postgres = GetParam() == db::Engine::Postgres;
  if (postgres) {
    EXPECT_EQ(Db().RoundTrips() - trips, 2u);
  }
  EXPECT_EQ(chumon_t(), expected);

  // A list holds only its orders, with the date their rates come from.
  calc.Prefetch(std::vector<std::int32_t>{14, 12});
  EXPECT_TRUE(calc.IsPrefetched(12) && calc.IsPrefetched(14));
  EXPECT_FALSE(calc.IsPrefetched(13));
  EXPECT_EQ(calc.PrefetchedTaxDate(14), vb::CDate("2015/01/10"));
  EXPECT_EQ(calc.PrefetchedTaxDate(13), std::nullopt);

  // One order as `tax --id` runs it; a prefetched row serves once, and an ID without an order
  // still fails as before.
  trips = Db().RoundTrips();
  calc.Prefetch(12, 12);
  calc.SetId(12);
  calc.Calc();
  if (postgres) {
    EXPECT_EQ(Db().RoundTrips() - trips, 2u);
  }
  EXPECT_FALSE(calc.IsPrefetched(12));
  EXPECT_EQ(calc.Komikin1(), 1996);
  calc.Prefetch(16, 16);
  calc.SetId(16);
  EXPECT_THROW(calc.Calc(), db::DbError);
}

LUPIN_INSTANTIATE_ENGINES(CalcChumonTTest);

}  // namespace
}  // namespace lupin::money
