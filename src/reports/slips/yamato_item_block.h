#pragma once
// The item block of the Yamato slip: up to five goods in a fixed-pitch column, 33 bytes a line,
// and a count of the goods that did not fit.
#include <string>
#include <vector>

namespace lupin::reports {

struct ItemLine {
  std::string name;   // ITEM_MEI
  double quantity = 0;  // ITEM_QTY
};

inline constexpr int kItemBlockLines = 5;

// Name left-aligned, quantity right-aligned, CR LF after each line; "他N商品" behind the fifth.
// Every quantity gets two decimals as soon as one of them has a fraction.
std::string ItemBlock(const std::vector<ItemLine>& lines);

}  // namespace lupin::reports
