// Currency: value × 10000 in 64 bits. Products and quotients are exact before their one rounding,
// so a tax of 8% on ¥1,234,567 never drifts the way a double would.
#include <cmath>
#include <limits>

#include "common/currency.h"

namespace lupin::vb {

namespace {

__extension__ typedef __int128 Wide;
__extension__ typedef unsigned __int128 WideUnsigned;

constexpr std::int64_t kScale = 10000;

std::int64_t Checked(Wide value) {
  if (value > std::numeric_limits<std::int64_t>::max() || value < std::numeric_limits<std::int64_t>::min()) {
    throw OverflowError();
  }
  return static_cast<std::int64_t>(value);
}

// numerator / denominator to the nearest whole number, halves to even.
Wide DivideHalfEven(Wide numerator, Wide denominator) {
  if (denominator < 0) numerator = -numerator, denominator = -denominator;
  Wide quotient = numerator / denominator;
  Wide remainder = numerator % denominator;
  if (remainder < 0) remainder += denominator, --quotient;  // floor division
  const Wide twice = remainder * 2;
  if (twice > denominator || (twice == denominator && (quotient & 1) != 0)) ++quotient;
  return quotient;
}

}  // namespace

Currency Currency::FromLong(std::int64_t whole) { return FromScaled(Checked(static_cast<Wide>(whole) * kScale)); }

Currency Currency::FromDouble(double value) {
  const double scaled = std::nearbyint(value * static_cast<double>(kScale));  // default mode: halves to even
  // 2^63 is exactly representable; anything at or beyond it does not fit.
  if (!(scaled >= -9223372036854775808.0 && scaled < 9223372036854775808.0)) throw OverflowError();
  return FromScaled(static_cast<std::int64_t>(scaled));
}

double Currency::ToDouble() const { return static_cast<double>(scaled_) / static_cast<double>(kScale); }

std::int32_t Currency::ToLong() const {
  const Wide whole = DivideHalfEven(scaled_, kScale);
  if (whole > std::numeric_limits<std::int32_t>::max() || whole < std::numeric_limits<std::int32_t>::min()) {
    throw OverflowError();
  }
  return static_cast<std::int32_t>(whole);
}

std::string Currency::ToString() const {
  const bool negative = scaled_ < 0;
  const auto magnitude = static_cast<WideUnsigned>(negative ? -static_cast<Wide>(scaled_) : static_cast<Wide>(scaled_));
  const auto whole = static_cast<std::uint64_t>(magnitude / kScale);
  auto fraction = static_cast<unsigned>(magnitude % kScale);
  std::string out = negative ? "-" : "";
  out += std::to_string(whole);
  if (fraction != 0) {
    std::string digits = std::to_string(fraction);
    digits.insert(0, 4 - digits.size(), '0');
    while (digits.back() == '0') digits.pop_back();
    out += "." + digits;
  }
  return out;
}

Currency Currency::operator+(Currency other) const { return FromScaled(Checked(static_cast<Wide>(scaled_) + other.scaled_)); }

Currency Currency::operator-(Currency other) const { return FromScaled(Checked(static_cast<Wide>(scaled_) - other.scaled_)); }

Currency Currency::operator*(Currency other) const {
  return FromScaled(Checked(DivideHalfEven(static_cast<Wide>(scaled_) * other.scaled_, kScale)));
}

Currency Currency::operator/(Currency other) const {
  if (other.scaled_ == 0) throw DivisionByZeroError();
  return FromScaled(Checked(DivideHalfEven(static_cast<Wide>(scaled_) * kScale, other.scaled_)));
}

Currency Currency::operator-() const { return FromScaled(Checked(-static_cast<Wide>(scaled_))); }

}  // namespace lupin::vb
