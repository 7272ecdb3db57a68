// Format's front door: picks the number, date or character-mask rules by the picture.
#include <cctype>

#include "common/format_picture.h"
#include "common/text.h"
#include "common/vb.h"

namespace lupin::vb {

namespace {

// Scans the picture outside quotes and escapes.
template <typename Visit>
void ForEachPictureChar(std::string_view picture, Visit visit) {
  for (std::size_t i = 0; i < picture.size(); ++i) {
    const char c = picture[i];
    if (c == '"') {
      const std::size_t close = picture.find('"', i + 1);
      if (close == std::string_view::npos) return;
      i = close;
    } else if (c == '\\') {
      ++i;
    } else {
      visit(c);
    }
  }
}

// The named pictures of the runtime that the system's data may carry.
std::string_view NamedPicture(std::string_view picture) {
  const std::string name = text::ToLower(picture);
  if (name == "fixed") return "0.00";
  if (name == "standard") return "#,##0.00";
  if (name == "percent") return "0.00%";
  if (name == "short date") return "yyyy/mm/dd";
  if (name == "long date") return "yyyy年m月d日";
  if (name == "long time") return "h:nn:ss";
  if (name == "short time") return "hh:nn";
  return picture;
}

}  // namespace

bool IsDatePicture(std::string_view picture) {
  bool date = false;
  bool number = false;
  ForEachPictureChar(picture, [&](char c) {
    const char lower = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (c == '0' || c == '#' || c == '@' || c == '&') number = true;
    if (std::string_view("ymdhnswqa").find(lower) != std::string_view::npos) date = true;
  });
  return date && !number;
}

bool IsTextMask(std::string_view picture) {
  bool mask = false;
  ForEachPictureChar(picture, [&](char c) { mask |= c == '@' || c == '&'; });
  return mask;
}

std::string ApplyTextMask(std::string_view text, std::string_view picture) {
  const std::string section = SplitSections(picture)[0];
  std::u32string mask;
  std::vector<bool> is_literal;
  bool left_to_right = false;
  int case_mode = 0;  // -1 lower, 1 upper
  for (std::size_t i = 0; i < section.size(); ++i) {
    const char c = section[i];
    if (c == '"') {
      const std::size_t close = section.find('"', i + 1);
      const std::size_t end = close == std::string::npos ? section.size() : close;
      for (char32_t q : text::ToU32(section.substr(i + 1, end - i - 1))) mask.push_back(q), is_literal.push_back(true);
      i = end;
    } else if (c == '\\' && i + 1 < section.size()) {
      const std::u32string escaped = text::ToU32(section.substr(i + 1, 4));
      mask.push_back(escaped[0]), is_literal.push_back(true);
      i += text::FromU32(escaped.substr(0, 1)).size();
    } else if (c == '!') {
      left_to_right = true;
    } else if (c == '<') {
      case_mode = -1;
    } else if (c == '>') {
      case_mode = 1;
    } else {
      const std::size_t start = i;
      while (i + 1 < section.size() && (static_cast<unsigned char>(section[i + 1]) & 0xC0) == 0x80) ++i;
      const std::u32string one = text::ToU32(section.substr(start, i - start + 1));
      mask.push_back(one[0]), is_literal.push_back(c != '@' && c != '&');
    }
  }
  std::string source(text);
  if (case_mode < 0) source = text::ToLower(source);
  if (case_mode > 0) source = text::ToUpper(source);
  const std::u32string chars = text::ToU32(source);

  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < mask.size(); ++i) {
    if (!is_literal[i]) places.push_back(i);
  }
  std::vector<std::u32string> filled(mask.size());
  const std::size_t count = places.size();
  if (count > 0) {
    // Characters fill the places from the right unless "!" asks for the left; characters beyond
    // the places crowd into the outermost place on the other side.
    for (std::size_t k = 0; k < count; ++k) {
      const std::size_t place = left_to_right ? places[k] : places[count - 1 - k];
      if (k < chars.size()) {
        const std::size_t index = left_to_right ? k : chars.size() - 1 - k;
        filled[place] = std::u32string(1, chars[index]);
      } else if (mask[place] == U'@') {
        filled[place].assign(1, U' ');
      }
    }
    if (chars.size() > count) {
      const std::size_t extra = chars.size() - count;
      if (left_to_right) filled[places[count - 1]] += chars.substr(count);
      else filled[places[0]] = chars.substr(0, extra) + filled[places[0]];
    }
  }
  std::u32string out;
  for (std::size_t i = 0; i < mask.size(); ++i) out += is_literal[i] ? std::u32string(1, mask[i]) : filled[i];
  return text::FromU32(out);
}

std::string Format(double value, std::string_view picture) {
  picture = NamedPicture(picture);
  if (picture.empty() || text::ToLower(picture) == "general number") return GeneralNumber(value);
  if (IsTextMask(picture)) return ApplyTextMask(GeneralNumber(value), picture);
  if (IsDatePicture(picture)) return FormatDate(value, picture);
  return FormatNumber(value, picture);
}

std::string FormatText(std::string_view text, std::string_view picture) {
  picture = NamedPicture(picture);
  if (picture.empty()) return std::string(text);
  if (IsTextMask(picture)) return ApplyTextMask(text, picture);
  if (IsDatePicture(picture)) {
    if (const auto date = CDate(text)) return FormatDate(*date, picture);
    const auto number = NumericValue(text);
    if (number && *number > static_cast<double>(kLowestDate) - 1 && *number < 2958466) return FormatDate(*number, picture);
    return std::string(text);
  }
  if (const auto number = NumericValue(text)) return Format(*number, picture);
  return std::string(text);
}

}  // namespace lupin::vb
