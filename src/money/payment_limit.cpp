#include "money/payment_limit.h"

namespace lupin::money {

int WellNetKigenDays(const settings::Settings& settings) {
  double days = 0;
  try {
    days = vb::Val(settings.GetSetting(0, "0", "WellNetKigenDays"));
  } catch (const vb::OverflowError&) {
    return 0;
  }
  // A term no bill could have (beyond a hundred years either way) counts as no limit.
  return days > -36500 && days < 36500 ? static_cast<int>(days) : 0;
}

std::optional<vb::DateSerial> PaymentLimit(std::string_view bill_date, int kigen_days) {
  if (kigen_days == 0 || kigen_days == 99) return std::nullopt;
  const auto date = vb::CDate(bill_date);
  if (!date) return std::nullopt;
  return vb::DateAdd("d", kigen_days, *date);
}

}  // namespace lupin::money
