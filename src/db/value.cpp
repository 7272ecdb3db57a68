#include "db/value.h"

#include <charconv>
#include <cmath>
#include <string>

#include "common/vb.h"

namespace lupin::db {
namespace {

// The runtime printed a Double with at most 15 significant digits, switching to "1E+20" style
// from 1E+15 up and below 1E-4.
std::string RealText(double value) {
  if (value == 0 || !std::isfinite(value)) return "0";
  char buffer[40];
  auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, 14);
  std::string_view text(buffer, static_cast<std::size_t>(result.ptr - buffer));

  std::string out;
  if (text.front() == '-') {
    out += '-';
    text.remove_prefix(1);
  }
  const std::size_t e_pos = text.find('e');
  std::string digits;
  for (char c : text.substr(0, e_pos)) {
    if (c != '.') digits += c;
  }
  while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
  int exponent = 0;
  std::string_view exponent_text = text.substr(e_pos + 1);
  if (exponent_text.front() == '+') exponent_text.remove_prefix(1);
  std::from_chars(exponent_text.data(), exponent_text.data() + exponent_text.size(), exponent);

  if (exponent >= 15 || exponent < -4) {
    out += digits.front();
    if (digits.size() > 1) {
      out += '.';
      out.append(digits, 1);
    }
    out += exponent < 0 ? "E-" : "E+";
    const int magnitude = std::abs(exponent);
    if (magnitude < 10) out += '0';
    out += std::to_string(magnitude);
    return out;
  }
  if (exponent < 0) {
    out += "0.";
    out.append(static_cast<std::size_t>(-exponent - 1), '0');
    out += digits;
    return out;
  }
  const auto whole = static_cast<std::size_t>(exponent) + 1;
  if (digits.size() <= whole) {
    out += digits;
    out.append(whole - digits.size(), '0');
  } else {
    out.append(digits, 0, whole);
    out += '.';
    out.append(digits, whole);
  }
  return out;
}

}  // namespace

std::string Value::Text() const {
  switch (data_.index()) {
    case 1: return std::to_string(std::get<std::int64_t>(data_));
    case 2: return RealText(std::get<double>(data_));
    case 3: return std::get<std::string>(data_);
    default: return {};
  }
}

double Value::Number() const {
  if (IsInteger()) return static_cast<double>(std::get<std::int64_t>(data_));
  if (IsText()) return vb::Val(std::get<std::string>(data_));
  if (IsReal()) return vb::Val(Text());
  return 0;
}

std::int64_t Value::Long() const { return vb::CLng(Number()); }

}  // namespace lupin::db
