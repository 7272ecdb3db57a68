#include "exchange/field_text.h"

#include "common/text.h"
#include "common/width.h"

namespace lupin::exchange {
namespace {

bool StartsWithSpace(std::string_view text, std::size_t& length) {
  if (text.starts_with(' ')) return length = 1, true;
  if (text.starts_with(kWideSpace)) return length = kWideSpace.size(), true;
  return false;
}

bool EndsWithSpace(std::string_view text, std::size_t& length) {
  if (text.ends_with(' ')) return length = 1, true;
  if (text.ends_with(kWideSpace)) return length = kWideSpace.size(), true;
  return false;
}

}  // namespace

std::string TrimBlanks(std::string_view text) {
  std::size_t length = 0;
  while (StartsWithSpace(text, length)) text.remove_prefix(length);
  while (EndsWithSpace(text, length)) text.remove_suffix(length);
  return std::string(text);
}

std::string ReplaceCrLf(std::string_view text, std::string_view with) {
  std::string out;
  out.reserve(text.size());
  std::size_t from = 0;
  for (std::size_t at = text.find("\r\n"); at != std::string_view::npos; at = text.find("\r\n", from)) {
    out.append(text.substr(from, at - from)).append(with);
    from = at + 2;
  }
  out.append(text.substr(from));
  return out;
}

std::string RemoveAll(std::string_view text, std::string_view what) {
  if (what.empty() || text.find(what) == std::string_view::npos) return std::string(text);
  std::string out;
  std::size_t from = 0;
  for (std::size_t at = text.find(what); at != std::string_view::npos; at = text.find(what, from)) {
    out.append(text.substr(from, at - from));
    from = at + what.size();
  }
  out.append(text.substr(from));
  return out;
}

std::string WideEach(std::string_view text) {
  std::u32string chars = text::ToU32(text);
  for (char32_t& c : chars) {
    // Each character alone, so a following voiced mark is never joined to it.
    std::size_t pos = 0;
    c = text::TakeWide(std::u32string_view(&c, 1), pos);
  }
  return text::FromU32(chars);
}

std::string NarrowEach(std::string_view text) { return text::ToNarrow(text); }

std::string CutBytes(int width, std::string_view text, bool remove_hyphens) {
  if (TrimBlanks(text).empty()) return {};
  if (text::ByteLen(text) <= width) return std::string(text);
  std::string cut(text);
  if (remove_hyphens) {
    std::erase(cut, '-');
    if (text::ByteLen(cut) <= width) return cut;
  }
  return text::ByteLeft(cut, width);
}

}  // namespace lupin::exchange
