#include <gtest/gtest.h>

#include "common/combo.h"

namespace lupin::common {
namespace {

ComboModel Payments() {
  ComboModel combo;
  combo.AddItem("代金引換", 3);
  combo.AddItem("Bank Transfer", 1);
  combo.AddItem("bank transfer", 2);
  combo.AddItem("ＣＯＤ", -5);
  combo.list_index = 1;
  return combo;
}

struct TextCase {
  const char* text;
  int expected;
};

class ComboByTextTest : public ::testing::TestWithParam<TextCase> {};

TEST_P(ComboByTextTest, SelectsFirstMatchIgnoringCase) {
  ComboModel combo = Payments();
  SelectComboByText(combo, GetParam().text);
  EXPECT_EQ(combo.list_index, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Cases, ComboByTextTest,
                         ::testing::Values(TextCase{"代金引換", 0}, TextCase{"BANK TRANSFER", 1},
                                           TextCase{"bank transfer", 1}, TextCase{"ｃｏｄ", 3},
                                           TextCase{"bank", -1}, TextCase{"", -1},
                                           TextCase{"代金引換 ", -1}));

struct DataCase {
  std::int16_t value;
  int expected;
};

class ComboByDataTest : public ::testing::TestWithParam<DataCase> {};

TEST_P(ComboByDataTest, SelectsByItemData) {
  ComboModel combo = Payments();
  SelectComboByData(combo, GetParam().value);
  EXPECT_EQ(combo.list_index, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Cases, ComboByDataTest,
                         ::testing::Values(DataCase{3, 0}, DataCase{2, 2}, DataCase{-5, 3}, DataCase{0, -1},
                                           DataCase{99, -1}));

}  // namespace
}  // namespace lupin::common
