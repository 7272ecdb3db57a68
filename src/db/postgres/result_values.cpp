#include "db/postgres/result_values.h"

#include <charconv>
#include <cstdint>
#include <string>

namespace lupin::db {
namespace {

// Type OIDs are fixed in the server's catalogue.
constexpr Oid kBool = 16;
constexpr Oid kInt8 = 20;
constexpr Oid kInt2 = 21;
constexpr Oid kInt4 = 23;
constexpr Oid kFloat4 = 700;
constexpr Oid kFloat8 = 701;
constexpr Oid kNumeric = 1700;

Value IntegerOf(std::string_view text) {
  std::int64_t number = 0;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return Value(std::string(text));
  return Value(number);
}

Value RealOf(std::string_view text) {
  double number = 0;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return Value(std::string(text));
  return Value(number);
}

}  // namespace

Value ValueOfField(Oid type, std::string_view text) {
  switch (type) {
    case kInt2:
    case kInt4:
    case kInt8: return IntegerOf(text);
    case kFloat4:
    case kFloat8: return RealOf(text);
    case kNumeric: {
      // A whole numeric reads as an integer when it fits; "12.50" and huge ones as a real.
      if (text.find_first_of(".eE") == std::string_view::npos) {
        Value whole = IntegerOf(text);
        if (whole.IsInteger()) return whole;
      }
      return RealOf(text);
    }
    case kBool: return Value(std::int64_t{text == "t" ? 1 : 0});
    default: return Value(std::string(text));
  }
}

}  // namespace lupin::db
