#pragma once
// The payment limit of a convenience-store bill: the bill date plus the shop's term in days.
#include <optional>
#include <string_view>

#include "common/settings.h"
#include "common/vb.h"

namespace lupin::money {

// The setting WellNetKigenDays (default "0"): days from the bill date to the payment limit.
int WellNetKigenDays(const settings::Settings& settings);

// The bill date plus the term; none for a term of 0 or 99 (the service's "no limit") or a bill
// date that does not read as a date.
std::optional<vb::DateSerial> PaymentLimit(std::string_view bill_date, int kigen_days);

}  // namespace lupin::money
