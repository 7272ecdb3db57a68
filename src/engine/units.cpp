#include "engine/units.h"

#include <cmath>

#include "common/vb.h"

namespace lupin::engine {

std::int32_t TenthsMmToTwips(float tenths, int mode) {
  // The factor is a double literal; the product lands in a single, as it always did.
  const float y = static_cast<float>(static_cast<double>(tenths) * 56.7 / 10.0);
  // vb::CLng raises OverflowError for a value beyond a 32-bit position, as the old conversion did.
  switch (mode) {
    case 1:
      return vb::CLng(std::floor(y));
    case 2: {
      const std::int32_t whole = vb::CLng(std::floor(y));
      const double tenth_digit = std::fmod(std::floor(static_cast<double>(y * 10.0f)), 10.0);
      return tenth_digit != 0 ? vb::CLng(static_cast<double>(whole) + 1) : whole;
    }
    default:
      return vb::CLng(y);  // half to even
  }
}

std::int32_t MmToTwips(float millimetres) {
  return TenthsMmToTwips(std::nearbyint(millimetres * 10.0f), 0);
}

}  // namespace lupin::engine
