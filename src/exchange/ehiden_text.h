#pragma once
// Field rules of the Sagawa files: trimming, width conversion per character, byte cuts and the
// 16-character split of names and addresses.
#include <array>
#include <string>
#include <string_view>

namespace lupin::exchange {

// Trim as the Japanese runtime did it: blanks and full-width spaces at both ends.
std::string EhidenTrim(std::string_view text);
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

// Piece 0, 1 or 2 of a text cut into 16-character pieces; pieces 1 and 2 are trimmed before the cut.
std::string Split16(std::string_view text, int part);

// The five lines of a recipient: three of address, two of name (with company and department
// moved where they fit). Inputs are already trimmed and full-width.
std::array<std::string, 5> DistributeAddress(std::string_view address, std::string_view company,
                                             std::string_view department, std::string_view name);

}  // namespace lupin::exchange
