#include <gtest/gtest.h>

#include <array>
#include <utility>

#include "entry/report_definition.h"

namespace lupin::entry {
namespace {

TEST(WhereChecksOption, BitKChecksOptionK) {
  const std::pair<int, std::array<bool, 4>> cases[] = {
      {0, {false, false, false, false}}, {1, {true, false, false, false}}, {10, {false, true, false, true}},
      {15, {true, true, true, true}},
      // Above 15 or below 0 the mask is not read at all.
      {16, {false, false, false, false}}, {26, {false, false, false, false}}, {-1, {false, false, false, false}},
  };
  for (const auto& [where, checked] : cases) {
    for (int k = 0; k < 4; ++k) EXPECT_EQ(WhereChecksOption(where, k), checked[static_cast<std::size_t>(k)]) << where << " " << k;
    EXPECT_FALSE(WhereChecksOption(where, 4));
    EXPECT_FALSE(WhereChecksOption(where, -1));
  }
}

}  // namespace
}  // namespace lupin::entry
