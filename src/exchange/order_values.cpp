#include "exchange/order_values.h"

#include "exchange/field_text.h"

namespace lupin::exchange {

bool IsCashOnDelivery(std::string_view payment) { return payment == "代引き" || payment.starts_with("代金引換"); }

bool IsGift(const db::Recordset& order) { return !TrimBlanks(order["贈答先氏名"].Text()).empty(); }

std::string CaptionOr(const common::Grid& grid, int col, std::string_view fallback) {
  const std::string& caption = grid.Caption(col);
  return caption.empty() ? std::string(fallback) : caption;
}

}  // namespace lupin::exchange
