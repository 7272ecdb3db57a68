#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "reports/slips/den_no.h"

namespace lupin::reports {
namespace {

struct SeriesCase {
  const char* name;
  std::string start;
  int count;
  std::vector<std::string> expected;
};

TEST(DenNoSeries, MakesTheSeriesFromTheTypedNumber) {
  const SeriesCase cases[] = {
      // 12345678901 = 7 × 1763668414 + 3; the typed check digit is replaced, not trusted.
      {"WorkedExampleWithHyphens", "1234-5678-9019", 2, {"1234-5678-9013", "1234-5678-9024"}},
      // The body of the second number loses its leading zeros, the hyphens keep their places.
      {"LeadingZerosLostFromTheSecond", "00-1234567890-1", 2, {"00-1234567890-3", "12-345678914-"}},
      {"FullWidthHyphenCounts", "1234－5678－9019", 1, {"1234-5678-9013"}},
      {"CheckDigitWrapsAtSeven", "136", 3, {"136", "140", "151"}},
      {"NonNumericStartGivesZeroBody", "ABC9", 1, {"ABC0"}},
      {"EmptyStartGivesNothing", "", 3, {}},
  };
  for (const auto& c : cases) {
    DenNoSeries series;
    series.PrepareDenNo(c.start);
    series.MakeDenNoSeries(c.start, c.count);
    EXPECT_EQ(series.Series(), c.expected) << c.name;
  }
}

TEST(DenNoCheckDigit, IsTheRemainderBySevenEvenForLongBodies) {
  const struct {
    double body;
    int digit;
  } cases[] = {{7, 0}, {12345678901, 3}, {999999999999999, 999999999999999 % 7}};
  for (const auto& c : cases) EXPECT_EQ(DenNoCheckDigit(c.body), c.digit) << c.body;
}

TEST(DenNoClear, ErasesSeriesAndPositions) {
  DenNoSeries series;
  series.PrepareDenNo("-12-");
  EXPECT_EQ(series.HyphenPositions(), (std::vector<int>{1, 4}));
  EXPECT_EQ(RecordHyphens("123456"), (std::vector<int>{0})) << "no hyphen records a single zero";
  series.MakeDenNoSeries("-12-", 2);
  ASSERT_EQ(series.Series().size(), 2u);
  series.ClearDenNo();
  EXPECT_TRUE(series.Series().empty());
  EXPECT_TRUE(series.HyphenPositions().empty());
}

}  // namespace
}  // namespace lupin::reports
