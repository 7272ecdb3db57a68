#pragma once
// rptList: the line-by-line lists of orders (orders, shipments, payments, planned shipments,
// unpaid, shipments by postcode). The report number chooses the title, restriction, order and
// date column; each order on each date is one group, closed by its money, and the report footer
// sums the money by payment method.
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "engine/report_registry.h"
#include "layout/report_frame.h"

namespace lupin::reports {

// What the report number makes of the list.
struct OrderListKind {
  std::string title;         // "注文一覧表"
  std::string date_heading;  // "受注日付"
  std::string restriction;   // " WHERE …", before the workstation condition
  std::string order;         // " ORDER BY …"
  std::string date_column;   // the column that dates a row: 受注日, ITEM_SYUDATE …
  int kind = 0;              // 1 orders, 2 shipments, 3 payments, 5 unpaid, 7 by postcode; 0 planned
};

// The list of a report number (4 to 8, 28); other numbers give the order list's words.
OrderListKind OrderListKindOf(std::int32_t report_no);

class rptList : public layout::ReportFrame {
 public:
  explicit rptList(entry::Context& context);

  // The statement of the run, exactly as it is sent.
  std::string Query() const;

 protected:
  void ActiveReport_ReportStart() override;
  void ActiveReport_DataInitialize() override;
  void ActiveReport_FetchData(bool& eof) override;
  void ActiveReport_NoData() override;
  void ActiveReport_ReportEnd() override;

 private:
  void PageHeader_Format();
  void GroupIdHeader_Format();
  void GroupIdHeader_BeforePrint();
  void Detail_Format();
  void GroupIdFooter_BeforePrint();
  void GroupIdFooter_AfterPrint();
  void ReportFooter_BeforePrint();

  void LoadPaymentMethods();
  void AddPaymentLabels();
  void RemovePaymentLabels();
  // Whether a line of this order shipped before the row's date: its money was counted then.
  bool ShippedEarlier();
  engine::Control& Control(std::string_view section, std::string_view name);

  OrderListKind list_;
  std::vector<std::string> methods_;       // PAYMENT's methods and "その他" last
  std::vector<double> method_totals_;      // by position in methods_
  std::vector<std::string> added_labels_;  // names of the labels added to ReportFooter
  std::string previous_id_;                // the order whose heading was printed last
  std::set<std::string> counted_;          // orders whose money is in the totals
  // The order's lines, for its footer; the report's totals.
  double order_qty_ = 0, order_amount_ = 0;
  double postage_ = 0, fee_ = 0, tax_ = 0, points_ = 0, paid_ = 0, billed_ = 0, qty_ = 0, amount_ = 0;
};

void RegisterOrderListReport(engine::ReportRegistry& registry);

}  // namespace lupin::reports
