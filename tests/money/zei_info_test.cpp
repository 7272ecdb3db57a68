// Tax rates by date from the TAX table, on both engines.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/vb.h"
#include "money/errors.h"
#include "money/tax_date.h"
#include "money/zei_info.h"
#include "support/test_databases.h"
#include "tax_fixture.h"

namespace lupin::money {
namespace {

using vb::Currency;

// A rate given in hundredths of a per cent: 1000 is 10 %, the fraction 0.1.
Currency Percent(std::int64_t hundredths) { return Currency::FromScaled(hundredths); }

vb::DateSerial Date(int y, int m, int d) { return vb::DateSerialOf(y, m, d); }

class ZeiInfoTest : public lupin::testing::EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    fixture::CreateTables(Db());
  }
};

TEST_P(ZeiInfoTest, RatesOfTheGenerationInForce) {
  fixture::InsertTax(Db(), {{"1997/04/01", 0, "5", "3"},
                            {"2019/10/01", 0, "10", "8"},
                            {"2019/10/01", 1, "8", "0"},
                            {"2023/10/01", 1, "6.5", "0"},
                            {"2023/10/01", 0, "11", "10"},
                            {"2030/01/01", 0, "12", "10"}});
  struct Case {
    vb::DateSerial kijyun;
    Currency normal, reduced, old;
    bool reduced_exists;
  };
  const std::vector<Case> cases = {
      {Date(1997, 3, 31), {}, {}, {}, false},  // before every generation, on a new object
      {Date(1997, 4, 1), Percent(500), {}, Percent(300), false},  // the first day applies
      {Date(2019, 10, 1), Percent(1000), Percent(800), Percent(800), true},
      {Date(2023, 10, 1), Percent(1100), Percent(650), Percent(1000), true},
      // A newer generation without a reduced row has none, though an older one had.
      {Date(2030, 1, 1), Percent(1200), {}, Percent(1000), false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(vb::FormatDate(c.kijyun, "YYYY/MM/DD"));
    clsZeiInfo info;
    info.SetDb(Db());
    EXPECT_EQ(info.ReducedStartDate(), Date(2019, 10, 1));
    info.SetKijyun(c.kijyun);
    info.GetData();
    EXPECT_EQ(info.NormalRate(), c.normal);
    EXPECT_EQ(info.ReducedRate(), c.reduced);
    EXPECT_EQ(info.OldNormalRate(), c.old);
    EXPECT_EQ(info.IsExistReduced(), c.reduced_exists);
  }
}

TEST_P(ZeiInfoTest, RatesSurviveADateBeforeEveryGeneration) {
  fixture::InsertTax(Db(), fixture::StandardRates());
  clsZeiInfo info;
  info.SetDb(Db());
  info.SetKijyun(Date(2024, 1, 1));
  info.GetData();
  info.SetKijyun(Date(1980, 1, 1));
  info.GetData();
  EXPECT_EQ(info.NormalRate(), Percent(1000));
  EXPECT_EQ(info.ReducedRate(), Percent(800));
  EXPECT_TRUE(info.IsExistReduced());
  // A later generation without a reduced row does replace everything.
  info.SetKijyun(Date(2015, 1, 1));
  info.GetData();
  EXPECT_EQ(info.NormalRate(), Percent(800));
  EXPECT_FALSE(info.IsExistReduced());
}

TEST_P(ZeiInfoTest, NoReducedRowIsATypeError) {
  fixture::InsertTax(Db(), {{"2014/04/01", 0, "8", "5"}});
  clsZeiInfo info;
  EXPECT_THROW(info.SetDb(Db()), TypeMismatchError);
}

TEST_P(ZeiInfoTest, KindTwoCountsAsReducedButIsNoRate) {
  fixture::InsertTax(Db(), {{"2019/10/01", 1, "8", "0"},
                            {"2020/01/01", 0, "10", "8"},
                            {"2020/01/01", 2, "9", "7"},
                            {"2021/01/01", 2, "9", "7"},
                            {"2021/01/01", 1, "8", "6"},
                            {"2021/01/01", 0, "10", "8"}});
  clsZeiInfo info;
  info.SetDb(Db());
  info.SetKijyun(Date(2020, 6, 1));
  info.GetData();
  EXPECT_TRUE(info.IsExistReduced());
  EXPECT_EQ(info.ReducedRate(), Currency{});
  EXPECT_EQ(info.NormalRate(), Percent(1000));
  EXPECT_EQ(info.OldNormalRate(), Percent(800));
  info.SetKijyun(Date(2021, 6, 1));
  info.GetData();
  EXPECT_EQ(info.ReducedRate(), Percent(800));
  EXPECT_EQ(info.OldNormalRate(), Percent(800));  // the normal row's OLDRATE, not the reduced one's
}

TEST_P(ZeiInfoTest, NullAndTextValuesReadAsZero) {
  fixture::InsertTax(Db(), {{"2019/10/01", 1, "NULL", "NULL"}, {"2019/10/01", 0, "10", "NULL"}});
  clsZeiInfo info;
  info.SetDb(Db());
  info.SetKijyun(Date(2020, 1, 1));
  info.GetData();
  EXPECT_EQ(info.NormalRate(), Percent(1000));
  EXPECT_EQ(info.ReducedRate(), Currency{});
  EXPECT_EQ(info.OldNormalRate(), Currency{});
  EXPECT_TRUE(info.IsExistReduced());
}

TEST_P(ZeiInfoTest, NormalRateOfADate) {
  fixture::InsertTax(Db(), fixture::StandardRates());
  const std::vector<std::pair<vb::DateSerial, Currency>> cases = {
      {Date(1989, 3, 31), {}},
      {Date(1989, 4, 1), Percent(300)},
      {Date(2019, 9, 30), Percent(800)},
      {Date(2019, 10, 1), Percent(1000)},
      {vb::kLowestDate, {}},
  };
  for (const auto& [date, expected] : cases) {
    EXPECT_EQ(GetNormalTaxRate(Db(), 0, date), expected) << vb::FormatDate(date, "YYYY/MM/DD");
  }
}

LUPIN_INSTANTIATE_ENGINES(ZeiInfoTest);

TEST(PickTaxDate, PicksTheDecidingDate) {
  struct Case {
    int mode;
    const char *order_date, *planned, *ship, *bill;
    int y, m, d;  // 0 for the lowest date
  };
  const Case cases[] = {
      {0, "2019/09/01", "2019/09/10", "2019/09/20", "2019/10/05", 2019, 10, 5},
      {0, "2019/09/01", "2019/09/10", "2019/09/20", "未定", 2019, 9, 20},
      {0, "2019/09/01", "2019/09/10", "", "", 2019, 9, 10},
      {0, "2019/09/01", "", "", "", 2019, 9, 1},
      {0, "", "x", "", "2019/13/01", 0, 0, 0},
      // Any other mode reads the order date alone.
      {1, "2019/09/01", "2019/09/10", "2019/09/20", "2019/10/05", 2019, 9, 1},
      {1, "", "2019/09/10", "2019/09/20", "2019/10/05", 0, 0, 0},
      {2, "2019/09/01", "", "2019/09/20", "", 2019, 9, 1},
  };
  for (const Case& c : cases) {
    const vb::DateSerial expected = c.y == 0 ? vb::kLowestDate : Date(c.y, c.m, c.d);
    EXPECT_EQ(PickTaxDate(c.mode, c.order_date, c.planned, c.ship, c.bill), expected)
        << c.mode << " " << c.order_date << " " << c.planned << " " << c.ship << " " << c.bill;
  }
}

}  // namespace
}  // namespace lupin::money
