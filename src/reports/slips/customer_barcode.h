#pragma once
// The data of Japan Post's customer barcode: seven postcode digits followed by the digits,
// hyphens and capital letters of the house-number part of the address, at most 20 characters.
// Start and stop codes, control codes for letters, padding and the check digit are the barcode
// element's business.
#include <string>
#include <string_view>

namespace lupin::reports {

// The data field, or the empty text when the postcode is not numeric (no barcode is printed).
std::string MakeCustomerBarcode(std::string_view zip, std::string_view address);

// The steps, in the order MakeCustomerBarcode applies them.
std::string NormalizeLatin(std::string_view text);
std::string RemoveSymbols(std::string_view text);
// Kanji numerals standing in front of an address word (丁目, 番地, 号 …) become digits.
std::string ConvertKanjiNumerals(std::string_view text);
std::string ReduceToDigits(std::string_view text);
std::string CollapseHyphens(std::string_view text);
std::string TrimHyphensAroundLetters(std::string_view text);
// 13 places, of which a letter takes two.
std::string LimitBarcodeUnits(std::string_view text);

// A letter A to Z stands right behind position (1-based), or right before it.
bool IsNextToLetter(std::u32string_view text, int position);

}  // namespace lupin::reports
