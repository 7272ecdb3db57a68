#pragma once
// Engine-internal: the few pieces of PDF syntax the writer prints, made without printf (a dense
// page prints some ten thousand numbers).
#include <cstdint>
#include <string>
#include <string_view>

namespace lupin::engine::pdf {

// At most three decimals (a thousandth of a point is far below what a printer resolves), no
// exponent, no trailing zeros; a value that is not finite prints as 0.
void AppendReal(std::string& out, double value);
void AppendInt(std::string& out, std::int64_t value);
// Four upper-case hex digits: a glyph ID of a two-byte font encoding.
void AppendHex4(std::string& out, std::uint32_t value);
// A text string for the document information: UTF-16BE with its byte order mark, as hex.
std::string TextString(std::string_view utf8);
// A name's characters outside the regular ones written as #xx.
std::string Name(std::string_view text);

}  // namespace lupin::engine::pdf
