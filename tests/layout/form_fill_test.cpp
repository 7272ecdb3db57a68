// The two ways the forms right-align a figure in its boxes: amounts lose their highest digits, the
// old RSet keeps the left of a text too long (telephones, account numbers).
#include <gtest/gtest.h>

#include "layout/form_fill.h"

namespace lupin::layout {
namespace {

TEST(RightAlignment, AmountsLoseTheirHighDigitsRSetKeepsTheLeft) {
  const struct {
    const char* text;
    int width;
    const char* right_aligned;
    const char* rset;
  } cases[] = {
      {"123", 5, "  123", "  123"},
      {"-50", 7, "    -50", "    -50"},
      {"12345678", 7, "2345678", "1234567"},
      {"５３０", 4, " ５３０", " ５３０"},
      {"", 3, "   ", "   "},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(RightAligned(c.text, c.width), c.right_aligned) << c.text;
    EXPECT_EQ(RSet(c.text, c.width), c.rset) << c.text;
  }
}

}  // namespace
}  // namespace lupin::layout
