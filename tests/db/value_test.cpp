// The text and number forms the report code reads fields through.
#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>
#include <utility>

#include "db/value.h"

namespace lupin::db {
namespace {

TEST(ValueText, PrintsAsTheRuntimeDid) {
  const std::pair<Value, const char*> cases[] = {
      {Value(std::int64_t{-9000000000}), "-9000000000"}, {Value(-0.0), "0"}, {Value(0.1 + 0.2), "0.3"},
      {Value(1e15), "1E+15"}, {Value(123456789012345.0), "123456789012345"}, {Value(0.0001), "0.0001"},
      {Value(0.00001), "1E-05"}, {Value(1.0 / 3.0), "0.333333333333333"},
  };
  for (const auto& [value, text] : cases) EXPECT_EQ(value.Text(), text);
  // NULL and the empty text are different values, as are a whole and a real number.
  EXPECT_EQ(Value().Text(), "");
  EXPECT_NE(Value(""), Value());
  EXPECT_NE(Value(1), Value(1.0));
}

TEST(ValueNumber, ReadsTheLeadingNumberAndRoundsHalvesToEven) {
  for (const auto& [value, number] : {std::pair{Value("12abc"), 12.0}, {Value(" 3.5"), 3.5}, {Value("1E3"), 1000.0}}) {
    EXPECT_DOUBLE_EQ(value.Number(), number) << value.Text();
  }
  const std::pair<Value, std::int64_t> longs[] = {
      {Value(2.5), 2}, {Value(3.5), 4}, {Value(-2.5), -2}, {Value("1.5"), 2}, {Value("12円"), 12}};
  for (const auto& [value, number] : longs) EXPECT_EQ(value.Long(), number) << value.Text();
  EXPECT_ANY_THROW((void)Value(1e12).Long());
}

}  // namespace
}  // namespace lupin::db
