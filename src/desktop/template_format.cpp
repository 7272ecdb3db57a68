#include <cmath>

#include "common/currency.h"
#include "common/vb.h"
#include "desktop/template.h"

namespace lupin::desktop {

std::optional<std::string> FormatField(std::string_view value, const std::vector<std::string>& parts) {
  if (parts.empty()) return std::string(value);
  std::string current(value);
  try {
    if (parts.front() == "DATE") {
      if (!vb::IsDate(current)) return current;
      for (std::size_t i = 1; i < parts.size(); ++i) {
        const auto date = vb::CDate(current);
        // A format before an offset may have left a text that is no date any more.
        if (!date) return std::nullopt;
        if (vb::IsNumeric(parts[i])) {
          const int days = vb::CLng(vb::Val(parts[i]));
          current = vb::DateText(vb::DateAdd("d", days, *date));
        } else {
          current = vb::FormatDate(*date, parts[i]);
        }
      }
      return current;
    }
    if (!vb::IsNumeric(current)) return current;
    for (const std::string& picture : parts) current = vb::FormatText(current, picture);
    return current;
  } catch (const vb::OverflowError&) {
    return std::nullopt;  // a date or number beyond what the runtime can hold
  }
}

}  // namespace lupin::desktop
