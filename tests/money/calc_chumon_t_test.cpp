// Order tax by rate and the CHUMON_T row it leaves, on both engines.
#include <gtest/gtest.h>

#include <unistd.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "common/vb.h"
#include "money/calc_chumon_t.h"
#include "money/errors.h"
#include "support/test_databases.h"
#include "tax_fixture.h"

namespace lupin::money {
namespace {

using fixture::Line;
using fixture::Order;
using vb::Currency;

// Rates in hundredths of a per cent: 1000 is the fraction 0.1.
struct Expected {
  std::array<std::int64_t, 3> rate;
  std::array<std::int32_t, 3> komikin;
  std::array<std::int32_t, 3> zeikin;
};

// Settings stores of their own for each call, so that a saved TaxCheckDate stays in its test.
settings::Settings EmptyStores() {
  struct Root {
    std::filesystem::path path = std::filesystem::temp_directory_path() /
                                 ("lupin_money_calc_" + std::to_string(::getpid()));
    ~Root() { std::filesystem::remove_all(path); }
  };
  static Root root;
  static int counter = 0;
  const auto folder = root.path / std::to_string(++counter);
  std::filesystem::create_directories(folder);
  return settings::Settings(settings::StorePaths::InFolder(folder));
}

void ExpectResults(const clsCalcChumonT& calc, const Expected& e) {
  EXPECT_EQ(calc.Zeirate1(), Currency::FromScaled(e.rate[0]));
  EXPECT_EQ(calc.Zeirate2(), Currency::FromScaled(e.rate[1]));
  EXPECT_EQ(calc.Zeirate3(), Currency::FromScaled(e.rate[2]));
  EXPECT_EQ((std::array{calc.Komikin1(), calc.Komikin2(), calc.Komikin3()}), e.komikin);
  EXPECT_EQ((std::array{calc.Zeikin1(), calc.Zeikin2(), calc.Zeikin3()}), e.zeikin);
}

class CalcChumonTTest : public lupin::testing::EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    fixture::CreateTables(Db());
    fixture::InsertTax(Db(), fixture::StandardRates());
  }

  // Inserts the order, calculates it on a new object and returns that object.
  clsCalcChumonT Run(const Order& order) {
    fixture::InsertOrder(Db(), order);
    clsCalcChumonT calc(EmptyStores());
    calc.SetDb(Db());
    calc.SetId(order.id);
    calc.Calc();
    return calc;
  }

  int ChumonTRows(std::int32_t id) {
    return static_cast<int>(
        Db().Open("SELECT [ID] FROM [CHUMON_T] WHERE [ID] = " + std::to_string(id)).RecordCount());
  }
};

// 1005 normal and 501 reduced without tax, 324 reduced with tax, postage 600 without and fee 330
// with tax, 100 points at 10 % and 24 at 8 %, on 2024/05/01 (10 %, reduced 8 %).
Order MixedOrder(int id, int kind) {
  Order o;
  o.id = id;
  o.postage = 600;
  o.fee = 330;
  o.points_10 = 100;
  o.points_8 = 24;
  o.handling_taxkbn = 1;
  o.tax_calkbn = kind;
  o.lines = {{"1005", "0", "0"}, {"501", "1", "1"}, {"324", "1", "2"}};
  return o;
}

TEST_P(CalcChumonTTest, EveryRoundingKind) {
  // Slot 1: included 330 - 100 = 230, excluded 1605; slot 2: included 324 - 24 = 300, excluded 501.
  // Outer 160.5 and 40.08; inner 2300 / 110 = 20.9091 and 2400 / 108 = 22.2222.
  struct Case {
    int kind;
    Expected expected;
  };
  const std::vector<Case> cases = {
      {0, {{1000, 800, 0}, {1996, 841, 0}, {182, 62, 0}}},
      {1, {{1000, 800, 0}, {1995, 841, 0}, {180, 62, 0}}},
      {2, {{1000, 800, 0}, {1996, 841, 0}, {182, 63, 0}}},
      {3, {{1000, 800, 0}, {1835, 801, 0}, {0, 0, 0}}},
  };
  int id = 10;
  for (const Case& c : cases) {
    SCOPED_TRACE("kind " + std::to_string(c.kind));
    ExpectResults(Run(MixedOrder(id++, c.kind)), c.expected);
  }
}

TEST_P(CalcChumonTTest, SlotRules) {
  struct Case {
    const char* name;
    Order order;
    Expected expected;
  };
  auto order = [](Order o) { return o; };
  const std::vector<Case> cases = {
      {"old_rate_line_takes_points_and_charges",
       order({.id = 20, .postage = 600, .fee = 330, .points_8 = 24, .points_10 = 100, .handling_taxkbn = 1,
              .lines = {{"1000"}, {"2000", "2"}, {"500", "1"}}}),
       // slot 3: included -124 + 330 = 206 (inner 9.8095), excluded 2000 + 600 (outer 130)
       {{1000, 800, 500}, {1100, 540, 2936}, {100, 40, 140}}},
      {"no_reduced_generation_splits_old_order_charges",
       order({.id = 21, .order_date = "2015/01/10", .postage = 600, .fee = 330, .points_10 = 100,
              .shipping_taxkbn = 1, .lines = {{"1000"}, {"2000", "2"}}}),
       // included postage goes to slot 1 (500, inner 37.037), the excluded fee to slot 3 (2330)
       {{800, 0, 500}, {1580, 0, 2447}, {117, 0, 117}}},
      {"declared_includes_drops_untaxed_postage",
       order({.id = 22, .postage = 600, .fee = 330, .handling_taxkbn = 1, .includes_declared = 1,
              .lines = {{"1000"}}}),
       {{1000, 0, 0}, {1430, 0, 0}, {130, 0, 0}}},
      {"included_lines_and_postage",
       order({.id = 23, .postage = 550, .shipping_taxkbn = 1, .lines = {{"1100", "0", "2"}, {"1080", "1", "2"}}}),
       {{1000, 800, 0}, {1650, 1080, 0}, {150, 80, 0}}},
      {"points_beyond_goods_go_negative",
       order({.id = 24, .points_8 = 1000, .lines = {{"100", "1", "2"}}}),
       // -900 × 8 / 108 = -66.67, rounded away from zero; slot 1 was never touched
       {{0, 800, 0}, {0, -900, 0}, {0, -67, 0}}},
      {"order_without_lines",
       order({.id = 26, .postage = 600}),
       {{1000, 0, 0}, {660, 0, 0}, {60, 0, 0}}},
      {"item_tax_2_point_5_is_not_included",
       order({.id = 27, .lines = {{"1100", "0", "2.0"}, {"1100", "1", "2.5"}}}),
       {{1000, 800, 0}, {1100, 1188, 0}, {100, 88, 0}}},
      {"unknown_and_negative_kinds_are_normal",
       order({.id = 28, .lines = {{"1000", "3"}, {"500", "-1"}}}),
       {{1000, 0, 0}, {1650, 0, 0}, {150, 0, 0}}},
      {"lines_summing_to_zero_keep_their_rate",
       order({.id = 29, .lines = {{"500", "1"}, {"-500", "1"}, {"1000"}}}),
       {{1000, 800, 0}, {1100, 0, 0}, {100, 0, 0}}},
      {"zero_old_rate_gives_no_tax",
       order({.id = 30, .order_date = "1990/01/01", .lines = {{"1000", "2", "2"}, {"1000", "0", "0"}}}),
       {{300, 0, 0}, {1030, 0, 1000}, {30, 0, 0}}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ExpectResults(Run(c.order), c.expected);
  }
}

TEST_P(CalcChumonTTest, ChumonTHoldsOneRowWithTheResults) {
  clsCalcChumonT first = Run(MixedOrder(40, 0));
  Db().Execute("INSERT INTO [CHUMON_T]([ID],[ZEIRATE1]) VALUES(41, 0.5)");
  clsCalcChumonT calc(EmptyStores());
  calc.SetDb(Db());
  fixture::InsertOrder(Db(), MixedOrder(41, 2));
  for (int run = 0; run < 2; ++run) {
    calc.SetId(41);
    calc.Calc();
  }
  EXPECT_EQ(ChumonTRows(40), 1);
  EXPECT_EQ(ChumonTRows(41), 1);
  db::Recordset rs = Db().Open("SELECT * FROM [CHUMON_T] WHERE [ID] = 41");
  EXPECT_DOUBLE_EQ(rs["ZEIRATE1"].Number(), 0.1);
  EXPECT_DOUBLE_EQ(rs["ZEIRATE2"].Number(), 0.08);
  EXPECT_DOUBLE_EQ(rs["ZEIRATE3"].Number(), 0);
  EXPECT_EQ(rs["ZEIRATE1KIN"].Long(), calc.Komikin1());
  EXPECT_EQ(rs["ZEIRATE1ZEI"].Long(), 182);
  EXPECT_EQ(rs["ZEIRATE2KIN"].Long(), 841);
  EXPECT_EQ(rs["ZEIRATE2ZEI"].Long(), 63);
  EXPECT_EQ(rs["ZEIRATE3KIN"].Long(), 0);
  EXPECT_EQ(rs["ZEIRATE3ZEI"].Long(), 0);
}

TEST_P(CalcChumonTTest, AMissingOrderFailsAndLeavesItsRowAndResults) {
  clsCalcChumonT calc(EmptyStores());
  calc.SetDb(Db());
  fixture::InsertOrder(Db(), MixedOrder(50, 0));
  calc.SetId(50);
  calc.Calc();
  Db().Execute("INSERT INTO [CHUMON_T]([ID],[ZEIRATE1KIN]) VALUES(51, 777)");
  calc.SetId(51);
  EXPECT_THROW(calc.Calc(), db::DbError);
  EXPECT_EQ(calc.Komikin1(), 1996);
  db::Recordset rs = Db().Open("SELECT [ZEIRATE1KIN] FROM [CHUMON_T] WHERE [ID] = 51");
  ASSERT_FALSE(rs.Eof());
  EXPECT_EQ(rs["ZEIRATE1KIN"].Long(), 777);
}

TEST_P(CalcChumonTTest, LongOverflowRaises) {
  Order o;
  o.id = 60;
  o.lines = {{"2147483647"}, {"1"}};
  fixture::InsertOrder(Db(), o);
  Order points;
  points.id = 61;
  points.order_date = "2015/01/01";  // no reduced rate: both points come off slot 1
  points.points_10 = 2147483647;
  points.points_8 = 2;
  fixture::InsertOrder(Db(), points);
  clsCalcChumonT calc(EmptyStores());
  calc.SetDb(Db());
  for (int id : {60, 61}) {
    calc.SetId(id);
    EXPECT_THROW(calc.Calc(), vb::OverflowError) << id;
    EXPECT_EQ(ChumonTRows(id), 0);
  }
}

TEST_P(CalcChumonTTest, TaxCheckDatePicksTheRateDate) {
  // Ordered before the reduced rate began, shipped after it.
  Order o;
  o.id = 70;
  o.order_date = "2019/09/30";
  o.ship_date = "2019/10/01";
  o.lines = {{"1000"}, {"1000", "1"}};
  fixture::InsertOrder(Db(), o);
  settings::Settings stores = EmptyStores();
  for (const char* mode : {"0", "1"}) {
    SCOPED_TRACE(mode);
    stores.SaveSetting(0, mode, "TaxCheckDate");
    clsCalcChumonT calc(stores);
    calc.SetDb(Db());
    calc.SetId(70);
    calc.Calc();
    if (std::string(mode) == "0") {
      ExpectResults(calc, {{1000, 800, 0}, {1100, 1080, 0}, {100, 80, 0}});
    } else {
      // 2014 rates: everything at 8 %, and the reduced line's slot has no rate at all.
      ExpectResults(calc, {{800, 0, 0}, {1080, 1000, 0}, {80, 0, 0}});
    }
  }
}

LUPIN_INSTANTIATE_ENGINES(CalcChumonTTest);

}  // namespace
}  // namespace lupin::money
