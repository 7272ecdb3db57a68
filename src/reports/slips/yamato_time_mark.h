#pragma once
// The time-of-day boxes of the Yamato form: which of the six boxes gets a ring for the delivery
// time band the operator typed.
#include <string_view>

namespace lupin::reports {

// Boxes on the form, top to bottom: 1 morning, 2 12-14, 3 14-16, 4 16-18, 5 18-20, 6 20-21.
inline constexpr int kTimeMarkCount = 6;

// The box for a typed time band ("午前中", "14-16", "１４～１６", "PM2-4", "09:00-12:00"), or 0 for
// none. Blanks of either width are ignored; texts that name no band of the form give 0.
int DeliveryTimeMark(std::string_view time_band);

}  // namespace lupin::reports
