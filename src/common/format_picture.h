#pragma once
// Pieces of Format shared by its number, date and text halves.
#include <string>
#include <string_view>
#include <vector>

namespace lupin::vb {

// A double as the runtime saw it: 15 significant decimal digits.
struct Decimal {
  std::string digits;  // no leading zeros; empty for zero
  int exponent = 0;    // value = 0.digits × 10^exponent
  bool negative = false;
};
Decimal DecimalOf(double value);
// Rounds to the given number of decimals, halves away from zero.
Decimal RoundDecimal(Decimal value, int decimals);

// Format with an empty picture: 15 significant digits, exponent form below 1E-4 and from 1E+15.
std::string GeneralNumber(double value);

// The sections of a picture, split at ";" outside quotes.
std::vector<std::string> SplitSections(std::string_view picture);

bool IsDatePicture(std::string_view picture);
bool IsTextMask(std::string_view picture);

std::string FormatNumber(double value, std::string_view picture);
std::string ApplyTextMask(std::string_view text, std::string_view picture);

}  // namespace lupin::vb
