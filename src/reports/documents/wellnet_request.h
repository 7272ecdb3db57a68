#pragma once
// rptWellNet: the printed request of report 92 (the print list's 資料請求 button), a list of the
// checked orders' billing details as the WellNet file carries them. Printing it books nothing.
#include <cstdint>
#include <string>

#include "engine/report_registry.h"
#include "layout/report_frame.h"

namespace lupin::reports {

class rptWellNet : public layout::ReportFrame {
 public:
  explicit rptWellNet(entry::Context& context);

  // The statement of the run, exactly as it is sent.
  std::string Query() const;

 protected:
  void ActiveReport_ReportStart() override;
  void ActiveReport_DataInitialize() override;
  void ActiveReport_FetchData(bool& eof) override;

 private:
  void ReportFooter_BeforePrint();
  engine::Control& Control(std::string_view section, std::string_view name);

  int kigen_days_ = 0;
  int count_ = 0;
  double total_ = 0;
};

void RegisterWellNetReport(engine::ReportRegistry& registry);

}  // namespace lupin::reports
