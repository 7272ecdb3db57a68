// Byte helpers: widths and positions in CP932 bytes, as the carriers' forms and files count them.
#include <vector>

#include "common/cp932_table.h"
#include "common/text.h"
#include "common/text_utf8.h"

namespace lupin::text {

namespace {

// The character as it comes back from a round trip through CP932.
void AppendRoundTrip(std::string& out, const Cp932Table& table, char32_t code_point) {
  const std::uint16_t code = table.Encode(code_point);
  if (code == Cp932Table::kNoCode) {
    out.push_back('?');
    return;
  }
  AppendUtf8(out, table.Decode(code));
}

// Classes of bytes 1..last; each depends only on the byte and the class before it.
int ClassOfByte(unsigned char byte, int position, int previous_class) {
  if (byte >= 33 && byte <= 63) return 0;
  if (byte >= 64 && byte <= 126) return position == 1 ? 0 : (previous_class == 2 ? 3 : 0);
  if (byte == 128 || byte == 160 || (byte >= 240 && byte <= 252)) return 3;
  if (byte >= 161 && byte <= 223) return position == 1 ? 1 : (previous_class == 2 ? 3 : 0);
  if ((byte >= 129 && byte <= 159) || (byte >= 224 && byte <= 239)) {
    return position == 1 ? 2 : (previous_class == 2 ? 3 : 2);
  }
  return 4;
}

}  // namespace

int ByteLen(std::string_view text) {
  const Cp932Table& table = Cp932Table::Get();
  int length = 0;
  std::size_t pos = 0;
  while (pos < text.size()) {
    if (static_cast<unsigned char>(text[pos]) < 0x80) {
      ++length;
      ++pos;
      continue;
    }
    length += table.Width(NextCodePoint(text, pos));
  }
  return length;
}

std::string ByteLeft(std::string_view text, int count) {
  const Cp932Table& table = Cp932Table::Get();
  std::string out;
  if (count <= 0) return out;
  out.reserve(text.size());
  int used = 0;
  std::size_t pos = 0;
  while (pos < text.size()) {
    const auto byte = static_cast<unsigned char>(text[pos]);
    if (byte < 0x80) {
      if (used + 1 > count) break;
      out.push_back(static_cast<char>(byte));
      ++used;
      ++pos;
      continue;
    }
    const char32_t code_point = NextCodePoint(text, pos);
    const int width = table.Width(code_point);
    // A double-byte character that does not fit whole is left out: the result is a byte short.
    if (used + width > count) break;
    AppendRoundTrip(out, table, code_point);
    used += width;
  }
  return out;
}

std::string ByteMid(std::string_view text, int start, int count) {
  const std::string bytes = ToCp932(text).bytes;
  const int length = static_cast<int>(bytes.size());
  if (start < 1) start = 1;
  if (start > length) return {};
  int end = (count <= 0 || start - 1 + count > length) ? length : start - 1 + count;
  // Drop a lead byte whose partner lies beyond the piece, as ByteLeft does.
  if (end < length) {
    std::size_t i = 0;
    while (static_cast<int>(i) < end) {
      const bool lead = Cp932Table::IsLeadByte(static_cast<unsigned char>(bytes[i])) && i + 1 < bytes.size();
      if (lead && static_cast<int>(i) + 1 == end) {
        --end;
        break;
      }
      i += lead ? 2 : 1;
    }
  }
  if (end < start) return {};
  return FromCp932(std::string_view(bytes).substr(static_cast<std::size_t>(start - 1),
                                                    static_cast<std::size_t>(end - start + 1)));
}

int ByteClass(std::string_view text, int position) {
  if (text.empty()) return 0;
  if (position <= 0) return 4;
  const std::string bytes = ToCp932(text).bytes;
  if (position > static_cast<int>(bytes.size())) return 0;
  int previous = 4;
  for (int p = 1; p <= position; ++p) {
    previous = ClassOfByte(static_cast<unsigned char>(bytes[static_cast<std::size_t>(p - 1)]), p, previous);
  }
  return previous;
}

int ByteInStr(std::string_view text, std::string_view find, int /*start*/, int compare) {
  // The walk always begins at the first character, whatever start says; callers rely on that.
  const Cp932Table& table = Cp932Table::Get();
  const std::size_t find_chars = static_cast<std::size_t>(CharLen(find));
  int bytes_before = 0;
  std::size_t pos = 0;
  bool first = true;
  while (pos < text.size()) {
    const std::string_view rest = text.substr(pos);
    const std::string_view piece = rest.substr(0, OffsetOfChar(rest, find_chars));
    const bool match = compare == 1 ? TextEquals(piece, find) : piece == find;
    // A match at the very first character reports 0, the same as no match.
    if (match) return first ? 0 : bytes_before + 1;
    first = false;
    bytes_before += table.Width(NextCodePoint(text, pos));
  }
  return 0;
}

bool IsLatinText(std::string_view text, int mode) {
  if (text.empty()) return true;
  if (mode != 0 && mode != 1) return false;
  std::size_t pos = 0;
  while (pos < text.size()) {
    const std::size_t begin = pos;
    NextCodePoint(text, pos);
    std::string character(text.substr(begin, pos - begin));
    if (mode == 1) character = ToNarrow(character);
    character = ToLower(character);
    if (character.size() != 1 || character[0] < 'a' || character[0] > 'z') return false;
  }
  return true;
}

}  // namespace lupin::text
