#include "common/text.h"
#include "common/text_utf8.h"
#include "common/width.h"

namespace lupin::text {

namespace {

template <typename Map>
std::string MapEach(std::string_view text, Map map) {
  std::string out;
  out.reserve(text.size());
  std::size_t pos = 0;
  while (pos < text.size()) AppendUtf8(out, map(NextCodePoint(text, pos)));
  return out;
}

}  // namespace

std::string ToNarrow(std::string_view text) {
  std::u32string narrow;
  narrow.reserve(text.size());
  std::size_t pos = 0;
  while (pos < text.size()) AppendNarrow(narrow, NextCodePoint(text, pos));
  return FromU32(narrow);
}

std::string ToWide(std::string_view text) {
  const std::u32string chars = ToU32(text);
  std::string out;
  out.reserve(text.size() * 2);
  std::size_t pos = 0;
  while (pos < chars.size()) AppendUtf8(out, TakeWide(chars, pos));
  return out;
}

std::string ToLower(std::string_view text) { return MapEach(text, LowerOf); }

std::string ToUpper(std::string_view text) { return MapEach(text, UpperOf); }

}  // namespace lupin::text
