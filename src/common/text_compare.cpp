// Text compare: equal when the texts differ only in case, in width, or in hiragana against
// katakana, as the old runtime's text comparison treated Japanese text.
#include <vector>

#include "common/text.h"
#include "common/text_utf8.h"
#include "common/width.h"

namespace lupin::text {

namespace {

struct Folded {
  std::u32string chars;
  std::vector<std::size_t> origin_char;  // 0-based character of the original where each folded one began
  std::vector<std::size_t> origin_byte;  // byte offset of the same, plus one entry for the end
};

char32_t FoldOne(char32_t c) {
  if (c >= 0xFF01 && c <= 0xFF5E) c = c - 0xFF01 + 0x21;
  switch (c) {
    case 0x3000: c = U' '; break;
    case 0x2019: c = U'\''; break;
    case 0x201D: c = U'"'; break;
    case 0x2212: c = U'-'; break;
    case 0x301C: c = U'~'; break;
    case 0xFFE5: c = 0x00A5; break;
    default: break;
  }
  if ((c >= 0x3041 && c <= 0x3096) || c == 0x309D || c == 0x309E) c += 0x60;  // hiragana → katakana
  return LowerOf(c);
}

Folded Fold(std::string_view text) {
  Folded folded;
  std::vector<std::size_t> offsets;
  std::u32string chars;
  std::size_t pos = 0;
  while (pos < text.size()) {
    offsets.push_back(pos);
    chars.push_back(NextCodePoint(text, pos));
  }
  offsets.push_back(text.size());
  folded.chars.reserve(chars.size());
  std::size_t i = 0;
  while (i < chars.size()) {
    const std::size_t begin = i;
    char32_t c = chars[i];
    if (c >= 0xFF61 && c <= 0xFF9F) {
      c = TakeWide(chars, i);  // ｶﾞ and ガ fold to the same character
    } else {
      ++i;
    }
    folded.chars.push_back(FoldOne(c));
    folded.origin_char.push_back(begin);
    folded.origin_byte.push_back(offsets[begin]);
  }
  folded.origin_char.push_back(chars.size());
  folded.origin_byte.push_back(text.size());
  return folded;
}

}  // namespace

bool TextEquals(std::string_view a, std::string_view b) {
  if (a == b) return true;
  return Fold(a).chars == Fold(b).chars;
}

int TextInStr(std::string_view text, std::string_view find, int start) {
  if (start < 1) start = 1;
  const Folded haystack = Fold(text);
  const Folded needle = Fold(find);
  // The first folded character that begins at or after the start character.
  std::size_t from = 0;
  while (from < haystack.chars.size() && haystack.origin_char[from] < static_cast<std::size_t>(start - 1)) ++from;
  // An empty find is found at the start, as long as the start lies within the text.
  if (needle.chars.empty()) return static_cast<std::size_t>(start) <= haystack.origin_char.back() + 1 ? start : 0;
  const std::size_t found = haystack.chars.find(needle.chars, from);
  if (found == std::u32string::npos) return 0;
  return static_cast<int>(haystack.origin_char[found]) + 1;
}

std::string TextReplace(std::string_view text, std::string_view find, std::string_view with) {
  const Folded needle = Fold(find);
  if (needle.chars.empty()) return std::string(text);
  const Folded haystack = Fold(text);
  std::string out;
  out.reserve(text.size());
  std::size_t copied_byte = 0;
  std::size_t from = 0;
  while (true) {
    const std::size_t found = haystack.chars.find(needle.chars, from);
    if (found == std::u32string::npos) break;
    const std::size_t begin = haystack.origin_byte[found];
    const std::size_t end = haystack.origin_byte[found + needle.chars.size()];
    out.append(text.substr(copied_byte, begin - copied_byte));
    out.append(with);
    copied_byte = end;
    from = found + needle.chars.size();
  }
  out.append(text.substr(copied_byte));
  return out;
}

}  // namespace lupin::text
