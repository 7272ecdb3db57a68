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
      {" 指定なし ", G::II, true, ""},
      {"９時～１２時", G::III, false, "01"},
      {"ｐｍ5", G::III, false, "16"},
      {"午後１２時", G::III, false, ""},  // 24 o'clock
      {"0018", G::III, false, "18"},
      // The older generations send "04" for 18 to 21 o'clock while the fourth free text is empty;
      // the golden files hold the other forms.
      {"21時", G::II, true, "04"},
      {"17時", G::I, true, "16"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(TimeZoneCode(c.text, c.generation, c.evening_empty), c.expected)
        << c.text << " generation " << static_cast<int>(c.generation);
}

}  // namespace
}  // namespace lupin::exchange
