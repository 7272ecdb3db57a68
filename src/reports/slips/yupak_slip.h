#pragma once
// The Yu-Pack slips: 20 and 47, collect 21, 40, 41, 48 and 49. The collect forms are also postal
// remittance forms: the shop's transfer account in single digit boxes and up to three amounts.
#include <string>

#include "reports/slips/slip_frame.h"

namespace lupin::reports {

struct YupakForm {
  enum class Generation { Old, New, Y2010 };
  Generation generation = Generation::Old;
  bool collect = false;
  bool extra_account_box = false;  // the E forms have 14 account boxes
};

class YupakSlip : public SlipFrame {
 public:
  YupakSlip(entry::Context& context, const std::string& designer, engine::TextMeasurer& measurer, YupakForm form);

 protected:
  void InitialiseCarrierExtras() override;
  void FillCarrierExtras(const SlipParties& parties) override;

 private:
  YupakForm form_;
};

SlipSpec YupakSpec(const std::string& designer, YupakForm form);

// A postal transfer account "00120-3-456" one character a box: the symbol (5), the check character
// and the number right-aligned in the remaining boxes.
std::string AccountBoxText(std::string_view account, int boxes);

}  // namespace lupin::reports
