#pragma once
// A field value: Null, integer, real or text, with the habits the old code relied on.
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace lupin::db {

class Value {
 public:
  Value() = default;  // Null
  Value(std::int64_t v) : data_(v) {}
  Value(int v) : data_(std::int64_t{v}) {}
  Value(double v) : data_(v) {}
  Value(std::string v) : data_(std::move(v)) {}
  Value(std::string_view v) : data_(std::string(v)) {}
  Value(const char* v) : data_(std::string(v)) {}

  bool IsNull() const { return std::holds_alternative<std::monostate>(data_); }
  bool IsInteger() const { return std::holds_alternative<std::int64_t>(data_); }
  bool IsReal() const { return std::holds_alternative<double>(data_); }
  bool IsText() const { return std::holds_alternative<std::string>(data_); }

  // `field & ""`: Null reads as "", numbers as the runtime printed them ("12", "0.5", "1E+20").
  std::string Text() const;
  // `Val(field & "")`: the leading number of the text form; Null and "" read as 0.
  double Number() const;
  // `CLng(Val(field & ""))` with banker's rounding.
  std::int64_t Long() const;

  friend bool operator==(const Value&, const Value&) = default;

 private:
  std::variant<std::monostate, std::int64_t, double, std::string> data_;
};

}  // namespace lupin::db
