#pragma once
// What the selection form hands on: the statement for the print list, or the filter values of
// the aggregating reports, which select their own rows.
#include <string>

namespace lupin::run {

// Report 35, the item sales list.
struct ItemListFilter {
  std::string shop;       // "" for all shops
  std::string date_from;  // "" when the period is off
  std::string date_to;
  int date_kind = 0;      // 0 shipped, 1 ordered
  int sort_kind = 0;      // 0 item id, 1 subtotal descending, 2 quantity descending
  friend bool operator==(const ItemListFilter&, const ItemListFilter&) = default;
};

// Reports 44 to 46, the sales summaries.
struct SalesSummaryFilter {
  std::string date_from, date_to;
  std::string id_from, id_to;
  std::string payment;
  std::string shop;
  friend bool operator==(const SalesSummaryFilter&, const SalesSummaryFilter&) = default;
};

struct Selection {
  std::string sql;           // empty for the direct reports
  int no_carrier_filter = 0; // 1: the print list filters rows by the report's carrier
  ItemListFilter item_list;
  SalesSummaryFilter sales_summary;
};

}  // namespace lupin::run
