#include <cmath>
#include <cstdint>

#include "common/vb.h"
#include "desktop/template.h"

namespace lupin::desktop {

namespace {

std::int64_t WholeNumber(double value) {
  const double rounded = std::nearbyint(value);
  if (rounded >= 9.2e18) return INT64_MAX;
  if (rounded <= -9.2e18) return INT64_MIN;
  return static_cast<std::int64_t>(rounded);
}

template <typename T>
bool Compare(const T& left, std::string_view op, const T& right) {
  if (op == "==") return left == right;
  if (op == "!=") return left != right;
  if (op == ">") return left > right;
  if (op == ">=") return left >= right;
  if (op == "<") return left < right;
  if (op == "<=") return left <= right;
  return false;
}

}  // namespace

bool ConditionHolds(std::string_view left, std::string_view op, std::string_view right, const db::Recordset& row) {
  std::string left_value(left);
  if (!row.Eof() && row.HasField(left)) left_value = row[left].Text();

  const bool quoted = right.size() >= 2 && right.front() == '\'' && right.back() == '\'';
  if (quoted) {
    // The bit operators need numbers; on texts they never hold.
    if (op == "&" || op == "|") return false;
    return Compare(std::string_view(left_value), op, right.substr(1, right.size() - 2));
  }

  const double a = vb::Val(left_value);
  const double b = vb::Val(right);
  if (op == "&") return (WholeNumber(a) & WholeNumber(b)) != 0;
  if (op == "|") return WholeNumber(a) != 0 || WholeNumber(b) != 0;
  return Compare(a, op, b);
}

}  // namespace lupin::desktop
