#pragma once
// The picking lists: one page per order with all twenty line slots, for the warehouse. The two
// objects differ only in the date their layout shows (shipped or planned).
#include <map>
#include <string>
#include <utility>

#include "engine/report_registry.h"
#include "layout/report_frame.h"
#include "reports/documents/list_text.h"

namespace lupin::reports {

class PickingReport : public layout::ReportFrame {
 public:
  PickingReport(entry::Context& context, std::string_view designer_name);

  // The statement of the run, exactly as it is sent.
  std::string Query() const;

 protected:
  void ActiveReport_ReportStart() override;
  void ActiveReport_DataInitialize() override;
  void Detail_Format();

 private:
  std::string RepeatCount();
  std::string Unit(const std::string& shop, const std::string& item);

  // ITEM is read only during a run: a unit once looked up stays.
  std::map<std::pair<std::string, std::string>, std::string> units_;
};

class rptPickingSyuDate : public PickingReport {
 public:
  explicit rptPickingSyuDate(entry::Context& context) : PickingReport(context, "rptPickingSyuDate") {}
};

class rptPickingSyuYDate : public PickingReport {
 public:
  explicit rptPickingSyuYDate(entry::Context& context) : PickingReport(context, "rptPickingSyuYDate") {}
};

void RegisterPickingReports(engine::ReportRegistry& registry);

}  // namespace lupin::reports
