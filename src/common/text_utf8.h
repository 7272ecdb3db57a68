#pragma once
// UTF-8 walking shared by the text helpers; not part of the public interface of the folder.
#include <cstddef>
#include <string>
#include <string_view>

namespace lupin::text {

inline constexpr char32_t kReplacementChar = 0xFFFD;

// Decodes the code point at pos and advances pos. A malformed sequence yields U+FFFD and
// consumes one byte, so a walk always ends.
char32_t NextCodePoint(std::string_view text, std::size_t& pos);

void AppendUtf8(std::string& out, char32_t code_point);

// Byte offset of the character with the given 0-based index, or text.size() past the end.
std::size_t OffsetOfChar(std::string_view text, std::size_t char_index);

}  // namespace lupin::text
