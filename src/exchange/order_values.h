#pragma once
// Readings of an order that several outside systems' files share.
#include <string>
#include <string_view>

#include "common/grid.h"
#include "db/recordset.h"

namespace lupin::exchange {

// `支払方法` is exactly "代引き" or begins with "代金引換".
bool IsCashOnDelivery(std::string_view payment);
// `贈答先氏名`, trimmed, is not empty: the parcel goes to the gift's recipient.
bool IsGift(const db::Recordset& order);
// Row 0 of a grid column, or `fallback` when the grid gives nothing: the word a message names.
std::string CaptionOr(const common::Grid& grid, int col, std::string_view fallback);

}  // namespace lupin::exchange
