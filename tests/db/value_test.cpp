// The text and number forms the report code reads fields through.
#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

#include "db/value.h"

namespace lupin::db {
namespace {

TEST(ValueText, PrintsAsTheRuntimeDid) {
  const struct {
    Value value;
    const char* text;
  } cases[] = {
      {Value(), ""},
      {Value(std::int64_t{-9000000000}), "-9000000000"},
      {Value(-0.0), "0"},
      {Value(0.1 + 0.2), "0.3"},
      {Value(1e15), "1E+15"},
      {Value(123456789012345.0), "123456789012345"},
      {Value(0.0001), "0.0001"},
      {Value(0.00001), "1E-05"},
      {Value(1.0 / 3.0), "0.333333333333333"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.value.Text(), c.text);
}

TEST(ValueNumber, ReadsTheLeadingNumberOfTheText) {
  const struct {
    Value value;
    double number;
  } cases[] = {
      {Value(""), 0}, {Value("12abc"), 12}, {Value(" 3.5"), 3.5}, {Value("1E3"), 1000},
  };
  for (const auto& c : cases) EXPECT_DOUBLE_EQ(c.value.Number(), c.number) << c.value.Text();
}

TEST(ValueLong, RoundsHalvesToEven) {
  const struct {
    Value value;
    std::int64_t number;
  } cases[] = {
      {Value(2.5), 2}, {Value(3.5), 4}, {Value(-2.5), -2}, {Value("1.5"), 2}, {Value("12円"), 12},
  };
  for (const auto& c : cases) EXPECT_EQ(c.value.Long(), c.number) << c.value.Text();
  EXPECT_ANY_THROW((void)Value(1e12).Long());
}

// NULL and the empty text are different values, as are a whole and a real number.
TEST(ValueKinds, NullIsNotEmptyTextAndIntegerIsNotReal) {
  EXPECT_TRUE(Value().IsNull());
  EXPECT_NE(Value(""), Value());
  EXPECT_NE(Value(1), Value(1.0));
}

}  // namespace
}  // namespace lupin::db
