#include "money/round_tax.h"

namespace lupin::money {

namespace {
constexpr std::int64_t kScale = 10000;
}

vb::Currency RoundTaxAmount(vb::Currency amount, int /*digits*/, int kind) {
  vb::Currency offset;
  switch (kind) {
    case 0: offset = vb::Currency::FromScaled(5000); break;
    case 1: break;
    // 0.9, not a ceiling: 100.05 stays 100 while 100.10 becomes 101.
    case 2: offset = vb::Currency::FromScaled(9000); break;
    default: return vb::Currency{};
  }
  // Done in Currency, not double, so x.1 + 0.9 lands on the whole number exactly.
  const vb::Currency shifted = amount > vb::Currency{} ? amount + offset : amount - offset;
  // Integer division truncates towards zero: the integer part above 0, the truncation below.
  return vb::Currency::FromScaled(shifted.Scaled() / kScale * kScale);
}

}  // namespace lupin::money
