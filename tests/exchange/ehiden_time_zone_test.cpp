// The delivery time-zone code from the free text of an order.
#include <gtest/gtest.h>

#include <string>

#include "exchange/ehiden_time_zone.h"

namespace lupin::exchange {
namespace {

using G = EhidenGeneration;

struct ZoneCase {
  std::string text;
  G generation;
  bool evening_empty;
  std::string expected;
};

TEST(EhidenTimeZone, MapsTheHourOfTheText) {
  const ZoneCase cases[] = {
      {"", G::III, false, ""},
      {"指定無し", G::III, false, ""},
      {" 指定なし ", G::II, true, ""},
      {"午前中", G::III, false, "01"},
      {"　午前中", G::I, true, "01"},
      {"午後３時", G::III, false, "14"},     // half-width first: 3 + 12 = 15
      {"19:00-21:00", G::III, false, "19"},  // the colon ends the hour
      {"９時～１２時", G::III, false, "01"},
      {"11時", G::III, false, "01"},
      {"12時～14時", G::III, false, "12"},
      {"14-16", G::III, false, "14"},
      {"17時", G::III, false, "16"},
      {"PM4時", G::III, false, "16"},
      {"ｐｍ5", G::III, false, "16"},
      {"18時", G::III, false, "18"},
      {"21時まで", G::III, false, "19"},
      {"22時", G::III, false, ""},
      {"8時", G::III, false, ""},
      {"午後１２時", G::III, false, ""},  // 24 o'clock
      {"時間指定なし", G::III, false, ""},
      {"夜間", G::III, false, ""},
      {"0018", G::III, false, "18"},
      {"12345678901234567890", G::III, false, ""},
      // The older generations send "04" for 18 to 21 o'clock while the fourth free text is empty.
      {"18時", G::II, true, "04"},
      {"18時", G::III, true, "18"},
      {"18時", G::II, false, "18"},
      {"午後8時", G::I, true, "04"},
      {"21時", G::II, true, "04"},
      {"17時", G::II, true, "16"},
      {"22時", G::I, true, ""},
  };
  for (const auto& c : cases)
    EXPECT_EQ(TimeZoneCode(c.text, c.generation, c.evening_empty), c.expected)
        << c.text << " generation " << static_cast<int>(c.generation);
}

}  // namespace
}  // namespace lupin::exchange
