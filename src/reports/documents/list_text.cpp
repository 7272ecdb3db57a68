#include "reports/documents/list_text.h"

#include <cmath>

#include "common/text.h"
#include "common/vb.h"

namespace lupin::reports {

std::string QuantityText(double quantity) {
  if (quantity == std::floor(quantity)) return vb::Format(quantity, "#,##0");
  const std::string fixed = vb::Format(std::fabs(quantity), "0.00");
  const std::string decimals = fixed.substr(fixed.size() - 2);
  if (decimals == "00") return vb::Format(quantity, "#,##0");
  if (decimals[1] == '0') return vb::Format(quantity, "#,##0.0");
  return vb::Format(quantity, "#,##0.00");
}

std::string QuantityTextOfText(std::string_view text) {
  std::string trimmed(text);
  while (!trimmed.empty() && trimmed.front() == ' ') trimmed.erase(trimmed.begin());
  while (!trimmed.empty() && trimmed.back() == ' ') trimmed.pop_back();
  const double value = vb::Val(trimmed);
  const auto dot = trimmed.find('.');
  if (dot == std::string::npos) return vb::Format(value, "#,##0");
  if (trimmed.size() - dot - 1 == 1) return vb::Format(value, "#,##0.0");
  return vb::Format(value, "#,##0.00");
}

std::string NormalizeDateText(std::string_view text, int present_year) {
  const std::string century = std::to_string(present_year).substr(0, 2);
  const auto part = [&](std::size_t from, std::size_t length) { return std::string(text.substr(from, length)); };
  const bool slash = text.find('/') != std::string_view::npos;
  switch (text.size()) {
    case 6: return century + part(0, 2) + "/" + part(2, 2) + "/" + part(4, 2);
    case 8:
      if (slash) return century + part(0, 2) + "/" + part(3, 2) + "/" + part(6, 2);
      return part(0, 4) + "/" + part(4, 2) + "/" + part(6, 2);
    case 10: return part(0, 4) + "/" + part(5, 2) + "/" + part(8, 2);
    default: return std::string(text);
  }
}

std::string DateOfRow(std::string_view text) {
  const auto date = vb::CDate(text);
  return date ? vb::FormatDate(*date, "YYYY/MM/DD") : std::string(text);
}

std::string MoneyText(double value) { return vb::Format(value, "#,##0"); }

}  // namespace lupin::reports
