#pragma once
// rptItemList: sales per item over a period ("商品別売上集計表"). The shared work table WK_ITEMLIST
// is emptied and filled from the order lines first, one row per item id, then read in the chosen
// order. The table has no workstation key: two workstations building at once disturb each other.
#include <string>

#include "engine/report_registry.h"
#include "layout/report_frame.h"

namespace lupin::reports {

class rptItemList : public layout::ReportFrame {
 public:
  explicit rptItemList(entry::Context& context);

  // The statement that reads the order lines of the run's filter.
  std::string LinesQuery() const;

 protected:
  void ActiveReport_DataInitialize() override;

 private:
  void Build();
  void Detail_Format();
  void ReportFooter_Format();

  double qty_ = 0, total_ = 0;
};

// The INSERT of one item: the average price is the amount over the quantity, 0 with no quantity.
std::string ItemListInsert(const std::string& id, const std::string& name, double qty, double total);

void RegisterItemListReport(engine::ReportRegistry& registry);

}  // namespace lupin::reports
