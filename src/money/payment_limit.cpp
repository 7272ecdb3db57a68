#include "money/payment_limit.h"

namespace lupin::money {

int WellNetKigenDays(const settings::Settings& settings) {
  return static_cast<int>(vb::Val(settings.GetSetting(0, "0", "WellNetKigenDays")));
}

std::optional<vb::DateSerial> PaymentLimit(std::string_view bill_date, int kigen_days) {
  if (kigen_days == 0 || kigen_days == 99) return std::nullopt;
  const auto date = vb::CDate(bill_date);
  if (!date) return std::nullopt;
  return vb::DateAdd("d", kigen_days, *date);
}

}  // namespace lupin::money
