#pragma once
// Millimetres to twips by the system's own factor of 56.7 twips per millimetre (not 1440/25.4):
// every preprinted form was adjusted with it.
#include <cstdint>

namespace lupin::engine {

// tenths: tenths of a millimetre. Mode 0 rounds half to even, 1 cuts down, 2 rounds up when the
// first decimal is not zero; any other mode acts as 0. Single-precision throughout, as always.
// A result beyond 32 bits raises vb::OverflowError.
std::int32_t TenthsMmToTwips(float tenths, int mode);
// A format-file value in millimetres: to tenths (half to even), then mode 0.
std::int32_t MmToTwips(float millimetres);

}  // namespace lupin::engine
