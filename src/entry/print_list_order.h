#pragma once
// The order in which the print list shows the orders. Staging keeps it, and the slips and the
// waybill numbers read the staged rows in it too, so that slip k carries waybill number k.
#include <string>
#include <string_view>

#include "common/settings.h"

namespace lupin::entry {

// The setting ListSort: raw SQL appended after the order key, so it can add a direction or a
// further key.
inline constexpr int kListSortSetting = 34;
std::string ListSort(const settings::Settings& settings);

// " ORDER BY [CHUMON].[ID] " and the ListSort text.
std::string OrderListOrder(std::string_view list_sort);
// The customer list's order, with the columns named by their table for a join.
std::string CustomerListOrder();

}  // namespace lupin::entry
