#pragma once
// The rounding of a tax amount by the shop's rounding kind (TAX_CALKBN).
#include "common/currency.h"

namespace lupin::money {

// Kind 0 rounds half away from zero, 1 cuts towards zero, 2 adds 0.9 away from zero and cuts (so a
// fraction below 0.1 is dropped), any other kind gives no tax. `digits` is accepted and ignored:
// every caller passes 0. Raises vb::OverflowError at the edge of the Currency range.
vb::Currency RoundTaxAmount(vb::Currency amount, int digits, int kind);

}  // namespace lupin::money
