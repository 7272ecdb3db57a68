#pragma once
// The delivery-time text of an order as the Yamato and Yu-Pack files read it: blanks removed, the
// "no wish" words recognised, and the start hour of a range ("14-16", "PM2～4") with the afternoon
// added. Each file maps the result to its own codes.
#include <string>
#include <string_view>

namespace lupin::exchange {

struct DeliveryTime {
  enum class Kind { Empty, NoWish, Text };
  Kind kind = Kind::Empty;
  std::string text;  // without blanks, as written (for the morning words)
  int hour = 0;      // the start hour, 0 when none could be read
};

// From `配達時間帯`: trimmed, CR LF removed, every blank of either width removed; "指定なし",
// "指定無し", "希望なし", "希望無し" are no wish. The hour is read only before a range mark ("-", else
// "～"): after a leading number, or after "AM"/"PM"; "PM" makes it afternoon (12 added).
DeliveryTime ParseDeliveryTime(std::string_view delivery_time);

}  // namespace lupin::exchange
