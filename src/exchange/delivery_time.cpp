#include "exchange/delivery_time.h"

#include "common/text.h"
#include "common/vb.h"
#include "exchange/field_text.h"

namespace lupin::exchange {
namespace {

// No hour has more than two digits; a longer number reads as one that maps to no code.
int HourOf(std::string_view digits) {
  const double value = vb::Val(digits);
  return value > 99 || value < 0 ? 99 : static_cast<int>(value);
}

}  // namespace

DeliveryTime ParseDeliveryTime(std::string_view delivery_time) {
  DeliveryTime result;
  result.text = RemoveAll(RemoveAll(ReplaceCrLf(TrimBlanks(delivery_time), ""), " "), kWideSpace);
  if (result.text.empty()) return result;
  if (result.text == "指定なし" || result.text == "指定無し" || result.text == "希望なし" || result.text == "希望無し") {
    result.kind = DeliveryTime::Kind::NoWish;
    return result;
  }
  result.kind = DeliveryTime::Kind::Text;
  const std::string upper = text::ToUpper(text::ToNarrow(result.text));
  std::size_t mark = upper.find('-');
  if (mark == std::string::npos) mark = upper.find("～");
  if (mark == std::string::npos) mark = upper.find('~');
  const bool afternoon = upper.starts_with("PM");
  if (mark != std::string::npos) {
    const std::string_view head = std::string_view(upper).substr(0, mark);
    if (!head.empty() && head[0] >= '0' && head[0] <= '9') {
      result.hour = HourOf(head);
    } else if (head.starts_with("AM") || head.starts_with("PM")) {
      result.hour = HourOf(head.substr(2));
    }
  }
  // The afternoon adds 12, so "PM" without an hour reads as noon.
  if (afternoon) result.hour += 12;
  return result;
}

}  // namespace lupin::exchange
