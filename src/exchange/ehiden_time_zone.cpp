#include "exchange/ehiden_time_zone.h"

#include "common/text.h"
#include "exchange/ehiden_text.h"

namespace lupin::exchange {
namespace {

// The leading run of digits after any non-digits; -1 when there is none. Long runs saturate, as
// no hour has more than two digits.
int LeadingHour(std::string_view narrow) {
  int hour = -1;
  for (const char c : narrow) {
    if (c >= '0' && c <= '9') {
      hour = (hour < 0 ? 0 : hour);
      if (hour < 1000) hour = hour * 10 + (c - '0');
    } else if (hour >= 0) {
      break;
    }
  }
  return hour;
}

}  // namespace

std::string TimeZoneCode(std::string_view delivery_time, EhidenGeneration generation, bool evening_text_empty) {
  const std::string trimmed = TrimBlanks(delivery_time);
  if (trimmed.empty() || trimmed == "指定無し" || trimmed == "指定なし") return {};
  if (trimmed == "午前中") return "01";
  const std::string narrow = NarrowEach(trimmed);
  const std::string head = text::ToLower(text::CharLeft(narrow, 2));
  const bool afternoon = head == "午後" || head == "pm";
  int hour = LeadingHour(narrow);
  if (hour < 0) return {};
  if (afternoon) hour += 12;
  if (generation != EhidenGeneration::III && evening_text_empty && hour >= 18 && hour <= 21) return "04";
  switch (hour) {
    case 9: case 10: case 11: return "01";
    case 12: case 13: return "12";
    case 14: case 15: return "14";
    case 16: case 17: return "16";
    case 18: return "18";
    case 19: case 20: case 21: return "19";
    default: return {};
  }
}

}  // namespace lupin::exchange
