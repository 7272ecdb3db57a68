#include <gtest/gtest.h>

#include <array>

#include "entry/report_definition.h"

namespace lupin::entry {
namespace {

struct WhereCase {
  int where;
  std::array<bool, 4> checked;  // chkChumonOption(0..3)
};

class WhereMaskTest : public ::testing::TestWithParam<WhereCase> {};

TEST_P(WhereMaskTest, BitKChecksOptionK) {
  for (int k = 0; k < 4; ++k) EXPECT_EQ(WhereChecksOption(GetParam().where, k), GetParam().checked[static_cast<std::size_t>(k)]) << k;
  EXPECT_FALSE(WhereChecksOption(GetParam().where, 4));
  EXPECT_FALSE(WhereChecksOption(GetParam().where, -1));
}

INSTANTIATE_TEST_SUITE_P(Masks, WhereMaskTest,
                         ::testing::Values(WhereCase{0, {false, false, false, false}},
                                           WhereCase{1, {true, false, false, false}},
                                           WhereCase{10, {false, true, false, true}},
                                           WhereCase{5, {true, false, true, false}},
                                           WhereCase{15, {true, true, true, true}},
                                           // Above 15 the mask is not read at all.
                                           WhereCase{16, {false, false, false, false}},
                                           WhereCase{17, {false, false, false, false}},
                                           WhereCase{26, {false, false, false, false}},
                                           WhereCase{255, {false, false, false, false}},
                                           WhereCase{-1, {false, false, false, false}}));

}  // namespace
}  // namespace lupin::entry
