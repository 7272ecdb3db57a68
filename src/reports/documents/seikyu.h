#pragma once
// The consolidated billing statement with its postal payment slip (report 36). It prints from
// WK_SEIKYU, which it rebuilds for this workstation before the run: one row, one page of ten lines.
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "engine/report_registry.h"
#include "engine/text_measure.h"
#include "layout/report_frame.h"
#include "reports/documents/seikyu_ocr.h"
#include "reports/slips/insert_crlf.h"

namespace lupin::reports {

class rptSeikyuWell : public layout::ReportFrame {
 public:
  rptSeikyuWell(entry::Context& context, engine::TextMeasurer& measurer);

  // hinmei.txt's first line 1: a line's text is the item's name alone.
  bool NameOnly() const;

 protected:
  void ActiveReport_DataInitialize() override;
  void ActiveReport_ReportEnd() override {}
  void Detail_Format();

 private:
  void PrepareSlip();
  void Addressee();
  void Amount(bool last_page);
  void Lines(int ord);
  std::string Fit(engine::Control& box, std::string_view address);
  std::string Unit(const std::string& item);
  int PagesOf(const std::string& id);

  engine::TextMeasurer& measurer_;
  InsertCrLf crlf_;
  SlipAccount account_;
  // WK_SEIKYU and ITEM do not change during the run.
  std::map<std::string, int> pages_;
  std::map<std::string, std::string> units_;
};

void RegisterSeikyuReports(engine::ReportRegistry& registry, std::shared_ptr<engine::TextMeasurer> measurer = nullptr);

}  // namespace lupin::reports
