#pragma once
// The postal transfer form (report 1): one preprinted slip per order, two halves with the shop's
// account and the amount in single boxes, the payer, and up to three memo texts, which may be
// mail-merge templates filled from the order.
#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "engine/report_registry.h"
#include "engine/text_measure.h"
#include "layout/report_frame.h"
#include "reports/slips/insert_crlf.h"

namespace lupin::reports {

inline constexpr int kFurikaeAmountBoxes = 7;

class rptYubinFurikae : public layout::ReportFrame {
 public:
  rptYubinFurikae(entry::Context& context, engine::TextMeasurer& measurer);

  std::string Query() const;

 protected:
  void ActiveReport_DataInitialize() override;
  void ActiveReport_ReportEnd() override {}
  void Detail_Format();

 private:
  void FillAccount();
  void Memos(const std::string& id);

  engine::TextMeasurer& measurer_;
  InsertCrLf crlf_;
  std::array<std::string, 3> memos_;
};

void RegisterYubinFurikaeReport(engine::ReportRegistry& registry, std::shared_ptr<engine::TextMeasurer> measurer = nullptr);

}  // namespace lupin::reports
