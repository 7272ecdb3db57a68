#pragma once
// Character-level helpers of the line breaking; internal to the slips rules.
#include <string>
#include <string_view>
#include <vector>

namespace lupin::reports::crlf {

// The text split at CR LF, as the old runtime's Split did: an empty text gives one empty line.
std::vector<std::string> SplitLines(std::string_view text);
// The lines that are not empty, joined with CR LF.
std::string JoinNonEmpty(const std::vector<std::string>& lines);

// The half-width form of the character is a digit: "1" and "１" alike.
bool IsNumericChar(std::string_view ch);

// 1-based character position of find in text, searching exactly from character start; 0 when absent.
int CharInStr(std::u32string_view text, std::u32string_view find, int start);

}  // namespace lupin::reports::crlf
