#pragma once
// Value rules of the deferred-payment services' row classes (NP, AB): texts lose their full-width
// spaces and line breaks, an order date that is no date goes through the digit mask.
#include <string>
#include <string_view>

#include "db/recordset.h"

namespace lupin::exchange {

// Trimmed, every full-width space and CR LF removed.
std::string CompactText(std::string_view text);
// CompactText cut to `chars` characters.
std::string CompactText(std::string_view text, int chars);
// A date stays as it is; a number such as 20260304 becomes "2026/03/04" through "0000/00/00".
std::string OrderDate(std::string_view text);
// A whole amount as the runtime writes it in a record: "-120", "3300".
std::string WholeNumber(double value);
// A quantity (Currency) as the runtime writes it: "2", "1.5".
std::string Quantity(double value);

// One billed item of an order: slot n of the twenty, or a line of its own (postage, fee, tax,
// points).
struct BilledItem {
  std::string name;
  double unit_price = 0;
  double quantity = 0;
};
// The order's items in slot order (those with a `商品IDn`).
void ForEachItemSlot(const db::Recordset& order, auto visit) {
  for (int n = 1; n <= 20; ++n) {
    const std::string k = std::to_string(n);
    if (order["商品ID" + k].Text().empty()) continue;
    visit(BilledItem{order["商品名" + k].Text(), order["単価" + k].Number(), order["注文数量" + k].Number()});
  }
}

}  // namespace lupin::exchange
