#pragma once
// What one run of the selection form hands to the report it starts: the label sheet's start place
// and duplicate flag, and the filters of the reports that select their own rows (35, 44 to 46).
#include <string>

namespace lupin::entry {

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
  bool payment_excluded = false;  // "<>" instead of "=": the run excludes that method
  friend bool operator==(const SalesSummaryFilter&, const SalesSummaryFilter&) = default;
};

struct RunValues {
  int start_position = 1;  // place on the label sheet of the first label, from 1
  bool dedupe = false;     // labels: one per name and telephone
  ItemListFilter item_list;
  SalesSummaryFilter sales_summary;
  std::string shop;                // the shop chosen for the run, "" for all
  std::string date_from, date_to;  // the run's period as typed, "" when it is off
};

}  // namespace lupin::entry
