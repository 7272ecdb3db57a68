#pragma once
// rptUriage: sales by day (44), week (45) or month (46) between two shipping dates, with the share
// of orders from customers who had ordered before. The work table WK_URIAGE of this workstation is
// filled first, one row per period, and the report reads it back.
#include <cstdint>
#include <string>

#include "engine/report_registry.h"
#include "layout/report_frame.h"

namespace lupin::reports {

enum class SummaryPeriod { Day, Week, Month };
SummaryPeriod SummaryPeriodOf(std::int32_t report_no);

// The repeat rate in per cent, cut (not rounded) at one decimal; 0 without orders.
double RepeatRate(long repeat_orders, long orders);

class rptUriage : public layout::ReportFrame {
 public:
  explicit rptUriage(entry::Context& context);

  // Statements sent by the last build, and how many of them were the repeat look-ups.
  long BuildQueries() const { return build_queries_; }
  long RepeatQueries() const { return repeat_queries_; }

 protected:
  void ActiveReport_DataInitialize() override;

 private:
  void Build();
  void BuildRows(const std::string& client);
  void InsertPeriods();
  // " WHERE [出荷日] >= '…'" and the run's other conditions, without the period of a row.
  std::string CommonCondition() const;
  long RepeatOrders(const std::string& condition);
  void Detail_Format();
  void ReportFooter_Format();

  SummaryPeriod period_ = SummaryPeriod::Day;
  long build_queries_ = 0, repeat_queries_ = 0;
  long repeat_total_ = 0;  // repeat orders of every period, for the footer's rate
  double orders_ = 0, qty_ = 0, amount_ = 0;
};

void RegisterSalesSummaryReport(engine::ReportRegistry& registry);

}  // namespace lupin::reports
