// The pure parts of the demo data: generator, calendar, width forms.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "demo/calendar.h"
#include "demo/people.h"
#include "demo/random.h"
#include "demo/words.h"

namespace lupin::demo {
namespace {

TEST(DemoRandom, SameSeedSameSequenceOtherSeedOtherSequence) {
  Random a(7), b(7), c(8);
  std::vector<std::uint64_t> first, second, third;
  for (int i = 0; i < 50; ++i) {
    first.push_back(a.Next());
    second.push_back(b.Next());
    third.push_back(c.Next());
  }
  EXPECT_EQ(first, second);
  EXPECT_NE(first, third);
}

TEST(DemoRandom, BetweenStaysInRangeAndReachesBothEnds) {
  struct Case { int first, last; };
  for (const auto& c : {Case{1, 6}, Case{0, 0}, Case{-3, 3}, Case{1, 20}}) {
    Random r(42);
    std::set<int> seen;
    for (int i = 0; i < 2000; ++i) {
      const int v = r.Between(c.first, c.last);
      ASSERT_GE(v, c.first);
      ASSERT_LE(v, c.last);
      seen.insert(v);
    }
    EXPECT_EQ(static_cast<int>(seen.size()), c.last - c.first + 1) << c.first << ".." << c.last;
  }
}

TEST(DemoCalendar, DayNumbersRoundTripAndFormat) {
  struct Case { int y, m, d; int days; const char* text; };
  const Case cases[] = {
      {1970, 1, 1, 0, "1970/01/01"},       {2000, 2, 29, 11016, "2000/02/29"}, {2000, 3, 1, 11017, "2000/03/01"},
      {2019, 10, 1, 18170, "2019/10/01"},  {2013, 12, 31, 16070, "2013/12/31"}, {1969, 12, 31, -1, "1969/12/31"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(DaysFromCivil(c.y, c.m, c.d), c.days) << c.text;
    const Civil back = CivilFromDays(c.days);
    EXPECT_EQ(back.year * 10000 + back.month * 100 + back.day, c.y * 10000 + c.m * 100 + c.d);
    EXPECT_EQ(DateText(c.days), c.text);
  }
  // The fiscal year starts in April.
  EXPECT_EQ(FiscalYear(DaysFromCivil(2024, 3, 31)), 2023);
  EXPECT_EQ(FiscalYear(DaysFromCivil(2024, 4, 1)), 2024);
}

TEST(DemoPeople, WidthFormsAndSearchDigits) {
  struct Case { const char* typed; const char* wide; const char* digits; };
  const Case cases[] = {
      {"03-1234-5678", "０３－１２３４－５６７８", "0312345678"},
      {"090-0000-1111", "０９０－００００－１１１１", "09000001111"},
      {"12F", "１２Ｆ", "12"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ToWideAscii(c.typed), c.wide);
    EXPECT_EQ(DigitsOf(c.typed), c.digits);
    EXPECT_EQ(DigitsOf(c.wide), c.digits) << c.wide;
  }
}

TEST(DemoPeople, CoveringPersonsWriteTheirPrefectureAndPlace) {
  Random r(3);
  for (int pref = 0; pref < static_cast<int>(std::size(kPrefectures)); ++pref) {
    for (int place = 0; place < 4; ++place) {
      const Person p = MakePersonIn(r, pref, 50, place);
      const std::string expected = std::string(kPrefectures[pref].name) + std::string(kPrefectures[pref].places[place]);
      EXPECT_EQ(p.address.rfind(expected, 0), 0u) << p.address;
      EXPECT_EQ(p.phone_digits, DigitsOf(p.phone));
      EXPECT_FALSE(p.name.empty());
    }
  }
}

}  // namespace
}  // namespace lupin::demo
