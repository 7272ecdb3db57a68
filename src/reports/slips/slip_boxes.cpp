#include "reports/slips/slip_boxes.h"

#include "common/text.h"
#include "layout/form_fill.h"

namespace lupin::reports {

std::string TelBoxText(std::string_view tel) {
  const std::string number(tel);
  const std::size_t first = number.find('-');
  const std::size_t second = first == std::string::npos ? first : number.find('-', first + 1);
  if (second != std::string::npos && number.find('-', second + 1) == std::string::npos) {
    const std::string a = number.substr(0, first);
    const std::string b = number.substr(first + 1, second - first - 1);
    const std::string c = number.substr(second + 1);
    if (text::CharLen(a) < 6 && text::CharLen(b) <= 4 && text::CharLen(c) == 4) {
      const std::string a_boxes = a + std::string(static_cast<std::size_t>(5 - text::CharLen(a)), ' ');
      return a_boxes + layout::RSet(b, 4) + c;
    }
  }
  return layout::RSet(text::TextReplace(tel, "-", ""), kTelBoxes);
}

std::string PostcodeDigits(std::string_view postcode) {
  std::string digits;
  for (const char c : text::ToNarrow(postcode)) {
    if (c >= '0' && c <= '9') digits.push_back(c);
  }
  return digits;
}

}  // namespace lupin::reports
