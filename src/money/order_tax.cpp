#include "money/order_tax.h"

#include "common/vb.h"
#include "money/errors.h"
#include "money/round_tax.h"

namespace lupin::money {

namespace {

using vb::Currency;

constexpr std::size_t kNormal = 0;
constexpr std::size_t kReduced = 1;
constexpr std::size_t kOld = 2;

// 32-bit additions overflow as the old Long arithmetic did.
std::int32_t Add(std::int32_t a, std::int32_t b) {
  std::int32_t sum = 0;
  if (__builtin_add_overflow(a, b, &sum)) throw vb::OverflowError();
  return sum;
}

std::int32_t Sub(std::int32_t a, std::int32_t b) {
  std::int32_t diff = 0;
  if (__builtin_sub_overflow(a, b, &diff)) throw vb::OverflowError();
  return diff;
}

Currency SlotRate(const TaxRates& rates, std::size_t slot) {
  switch (slot) {
    case kReduced: return rates.reduced;
    case kOld: return rates.old_normal;
    default: return rates.normal;
  }
}

// The tax contained in a tax-included amount, with the rate made a whole percentage first.
Currency InnerTaxQuotient(std::int32_t included, Currency rate) {
  const Currency hundred = Currency::FromLong(100);
  const Currency percent = rate * hundred;
  const double numerator = (percent * Currency::FromLong(included)).ToDouble();
  const double denominator = (percent + hundred).ToDouble();
  if (denominator == 0) {
    // The runtime's 0 / 0 is an overflow, any other quotient by zero a division fault.
    if (numerator == 0) throw vb::OverflowError();
    throw DivisionByZeroError();
  }
  return Currency::FromDouble(numerator / denominator);
}

}  // namespace

OrderTax CalcOrderTax(const OrderCharges& order, std::span<const OrderTaxLine> lines, const TaxRates& rates) {
  std::array<std::int32_t, 3> included{};
  std::array<std::int32_t, 3> excluded{};
  std::array<Currency, 3> rate{};

  for (const OrderTaxLine& line : lines) {
    const std::int16_t reduced_kbn = line.reduced_kbn < 0 ? std::int16_t{0} : line.reduced_kbn;
    const std::size_t slot = reduced_kbn == 1 ? kReduced : reduced_kbn == 2 ? kOld : kNormal;
    rate[slot] = SlotRate(rates, slot);
    if (line.item_tax == 2) {
      included[slot] = Add(included[slot], line.price);
    } else {
      excluded[slot] = Add(excluded[slot], line.price);
    }
  }

  // Points always come off a tax-included amount; so do postage and fee that contain their tax.
  const bool old_exists = Add(included[kOld], excluded[kOld]) != 0;
  auto add_included_charges = [&](std::size_t slot) {
    if (order.shipping_taxkbn != 0) included[slot] = Add(included[slot], order.postage);
    if (order.handling_taxkbn != 0) included[slot] = Add(included[slot], order.fee);
  };
  if (rates.reduced_exists && !old_exists) {
    included[kNormal] = Sub(included[kNormal], order.points_10);
    add_included_charges(kNormal);
    included[kReduced] = Sub(included[kReduced], order.points_8);
  } else if (rates.reduced_exists) {
    included[kOld] = Sub(Sub(included[kOld], order.points_8), order.points_10);
    add_included_charges(kOld);
  } else {
    included[kNormal] = Sub(Sub(included[kNormal], order.points_8), order.points_10);
    add_included_charges(kNormal);
  }

  // Postage and fee without their tax. The target follows old_exists alone, so without a
  // reduced generation an old-rate order has its included postage in slot 1 and this in slot 3.
  // With TAX_INCLUDES_DECLARED a charge flagged 0 enters no slot at all.
  if (order.includes_declared == 0) {
    const std::size_t target = old_exists ? kOld : kNormal;
    if (order.shipping_taxkbn == 0) excluded[target] = Add(excluded[target], order.postage);
    if (order.handling_taxkbn == 0) excluded[target] = Add(excluded[target], order.fee);
  }

  std::array<std::int32_t, 3> outer_tax{};
  std::array<std::int32_t, 3> inner_tax{};
  for (std::size_t i = 0; i < 3; ++i) {
    const Currency product = Currency::FromLong(excluded[i]) * SlotRate(rates, i);
    outer_tax[i] = RoundTaxAmount(product, 0, order.tax_calkbn).ToLong();
  }
  for (std::size_t i = 0; i < 3; ++i) {
    const Currency quotient = InnerTaxQuotient(included[i], SlotRate(rates, i));
    inner_tax[i] = RoundTaxAmount(quotient, 0, order.tax_calkbn).ToLong();
  }

  // A slot touched by postage or points shows its rate; lines summing to zero keep theirs.
  OrderTax result;
  for (std::size_t i = 0; i < 3; ++i) {
    result.komikin[i] = Add(Add(included[i], excluded[i]), outer_tax[i]);
    result.zeikin[i] = Add(inner_tax[i], outer_tax[i]);
    result.zeirate[i] = result.komikin[i] != 0 ? SlotRate(rates, i) : rate[i];
  }
  return result;
}

}  // namespace lupin::money
