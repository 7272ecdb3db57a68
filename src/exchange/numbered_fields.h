#pragma once
// A record's fields by their 1-based numbers, as the carriers' layouts count them; a field never
// set stays empty.
#include <string>
#include <vector>

namespace lupin::exchange {

class NumberedFields {
 public:
  explicit NumberedFields(int count) : values_(static_cast<std::size_t>(count)) {}
  void Set(int no, std::string value) { values_.at(static_cast<std::size_t>(no - 1)) = std::move(value); }
  void SetRun(int first, const auto& values) {
    for (const auto& value : values) Set(first++, value);
  }
  const std::vector<std::string>& Values() const { return values_; }

 private:
  std::vector<std::string> values_;
};

}  // namespace lupin::exchange
