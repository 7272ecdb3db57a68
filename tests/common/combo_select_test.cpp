#include <gtest/gtest.h>

#include <utility>

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

TEST(SelectComboByText, SelectsFirstMatchIgnoringCaseAndWidth) {
  const std::pair<const char*, int> cases[] = {{"bank transfer", 1}, {"ｃｏｄ", 3}, {"bank", -1}, {"代金引換 ", -1}};
  for (const auto& [text, expected] : cases) {
    ComboModel combo = Payments();
    SelectComboByText(combo, text);
    EXPECT_EQ(combo.list_index, expected) << text;
  }
}

}  // namespace
}  // namespace lupin::common
