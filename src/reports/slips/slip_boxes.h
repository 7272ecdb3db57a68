#pragma once
// What the slips write one character a box (layout::FillBoxes does the boxes): the telephone
// number's layout in its 13 boxes and the digits of a postcode.
#include <string>
#include <string_view>

namespace lupin::reports {

inline constexpr int kTelBoxes = 13;

// The 13 telephone boxes of the form, one character a box. "03-1234-5678" puts the area code in
// boxes 1 to 5 from the left, the exchange right-aligned in 6 to 9 and the subscriber number in 10
// to 13, so the two numbers stand in fixed columns; any other text goes without hyphens,
// right-aligned.
std::string TelBoxText(std::string_view tel);

// The digits of a postcode narrowed to half-width, every other character dropped.
std::string PostcodeDigits(std::string_view postcode);

}  // namespace lupin::reports
