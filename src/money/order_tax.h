#pragma once
// The order tax rule on its own: one order's amounts and the rates of its date in, the three rate
// slots out. clsCalcChumonT reads the amounts from the database; the demo shop prices its orders
// with the same rule, so what it stores is what the tax service computes.
#include <array>
#include <cstdint>
#include <span>

#include "common/currency.h"

namespace lupin::money {

struct OrderCharges {
  std::int32_t postage = 0;              // 送料
  std::int32_t fee = 0;                  // 決済手数料
  std::int32_t points_8 = 0;             // ポイント利用８％, at the reduced rate
  std::int32_t points_10 = 0;            // ポイント利用１０％, at the normal rate
  std::int16_t includes_declared = 0;    // TAX_INCLUDES_DECLARED of the shop
  std::int16_t shipping_taxkbn = 0;      // non-zero: the postage contains its tax
  std::int16_t handling_taxkbn = 0;      // non-zero: the fee contains its tax
  std::int16_t tax_calkbn = 0;           // the rounding kind of RoundTaxAmount
};

struct OrderTaxLine {
  std::int32_t price = 0;        // ITEM_PRICE: the line's amount
  std::int16_t reduced_kbn = 0;  // 1 the reduced rate, 2 the old normal rate, anything else normal
  double item_tax = 0;           // exactly 2: the price contains its tax
};

// The rates in force on the order's date, as clsZeiInfo holds them after GetData.
struct TaxRates {
  vb::Currency normal;
  vb::Currency reduced;
  vb::Currency old_normal;
  bool reduced_exists = false;
};

// Slot 1 the normal rate, 2 the reduced rate, 3 the old normal rate.
struct OrderTax {
  std::array<vb::Currency, 3> zeirate{};
  std::array<std::int32_t, 3> komikin{};
  std::array<std::int32_t, 3> zeikin{};
};

// Raises vb::OverflowError for a 32-bit or Currency overflow and DivisionByZeroError for a rate
// whose inner-tax denominator is zero, as the old arithmetic did.
OrderTax CalcOrderTax(const OrderCharges& charges, std::span<const OrderTaxLine> lines, const TaxRates& rates);

}  // namespace lupin::money
