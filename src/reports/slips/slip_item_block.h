#pragma once
// The item block of a slip: up to five goods in a fixed-pitch column and a count of the goods
// that did not fit.
#include <string>
#include <vector>

namespace lupin::reports {

struct ItemLine {
  std::string name;   // ITEM_MEI
  double quantity = 0;  // ITEM_QTY
};

// The byte widths of the name and quantity columns; a double-byte character whose first byte
// falls on the last byte of the name column moves the split to the astride widths.
struct ItemColumns {
  int name_bytes = 25, quantity_bytes = 8;
  int astride_name_bytes = 24, astride_quantity_bytes = 9;
};

inline constexpr int kItemBlockLines = 5;

// Name left-aligned, quantity right-aligned, CR LF after each line; "他N商品" behind the fifth.
// Every quantity gets two decimals as soon as one of them has a fraction.
std::string ItemBlock(const std::vector<ItemLine>& lines, const ItemColumns& columns = {});

}  // namespace lupin::reports
