// The width forms and search digits of the demo's telephone numbers and addresses. (Determinism,
// dates and the places covered are checked on the written rows, in demo_data_test.)
#include <gtest/gtest.h>

#include "demo/people.h"

namespace lupin::demo {
namespace {

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

}  // namespace
}  // namespace lupin::demo
