#pragma once
// Field rules every outside system's file shares: trimming as the Japanese runtime did it, line
// breaks, width conversion one character at a time, and the one Shift-JIS byte cutter.
#include <string>
#include <string_view>

namespace lupin::exchange {

inline constexpr std::string_view kWideSpace = "\xE3\x80\x80";  // U+3000

// Blanks and full-width spaces off both ends.
std::string TrimBlanks(std::string_view text);
// Every CR LF pair replaced by `with` ("" removes it).
std::string ReplaceCrLf(std::string_view text, std::string_view with);
// Full-width, one character at a time: a half-width voiced mark stays a mark of its own and a
// character without a full-width form stays as it is.
std::string WideEach(std::string_view text);
std::string NarrowEach(std::string_view text);

// A trimmed-empty text gives ""; a text within `width` Shift-JIS bytes is kept; otherwise (after
// removing "-" when asked, if that is enough) the leading characters that fit, so a double-byte
// character on the limit is dropped.
std::string CutBytes(int width, std::string_view text, bool remove_hyphens = false);

// Every occurrence of `what` removed.
std::string RemoveAll(std::string_view text, std::string_view what);

}  // namespace lupin::exchange
