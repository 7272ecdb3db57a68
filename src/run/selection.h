#pragma once
// What the selection form hands on: the statement for the print list, or the filter values of
// the aggregating reports, which select their own rows.
#include <string>

#include "entry/run_values.h"

namespace lupin::run {

using ItemListFilter = entry::ItemListFilter;
using SalesSummaryFilter = entry::SalesSummaryFilter;

struct Selection {
  std::string sql;           // empty for the direct reports
  int no_carrier_filter = 0; // 1: the print list filters rows by the report's carrier
  ItemListFilter item_list;
  SalesSummaryFilter sales_summary;
};

}  // namespace lupin::run
