#pragma once
// Character-level helpers of the line breaking; internal to the slips rules.
#include <cstddef>
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
bool IsNumericChar(char32_t ch);

// One character of a UTF-8 text: its code point, where it starts and its bytes in CP932.
struct CharAt {
  char32_t code_point;
  std::size_t offset;
  std::size_t length;
  int sjis_bytes;
};
std::vector<CharAt> Characters(std::string_view text);

// The 1-based CP932 byte position of the first blank of either width, as ByteInStr with text
// compare reports it: 0 when there is none and also when the blank is the first character.
int BlankBytePosition(std::string_view text);
// The same for a digit (0 to 9) at either width.
int DigitBytePosition(std::string_view text, char32_t digit);

// 1-based character position of find in text, searching exactly from character start; 0 when absent.
int CharInStr(std::u32string_view text, std::u32string_view find, int start);

}  // namespace lupin::reports::crlf
