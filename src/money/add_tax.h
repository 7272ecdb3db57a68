#pragma once
// Tax added to a whole-yen amount on the collect slips, by the order's rounding kind.
#include <cstdint>

#include "common/currency.h"

namespace lupin::money {

// amount + tax, where tax is amount × rate_percent / 100 rounded by tax_calkbn:
//   0: floor(t + 0.5) for a positive amount, truncation of (t + 0.5) otherwise;
//   1: floor(t) / truncation of t;  2: floor(t + 0.9) / truncation of (t + 0.9);  other: no tax.
// The rate is a percent (10 for ten per cent), as the TAX table holds it. Computed exactly;
// raises vb::OverflowError when the result leaves the 32-bit range.
std::int32_t AddTax(std::int32_t amount, vb::Currency rate_percent, int tax_calkbn);

}  // namespace lupin::money
