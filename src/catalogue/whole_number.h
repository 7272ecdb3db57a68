#pragma once
// Numbers read as text and narrowed as the old runtime's whole-number variables took them.
#include <cstdint>
#include <limits>
#include <optional>

#include "common/vb.h"

namespace lupin::catalogue {

// Banker's rounding into T; nothing when the value does not fit.
template <typename T>
std::optional<T> WholeNumber(double value) {
  std::int32_t whole = 0;
  try {
    whole = vb::CLng(value);
  } catch (const vb::OverflowError&) {
    return std::nullopt;
  }
  if (whole < static_cast<std::int32_t>(std::numeric_limits<T>::min()) ||
      whole > static_cast<std::int32_t>(std::numeric_limits<T>::max()))
    return std::nullopt;
  return static_cast<T>(whole);
}

}  // namespace lupin::catalogue
