#pragma once
// Text helpers. UTF-8 std::string is the text type everywhere; Shift-JIS (CP932) bytes exist only
// at the edges, as SjisBytes, so that every conversion is visible in the code.
#include <cstdint>
#include <string>
#include <string_view>

namespace lupin::text {

// Bytes in the Windows code page 932. A distinct type so UTF-8 and CP932 never mix by accident.
struct SjisBytes {
  std::string bytes;
  friend bool operator==(const SjisBytes&, const SjisBytes&) = default;
};

// UTF-8 to CP932 with the Windows table (～ 8160, － 817C, ① 8740, ㈱ 878A). A character outside
// CP932 becomes "?" (one byte), as the old runtime did.
SjisBytes ToCp932(std::string_view utf8);
// CP932 to UTF-8; an invalid byte becomes U+FFFD, never an exception.
std::string FromCp932(std::string_view cp932);
// Whether the bytes are well-formed UTF-8 (no stray, overlong or truncated sequence): how a file
// of unknown origin is told from a CP932 one.
bool IsValidUtf8(std::string_view bytes);

// Byte helpers: positions and counts are in CP932 bytes, 1-based like the old runtime. Results
// come back through CP932, so a character outside it comes back as "?".
int ByteLen(std::string_view text);
// The first count bytes; a double-byte character cut in two is left out (one byte less).
std::string ByteLeft(std::string_view text, int count);
// From byte start, count bytes (0: to the end); a lead byte whose partner is cut off is dropped.
std::string ByteMid(std::string_view text, int start, int count = 0);
// 0 single byte, 1 single-byte katakana, 2 lead byte, 3 trail byte, 4 invalid; 0 for an empty text
// or a position past the end, 4 for position 0.
int ByteClass(std::string_view text, int position);
// Byte position of the first place where the piece of text as long as find equals find (compare
// 0 binary, 1 text compare). The walk starts at character 1 whatever start says, and a match at
// character 1 reports 0, the same as no match.
int ByteInStr(std::string_view text, std::string_view find, int start, int compare);
// Every character a Latin letter (mode 1 narrows first, mode 0 does not); other modes false;
// the empty text true in every mode.
bool IsLatinText(std::string_view text, int mode);

// Narrow and wide conversion as Japanese Windows does it (StrConv vbNarrow / vbWide).
std::string ToNarrow(std::string_view text);
std::string ToWide(std::string_view text);
std::string ToLower(std::string_view text);  // ASCII and full-width Latin letters
std::string ToUpper(std::string_view text);

// "Text compare": equality and search that ignore case, width (ｶﾞ equals ガ) and hiragana
// against katakana (vbTextCompare).
bool TextEquals(std::string_view a, std::string_view b);
// 1-based character position of find in text at or after character start, 0 when absent.
int TextInStr(std::string_view text, std::string_view find, int start = 1);
// Replace every occurrence of find (text compare) by with.
std::string TextReplace(std::string_view text, std::string_view find, std::string_view with);

// Characters as the old runtime saw them: one code point each.
int CharLen(std::string_view text);
std::string CharLeft(std::string_view text, int count);
std::string CharMid(std::string_view text, int start, int count = -1);  // 1-based; -1 to the end
std::string CharRight(std::string_view text, int count);
std::u32string ToU32(std::string_view utf8);
std::string FromU32(std::u32string_view text);

}  // namespace lupin::text
