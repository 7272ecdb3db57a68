#include "engine/units.h"

#include <cmath>

namespace lupin::engine {

std::int32_t TenthsMmToTwips(float tenths, int mode) {
  const float y = tenths * 56.7f / 10.0f;
  switch (mode) {
    case 1:
      return static_cast<std::int32_t>(std::floor(y));
    case 2: {
      const auto whole = static_cast<std::int64_t>(std::floor(y));
      const auto tenth_digits = static_cast<std::int64_t>(std::floor(y * 10.0f));
      return static_cast<std::int32_t>(tenth_digits % 10 != 0 ? whole + 1 : whole);
    }
    default:
      return static_cast<std::int32_t>(std::nearbyint(y));  // the default rounding is half to even
  }
}

std::int32_t MmToTwips(float millimetres) {
  return TenthsMmToTwips(std::nearbyint(millimetres * 10.0f), 0);
}

}  // namespace lupin::engine
