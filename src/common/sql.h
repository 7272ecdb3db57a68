#pragma once
// SQL text helpers and the dialect table: statements are built as text, exactly as always.
#include <string>
#include <string_view>

namespace lupin::sql {

std::string SqlQuote(std::string_view text);     // doubles every apostrophe
std::string NumericText(std::string_view text);  // digits, one ".", "-" only first; "" → "0"

// Dialect fragments by mode (0, 1, 2 = base 100, 200, 300) and index 1..7; "" for another mode.
std::string DialectFragment(int dialect, int index);
// The fragment with every "%FIELD%" replaced by field.
std::string DialectField(int dialect, int index, std::string_view field);

}  // namespace lupin::sql
