#include "entry/print_list_order.h"

namespace lupin::entry {

std::string ListSort(const settings::Settings& settings) { return settings.GetSetting(kListSortSetting, ""); }

std::string OrderListOrder(std::string_view list_sort) { return " ORDER BY [CHUMON].[ID] " + std::string(list_sort); }

std::string CustomerListOrder() { return " ORDER BY [CUSTOMER].[郵便番号],[CUSTOMER].[顧客NO]"; }

}  // namespace lupin::entry
