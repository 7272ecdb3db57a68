#pragma once
// Character-level width rules behind ToNarrow, ToWide and text compare.
#include <cstddef>
#include <string>
#include <string_view>

namespace lupin::text {

// Appends the half-width form of one character: one code point, or two for a voiced katakana.
void AppendNarrow(std::u32string& out, char32_t code_point);

// The full-width form of the character at text[pos], combining a following half-width voiced or
// semi-voiced mark where a composed katakana exists; advances pos past what it used.
char32_t TakeWide(std::u32string_view text, std::size_t& pos);

char32_t LowerOf(char32_t code_point);
char32_t UpperOf(char32_t code_point);

}  // namespace lupin::text
