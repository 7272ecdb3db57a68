#pragma once
// The Yamato slips: one preprinted form per order (25, collect 26) or per customer (29, collect
// 30). Recipient, sender, delivery date, time-of-day ring, goods and, on the collect form, the
// amount to collect.
#include <memory>
#include <string>

#include "reports/slips/slip_frame.h"

namespace lupin::reports {

// The slip paper in twips, portrait.
inline constexpr std::int32_t kSlipPaperWidth = 11397;
inline constexpr std::int32_t kSlipPaperHeight = 6481;

class YamatoSlip : public SlipFrame {
 public:
  YamatoSlip(entry::Context& context, const std::string& designer, std::shared_ptr<SlipShopMembers> shop,
             engine::TextMeasurer& measurer, bool collect);

  std::string Query() const override;
  // 29 and 30 print customers, every other number orders.
  bool CustomerMode() const override;

 protected:
  void InitialiseCarrierExtras() override;
  void FillCarrierExtras(const SlipParties& parties) override;

 private:
  // The shop that sends customer slips when no order run of this process has named one.
  bool FindSenderShop();

  bool collect_;
};

// Why a customer slip on plain paper cannot be printed: no order run named the sending shop and
// none was chosen.
inline constexpr const char* kNoSenderShopMessage =
    "差出人のショップが決まりません。ショップを選んでください (コマンドラインでは --shop)。";

// rptYamatoNew and rptYamato_ColectNew.
SlipSpec YamatoSpec(const std::string& designer);

}  // namespace lupin::reports
