#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "common/sql.h"

namespace lupin::sql {
namespace {

using TextCase = std::pair<const char*, const char*>;

TEST(SqlQuote, DoublesEveryApostrophe) {
  const TextCase cases[] = {{"''", "''''"}, {"山田's 店", "山田''s 店"}, {"\"x\"", "\"x\""}};
  for (const auto& [input, expected] : cases) EXPECT_EQ(SqlQuote(input), expected) << input;
}

TEST(NumericText, KeepsOnlyANumber) {
  const TextCase cases[] = {{"", "0"}, {"-12", "-12"}, {"1-2", "12"}, {"1.2.3", "1.23"}, {"¥1,234円", "1234"},
                            {" -1", "1"}, {"-", "-"}, {"１２", "0"}};
  for (const auto& [input, expected] : cases) EXPECT_EQ(NumericText(input), expected) << input;
}

TEST(Dialect, FragmentByModeAndIndex) {
  const struct {
    int mode, index;
    const char* fragment;
  } cases[] = {
      {0, 1, "'"}, {1, 1, "#"}, {2, 1, "'"}, {1, 4, "FORMAT(%FIELD%)"}, {2, 7, "\"%FIELD%\""},
      // Another mode or an index outside the table yields the empty fragment.
      {3, 1, ""}, {1, 0, ""}, {1, 8, ""},
  };
  for (const auto& c : cases) EXPECT_EQ(DialectFragment(c.mode, c.index), c.fragment) << c.mode << "/" << c.index;
}

}  // namespace
}  // namespace lupin::sql
