#pragma once
// The delivery time-zone code of the Sagawa files, from the order's free text.
#include <string>
#include <string_view>

#include "exchange/ehiden_generation.h"

namespace lupin::exchange {

// The code for `配達時間帯` ("01", "12", "14", "16", "18", "19", or "" when none applies). In the
// first two generations the evening hours give "04" while the report's fourth free text is empty.
std::string TimeZoneCode(std::string_view delivery_time, EhidenGeneration generation, bool evening_text_empty);

}  // namespace lupin::exchange
