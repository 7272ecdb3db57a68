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

using ZeiInfoTest = lupin::testing::EngineTest;

TEST_P(ZeiInfoTest, RatesOfTheGenerationInForce) {
  fixture::CreateSchemaWithTax(Db(), {{"1997/04/01", 0, "5", "3"}, {"2019/10/01", 0, "10", "8"},
                                      {"2019/10/01", 1, "8", "0"}, {"2023/10/01", 1, "NULL", "0"},
                                      {"2023/10/01", 0, "11", "NULL"}, {"2023/10/01", 2, "9", "7"},
                                      {"2030/01/01", 0, "12", "10"}});
  struct Case {
    vb::DateSerial kijyun;
    Currency normal, reduced, old;
    bool reduced_exists;
  };
  const std::vector<Case> cases = {
      {Date(1997, 3, 31), {}, {}, {}, false},  // before every generation
      {Date(1997, 4, 1), Percent(500), {}, Percent(300), false},  // the first day applies
      {Date(2019, 10, 1), Percent(1000), Percent(800), Percent(800), true},
      // NULL reads as zero; kind 2 counts as reduced but is no rate.
      {Date(2023, 10, 1), Percent(1100), {}, {}, true},
      // A newer generation without a reduced row has none, though an older one had.
      {Date(2030, 1, 1), Percent(1200), {}, Percent(1000), false},
      // A date before every generation leaves the last rates alone.
      {Date(1980, 1, 1), Percent(1200), {}, Percent(1000), false},
  };
  // One object throughout: each generation replaces everything the one before left. The same
  // answers whether each date asks the database or the table was read at once.
  for (const bool preload : {false, true}) {
    SCOPED_TRACE(preload ? "preloaded" : "per date");
    clsZeiInfo info;
    info.SetDb(Db());
    if (preload) info.PreloadGenerations();
    EXPECT_EQ(info.ReducedStartDate(), Date(2019, 10, 1));
    const auto trips = Db().RoundTrips();
    for (const Case& c : cases) {
      SCOPED_TRACE(vb::FormatDate(c.kijyun, "YYYY/MM/DD"));
      info.SetKijyun(c.kijyun);
      info.GetData();
      EXPECT_EQ(info.NormalRate(), c.normal);
      EXPECT_EQ(info.ReducedRate(), c.reduced);
      EXPECT_EQ(info.OldNormalRate(), c.old);
      EXPECT_EQ(info.IsExistReduced(), c.reduced_exists);
    }
    EXPECT_EQ(Db().RoundTrips() - trips, preload ? 0u : cases.size());
  }
}

// A date written otherwise than "YYYY/MM/DD" compares as text in the database ("2019/10/1" comes
// after "2019/10/05"): the preloaded object then asks the database, so both objects agree with it.
TEST_P(ZeiInfoTest, IrregularTaxDatesAreLeftToTheDatabase) {
  fixture::CreateSchemaWithTax(Db(), {{"2014/04/01", 0, "8", "5"}, {"2019/10/1", 0, "10", "8"},
                                      {"2019/10/1", 1, "8", "0"}});
  clsZeiInfo plain, preloaded;
  plain.SetDb(Db());
  preloaded.SetDb(Db());
  preloaded.PreloadGenerations();
  for (const auto date : {Date(2019, 10, 5), Date(2019, 12, 1)}) {
    SCOPED_TRACE(vb::FormatDate(date, "YYYY/MM/DD"));
    plain.SetKijyun(date);
    plain.GetData();
    preloaded.SetKijyun(date);
    preloaded.GetData();
    EXPECT_EQ(preloaded.NormalRate(), plain.NormalRate());
    EXPECT_EQ(preloaded.IsExistReduced(), plain.IsExistReduced());
  }
  plain.SetKijyun(Date(2019, 10, 5));
  plain.GetData();
  EXPECT_EQ(plain.NormalRate(), Percent(800));  // the text comparison, which the preload must not "fix"
}

TEST_P(ZeiInfoTest, NormalRateOfADate) {
  fixture::CreateSchemaWithTax(Db(), fixture::StandardRates());
  EXPECT_EQ(GetNormalTaxRate(Db(), 0, Date(2019, 9, 30)), Percent(800));
  EXPECT_EQ(GetNormalTaxRate(Db(), 0, Date(1989, 3, 31)), Currency{});
}

TEST_P(ZeiInfoTest, NoReducedRowIsATypeError) {
  fixture::CreateSchemaWithTax(Db(), {{"2014/04/01", 0, "8", "5"}});
  clsZeiInfo info;
  EXPECT_THROW(info.SetDb(Db()), TypeMismatchError);
}

LUPIN_INSTANTIATE_ENGINES(ZeiInfoTest);

TEST(PickTaxDate, PicksTheDecidingDate) {
  struct Case {
    int mode;
    const char *order_date, *planned, *ship, *bill;
    vb::DateSerial expected;
  };
  const Case cases[] = {
      {0, "2019/09/01", "2019/09/10", "2019/09/20", "2019/10/05", Date(2019, 10, 5)},
      {0, "2019/09/01", "2019/09/10", "2019/09/20", "未定", Date(2019, 9, 20)},
      {0, "", "x", "", "2019/13/01", vb::kLowestDate},
      // Any other mode reads the order date alone.
      {1, "2019/09/01", "2019/09/10", "2019/09/20", "2019/10/05", Date(2019, 9, 1)},
      {2, "", "2019/09/10", "2019/09/20", "2019/10/05", vb::kLowestDate},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(PickTaxDate(c.mode, c.order_date, c.planned, c.ship, c.bill), c.expected)
        << c.mode << " " << c.order_date << " " << c.planned << " " << c.ship << " " << c.bill;
  }
}

}  // namespace
}  // namespace lupin::money
