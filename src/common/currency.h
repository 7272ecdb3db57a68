#pragma once
// Currency: 64-bit signed fixed point with four decimal places, computed as the old runtime did.
#include <cstdint>
#include <stdexcept>
#include <string>

namespace lupin::vb {

// Raised where the old runtime raised "Overflow" (error 6).
struct OverflowError : std::overflow_error {
  OverflowError() : std::overflow_error("オーバーフローしました。") {}
};

// Raised where the old runtime raised "Division by zero" (error 11).
struct DivisionByZeroError : std::domain_error {
  DivisionByZeroError() : std::domain_error("0 で除算しました。") {}
};

class Currency {
 public:
  constexpr Currency() = default;
  static constexpr Currency FromScaled(std::int64_t scaled) { Currency c; c.scaled_ = scaled; return c; }
  static Currency FromLong(std::int64_t whole);  // raises on overflow
  // Rounds to four decimals, halves to even, as the runtime's conversion of a double.
  static Currency FromDouble(double value);
  std::int64_t Scaled() const { return scaled_; }  // value × 10000
  double ToDouble() const;
  // Banker's rounding to a whole number (CLng of a Currency); raises outside the 32-bit range.
  std::int32_t ToLong() const;
  // Shortest decimal text: "0.1", "0.08", "5", "-12.5".
  std::string ToString() const;

  Currency operator+(Currency other) const;  // raise on overflow
  Currency operator-(Currency other) const;
  Currency operator*(Currency other) const;  // exact product rounded to four decimals, halves to even
  Currency operator/(Currency other) const;  // raises on division by zero
  Currency operator-() const;
  friend auto operator<=>(Currency, Currency) = default;

 private:
  std::int64_t scaled_ = 0;
};

}  // namespace lupin::vb
