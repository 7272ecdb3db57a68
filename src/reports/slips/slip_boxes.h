#pragma once
// Texts written one character a box onto a preprinted form: telephone numbers, postcodes,
// amounts and account digits.
#include <string>
#include <string_view>
#include <vector>

namespace lupin::reports {

// One character a box from the first; a blank or a missing character leaves its box empty, and
// characters beyond the last box are dropped.
std::vector<std::string> CharBoxes(std::string_view text, int boxes);

// The text right-aligned with blanks in `places` characters; a longer text keeps its leftmost
// characters, as the old RSet did.
std::string RightAligned(std::string_view text, int places);
// The last `places` characters, right-aligned with blanks: amounts too long for the boxes lose
// their highest digits.
std::string LastPlaces(std::string_view text, int places);

inline constexpr int kTelBoxes = 13;

// The 13 telephone boxes of the form. "03-1234-5678" puts the area code in boxes 1 to 5 from
// the left, the exchange right-aligned in 6 to 9 and the subscriber number in 10 to 13, so the
// two numbers stand in fixed columns; any other text goes without hyphens, right-aligned.
std::vector<std::string> SetTelBoxes(std::string_view tel);

// The digits of a postcode narrowed to half-width, every other character dropped.
std::string PostcodeDigits(std::string_view postcode);

}  // namespace lupin::reports
