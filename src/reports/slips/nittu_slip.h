#pragma once
// The Nippon Express slips: 16 and 42, collect 17 and 43. The collect forms list up to five rows
// of goods, each with its amount including consumption tax, then postage and fees.
#include <optional>
#include <string>

#include "reports/slips/slip_collect_amounts.h"
#include "reports/slips/slip_frame.h"

namespace lupin::reports {

class NittuSlip : public SlipFrame {
 public:
  NittuSlip(entry::Context& context, const std::string& designer, engine::TextMeasurer& measurer);

 protected:
  void FillCarrierExtras(const SlipParties& parties) override;

 private:
  void FillGoodsRows();
  std::optional<CollectAmounts> amounts_;
};

// new_form: the 2009 forms (rptNittuNew, rptNittu_ColectNew) with a box for "no preference" and
// two-hour bands.
SlipSpec NittuSpec(const std::string& designer, bool collect, bool new_form);

}  // namespace lupin::reports
