#include "reports/slips/slip_boxes.h"

#include "common/text.h"

namespace lupin::reports {

std::vector<std::string> CharBoxes(std::string_view text, int boxes) {
  std::vector<std::string> out(static_cast<std::size_t>(boxes));
  for (int i = 0; i < boxes; ++i) {
    std::string one = text::CharMid(text, i + 1, 1);
    if (one != " ") out[static_cast<std::size_t>(i)] = std::move(one);
  }
  return out;
}

std::string RightAligned(std::string_view text, int places) {
  const int length = text::CharLen(text);
  if (length >= places) return text::CharLeft(text, places);
  return std::string(static_cast<std::size_t>(places - length), ' ') + std::string(text);
}

std::string LastPlaces(std::string_view text, int places) {
  return RightAligned(text::CharRight(text, places), places);
}

std::vector<std::string> SetTelBoxes(std::string_view tel) {
  const std::string number(tel);
  const std::size_t first = number.find('-');
  const std::size_t second = first == std::string::npos ? first : number.find('-', first + 1);
  if (second != std::string::npos && number.find('-', second + 1) == std::string::npos) {
    const std::string a = number.substr(0, first);
    const std::string b = number.substr(first + 1, second - first - 1);
    const std::string c = number.substr(second + 1);
    if (text::CharLen(a) < 6 && text::CharLen(b) <= 4 && text::CharLen(c) == 4) {
      const std::string a_boxes = a + std::string(static_cast<std::size_t>(5 - text::CharLen(a)), ' ');
      return CharBoxes(a_boxes + RightAligned(b, 4) + c, kTelBoxes);
    }
  }
  return CharBoxes(RightAligned(text::TextReplace(tel, "-", ""), kTelBoxes), kTelBoxes);
}

std::string PostcodeDigits(std::string_view postcode) {
  std::string digits;
  for (const char c : text::ToNarrow(postcode)) {
    if (c >= '0' && c <= '9') digits.push_back(c);
  }
  return digits;
}

}  // namespace lupin::reports
