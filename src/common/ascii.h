#pragma once
// Names (settings keys, fields, controls) compare as the old runtime's collections did: ASCII letters
// without regard to case, every other character exactly.
#include <string>
#include <string_view>

namespace lupin::text {

constexpr char FoldAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

inline std::string FoldAscii(std::string_view text) {
  std::string folded(text);
  for (char& c : folded) c = FoldAscii(c);
  return folded;
}

constexpr bool EqualsAsciiNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (FoldAscii(a[i]) != FoldAscii(b[i])) return false;
  }
  return true;
}

}  // namespace lupin::text
