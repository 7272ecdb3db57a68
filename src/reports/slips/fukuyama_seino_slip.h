#pragma once
// The freight slips of Fukuyama (31 and 32 on one designer, 50, 53) and Seino (33, collect 34).
// They get no waybill numbers, and their date box is the shipping date.
#include <optional>
#include <string>

#include "reports/slips/slip_collect_amounts.h"
#include "reports/slips/slip_frame.h"

namespace lupin::reports {

class FukuyamaSeinoSlip : public SlipFrame {
 public:
  FukuyamaSeinoSlip(entry::Context& context, const std::string& designer, engine::TextMeasurer& measurer);

 protected:
  void InitialiseCarrierExtras() override;
  void FillCarrierExtras(const SlipParties& parties) override;

 private:
  void FillSeinoRows(const SlipParties& parties);
  std::optional<CollectAmounts> amounts_;
};

SlipSpec FukuyamaSeinoSpec(const std::string& designer);

}  // namespace lupin::reports
