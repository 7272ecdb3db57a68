#pragma once
// The Sagawa slips: 18 and 51, collect 19 and 52. Telephone numbers in 13 boxes, a sender name on
// up to two lines, 29-byte item lines; the 2010 forms add the postcodes and drop the year box.
#include <string>

#include "reports/slips/slip_frame.h"

namespace lupin::reports {

class SagawaSlip : public SlipFrame {
 public:
  // amount_boxes: the collect amount goes one digit a box into lblSek_gaku_1 to 7 (rptSagawa_Colect;
  // the 2010 form prints it through its bound field).
  SagawaSlip(entry::Context& context, const std::string& designer, engine::TextMeasurer& measurer, bool amount_boxes);

 protected:
  void FillCarrierExtras(const SlipParties& parties) override;

 private:
  bool amount_boxes_;
};

SlipSpec SagawaSpec(const std::string& designer, bool form2010);

}  // namespace lupin::reports
