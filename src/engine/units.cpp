#include "engine/units.h"

#include <cmath>

namespace lupin::engine {

std::int32_t TenthsMmToTwips(float tenths, int mode) {
  // The factor is a double literal; the product lands in a single, as it always did.
  const float y = static_cast<float>(static_cast<double>(tenths) * 56.7 / 10.0);
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
