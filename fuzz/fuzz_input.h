#pragma once
// The fuzzer's bytes as text, and a few small numbers taken off their front.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "common/text.h"

namespace lupin::fuzz {

class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

  // One byte as a number, 0 when the input is used up.
  std::uint8_t Byte() {
    if (rest_.empty()) return 0;
    const auto b = static_cast<std::uint8_t>(rest_.front());
    rest_.remove_prefix(1);
    return b;
  }
  // The text up to the next NUL (or the end).
  std::string Piece() {
    const auto nul = rest_.find('\0');
    std::string piece(rest_.substr(0, nul));
    rest_.remove_prefix(nul == std::string_view::npos ? rest_.size() : nul + 1);
    return piece;
  }
  std::string Rest() const { return std::string(rest_); }

 private:
  std::string_view rest_;
};

// A parser of files that arrive as Shift-JIS or UTF-8 meets both: the raw bytes, and the same
// bytes read as Shift-JIS.
template <typename Parse>
int ParseRawAndCp932(const std::uint8_t* data, std::size_t size, Parse parse) {
  const std::string bytes = Input(data, size).Rest();
  parse(bytes);
  parse(text::FromCp932(bytes));
  return 0;
}

// A broken promise of the code under test: says which one and stops with the input saved.
[[noreturn]] inline void Fail(const char* what) {
  std::fprintf(stderr, "fuzz check failed: %s\n", what);
  __builtin_trap();
}

}  // namespace lupin::fuzz
