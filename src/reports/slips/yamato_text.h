#pragma once
// Small text rules of the Yamato slip: the postcode boxes, the split of the second report field,
// the delivery date box and the shop's addressee flag.
#include <cstdint>
#include <string>
#include <string_view>

#include "layout/form_fill.h"

namespace lupin::reports {

inline constexpr int kPostcodeBoxes = 7;

// The postcode for its seven boxes, one character a box: hyphens removed, full-width ones too.
std::string PostcodeBoxText(std::string_view postcode);

// FLD_TXT2 printed in two boxes, split at its first hyphen. Without a hyphen nothing prints.
struct MemoPieces {
  std::string memo2, memo3;
};
MemoPieces SplitMemo2(std::string_view fld_txt2);

// "mm   dd" for a date (the year and the words are printed on the form), empty for anything else.
std::string DeliveryDateText(std::string_view delivery_date);

// SHOP.ATENA read as a byte: a value that is no byte (negative, above 255) counts as 0.
using layout::AtenaByte;

}  // namespace lupin::reports
