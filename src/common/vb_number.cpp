// Numbers from text and whole-number conversions, with the old runtime's rules.
#include <cmath>
#include <cctype>
#include <cstdlib>
#include <limits>
#include <string>

#include "common/text.h"
#include "common/vb.h"

namespace lupin::vb {

namespace {

bool IsValBlank(char c) { return c == ' ' || c == '\t' || c == '\n'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Val of "&H" and "&O" numbers: up to 16 bits they are Integer, up to 32 bits Long, so
// "&HFFFF" is -1.
double RadixValue(std::string_view digits, int radix) {
  std::uint64_t value = 0;
  for (char c : digits) {
    int digit = 0;
    if (IsDigit(c)) {
      digit = c - '0';
    } else if (radix == 16 && ((c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'))) {
      digit = (c | 0x20) - 'a' + 10;
    } else {
      break;
    }
    if (digit >= radix) break;
    value = value * static_cast<std::uint64_t>(radix) + static_cast<std::uint64_t>(digit);
    if (value > 0xFFFFFFFFu) throw OverflowError();
  }
  if (value <= 0xFFFF) return static_cast<std::int16_t>(static_cast<std::uint16_t>(value));
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

// The Japanese runtime reads full-width digits, signs and blanks as their half-width forms.
std::string HalfWidth(std::string_view text) {
  for (char c : text) {
    if (static_cast<unsigned char>(c) >= 0x80) return text::ToNarrow(text);
  }
  return std::string(text);
}

}  // namespace

double Val(std::string_view raw) {
  const std::string text = HalfWidth(raw);
  // Blanks are dropped wherever they stand, so "1 2" reads 12.
  std::string clean;
  clean.reserve(text.size());
  for (char c : text) {
    if (!IsValBlank(c)) clean.push_back(c);
  }
  if (clean.size() >= 2 && clean[0] == '&') {
    const char kind = static_cast<char>(clean[1] | 0x20);
    if (kind == 'h') return RadixValue(std::string_view(clean).substr(2), 16);
    if (kind == 'o') return RadixValue(std::string_view(clean).substr(2), 8);
    return RadixValue(std::string_view(clean).substr(1), 8);
  }
  std::string number;
  std::size_t i = 0;
  if (i < clean.size() && (clean[i] == '+' || clean[i] == '-')) number.push_back(clean[i++]);
  bool any_digit = false;
  while (i < clean.size() && IsDigit(clean[i])) number.push_back(clean[i++]), any_digit = true;
  if (i < clean.size() && clean[i] == '.') {
    number.push_back(clean[i++]);
    while (i < clean.size() && IsDigit(clean[i])) number.push_back(clean[i++]), any_digit = true;
  }
  if (!any_digit) return 0;
  if (i < clean.size() && (clean[i] == 'e' || clean[i] == 'E' || clean[i] == 'd' || clean[i] == 'D')) {
    std::size_t j = i + 1;
    std::string exponent = "e";
    if (j < clean.size() && (clean[j] == '+' || clean[j] == '-')) exponent.push_back(clean[j++]);
    if (j < clean.size() && IsDigit(clean[j])) {
      while (j < clean.size() && IsDigit(clean[j])) exponent.push_back(clean[j++]);
      number += exponent;
    }
  }
  const double value = std::strtod(number.c_str(), nullptr);
  if (std::isinf(value)) throw OverflowError();
  return value;
}

std::optional<double> NumericValue(std::string_view raw) {
  const std::string text = HalfWidth(raw);
  std::size_t begin = 0;
  std::size_t end = text.size();
  while (begin < end && (text[begin] == ' ' || text[begin] == '\t')) ++begin;
  while (end > begin && (text[end - 1] == ' ' || text[end - 1] == '\t')) --end;
  // A view into text itself, not into a temporary substring.
  const std::string_view s = std::string_view(text).substr(begin, end - begin);
  if (s.empty()) return std::nullopt;
  if (s.size() > 2 && s[0] == '&') {
    const char kind = static_cast<char>(s[1] | 0x20);
    const std::string_view digits = s.substr(kind == 'h' || kind == 'o' ? 2 : 1);
    if (digits.empty()) return std::nullopt;
    for (char c : digits) {
      const bool ok = kind == 'h' ? std::isxdigit(static_cast<unsigned char>(c)) != 0 : (c >= '0' && c <= '7');
      if (!ok) return std::nullopt;
    }
    // Beyond 32 bits the text converts to nothing, so it is no number; the test itself never raises.
    try {
      return Val(s);
    } catch (const OverflowError&) {
      return std::nullopt;
    }
  }
  std::size_t i = 0;
  const auto skip_currency = [&] {
    // The yen sign of the Japanese locale, in its single-byte form or as U+00A5.
    if (i < s.size() && s[i] == '\\') {
      ++i;
    } else if (s.substr(i).starts_with("\xC2\xA5")) {
      i += 2;
    }
  };
  std::string number;
  bool parenthesised = false;
  if (s[i] == '(') parenthesised = true, ++i;
  skip_currency();
  if (!parenthesised && i < s.size() && (s[i] == '+' || s[i] == '-')) number.push_back(s[i++]);
  skip_currency();
  bool any_digit = false;
  // Thousands separators may stand anywhere after the first digit of the whole part.
  for (; i < s.size() && (IsDigit(s[i]) || (s[i] == ',' && any_digit)); ++i) {
    if (s[i] != ',') number.push_back(s[i]), any_digit = true;
  }
  if (i < s.size() && s[i] == '.') {
    number.push_back(s[i++]);
    while (i < s.size() && IsDigit(s[i])) number.push_back(s[i++]), any_digit = true;
  }
  if (!any_digit) return std::nullopt;
  if (i < s.size() && (s[i] == 'e' || s[i] == 'E' || s[i] == 'd' || s[i] == 'D')) {
    number.push_back('e');
    ++i;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) number.push_back(s[i++]);
    if (i >= s.size() || !IsDigit(s[i])) return std::nullopt;
    while (i < s.size() && IsDigit(s[i])) number.push_back(s[i++]);
  }
  if (parenthesised) {
    if (i >= s.size() || s[i] != ')') return std::nullopt;
    ++i;
  }
  if (i != s.size()) return std::nullopt;
  const double value = std::strtod(number.c_str(), nullptr);
  if (std::isinf(value)) return std::nullopt;
  return parenthesised ? -value : value;
}

bool IsNumeric(std::string_view text) { return NumericValue(text).has_value(); }

std::int32_t CLng(double value) {
  const double rounded = std::nearbyint(value);  // the default rounding mode: halves to even
  if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0)) throw OverflowError();
  return static_cast<std::int32_t>(rounded);
}

std::int16_t CInt(double value) {
  const double rounded = std::nearbyint(value);
  if (!(rounded >= -32768.0 && rounded <= 32767.0)) throw OverflowError();
  return static_cast<std::int16_t>(rounded);
}

double Int(double value) { return std::floor(value); }

double Fix(double value) { return std::trunc(value); }

}  // namespace lupin::vb
