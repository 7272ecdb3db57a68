#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "common/format_picture.h"

namespace lupin::vb {

Decimal DecimalOf(double value) {
  Decimal out;
  if (value == 0 || !std::isfinite(value)) return out;
  out.negative = value < 0;
  char buffer[40];
  std::snprintf(buffer, sizeof buffer, "%.14e", std::fabs(value));
  // buffer: d.dddddddddddddde±XX
  std::string digits;
  const char* p = buffer;
  for (; *p != 'e'; ++p) {
    if (*p != '.') digits.push_back(*p);
  }
  const int exponent = std::atoi(p + 1);
  while (!digits.empty() && digits.back() == '0') digits.pop_back();
  out.digits = digits;
  out.exponent = exponent + 1;
  return out;
}

Decimal RoundDecimal(Decimal value, int decimals) {
  const int keep = value.exponent + decimals;  // digits that stay
  if (static_cast<int>(value.digits.size()) <= keep) return value;
  if (keep < 0) return Decimal{};
  const bool up = value.digits[static_cast<std::size_t>(keep)] >= '5';
  value.digits.resize(static_cast<std::size_t>(keep));
  if (up) {
    int i = keep - 1;
    while (i >= 0 && value.digits[static_cast<std::size_t>(i)] == '9') value.digits[static_cast<std::size_t>(i--)] = '0';
    if (i < 0) {
      value.digits.insert(value.digits.begin(), '1');
      ++value.exponent;
    } else {
      ++value.digits[static_cast<std::size_t>(i)];
    }
  }
  while (!value.digits.empty() && value.digits.back() == '0') value.digits.pop_back();
  if (value.digits.empty()) value.exponent = 0;
  return value;
}

std::string GeneralNumber(double value) {
  const Decimal d = DecimalOf(value);
  if (d.digits.empty()) return "0";
  std::string out = d.negative ? "-" : "";
  const int scientific = d.exponent - 1;
  if (scientific < -4 || scientific >= 15) {
    out += d.digits[0];
    if (d.digits.size() > 1) {
      out += '.';
      out.append(d.digits, 1);
    }
    char exponent[16];
    std::snprintf(exponent, sizeof exponent, "E%c%02d", scientific < 0 ? '-' : '+', std::abs(scientific));
    return out + exponent;
  }
  if (d.exponent <= 0) return out + "0." + std::string(static_cast<std::size_t>(-d.exponent), '0') + d.digits;
  if (static_cast<int>(d.digits.size()) <= d.exponent) {
    return out + d.digits + std::string(static_cast<std::size_t>(d.exponent) - d.digits.size(), '0');
  }
  return out + d.digits.substr(0, static_cast<std::size_t>(d.exponent)) + "." +
         d.digits.substr(static_cast<std::size_t>(d.exponent));
}

std::vector<std::string> SplitSections(std::string_view picture) {
  std::vector<std::string> sections(1);
  bool quoted = false;
  for (std::size_t i = 0; i < picture.size(); ++i) {
    const char c = picture[i];
    if (c == '"') quoted = !quoted;
    if (c == '\\' && !quoted && i + 1 < picture.size()) {
      sections.back() += picture.substr(i, 2);
      ++i;
      continue;
    }
    if (c == ';' && !quoted) {
      sections.emplace_back();
      continue;
    }
    sections.back() += c;
  }
  return sections;
}

}  // namespace lupin::vb
