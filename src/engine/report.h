#pragma once
// The report object: designed sections with named controls, the data control, the page set-up, and
// the run that fires the events in their fixed order and streams the laid-out pages to a sink.
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "engine/fields.h"
#include "engine/page_model.h"
#include "engine/page_settings.h"
#include "engine/section.h"
#include "engine/text_measure.h"

namespace lupin::engine {

// What a designer file describes: the layout before any run touched it.
struct ReportLayout {
  std::string name;   // "rptPickingSyuDate"
  std::string title;  // the designer's caption
  PrinterSettings printer;
  PageMargins margins;
  std::int32_t print_width = 0;
  std::vector<Section> sections;
  std::vector<std::string> fields;  // calculated fields declared by the designer
};

// What a Detail does after its Format handler: the default prints it and moves to the next
// record; KeepRecord lets it take its place while the same record stays current (label sheets
// that start in the middle).
enum class LayoutAction { Default = 7, KeepRecord = 2 };

// A fault inside a run, as the handlers and the caller see it.
struct RunFault {
  int number = 0;
  std::string description;
};

// Numbers a run reports its own faults with.
enum FaultNumber : int {
  kFaultGeneral = 5,           // a handler or the data failed
  kFaultLayoutLoop = 10001,    // a Detail kept its record for too many places in a row
};

struct RunResult {
  bool ok = true;
  RunFault fault;  // set when ok is false
  int pages = 0;
};

class Report {
 public:
  explicit Report(ReportLayout design);
  virtual ~Report();
  Report(const Report&) = delete;
  Report& operator=(const Report&) = delete;

  const std::string& Name() const { return design_.name; }
  const std::string& Title() const { return design_.title; }

  // A section by name, or nullptr.
  Section* SectionByName(std::string_view name);
  // The Detail section; every designer has one.
  Section& Detail() { return *detail_; }
  std::vector<Section*> Sections();

  lupin::engine::Fields& Fields() { return fields_; }
  DataControl DataControl1;
  PrinterSettings Printer;
  PageMargins PageSettings;
  std::int32_t PrintWidth = 0;
  lupin::engine::LayoutAction LayoutAction = LayoutAction::Default;
  // Measures text for controls that grow; nullptr uses the engine's simple estimate.
  TextMeasurer* Measurer = nullptr;
  // The title handed to the renderers; the designer's caption until the preview sets REPORT_NAME.
  std::string DocumentTitle;

  // The page being laid out, 1-based; 0 before the first.
  int PageNumber() const { return page_number_; }

  // Runs the report: puts the designed layout back, fires the events, hands the pages to the sink
  // as they complete. A fault in a handler goes to ActiveReport_Error and ends the run; the result
  // carries it.
  RunResult Run(PageSink& sink);
  // Asks a running report to end after the section being laid out.
  void Stop() { stop_requested_ = true; }

 protected:
  virtual void ActiveReport_ReportStart() {}
  virtual void ActiveReport_DataInitialize() {}
  virtual void ActiveReport_FetchData(bool& eof) { (void)eof; }
  virtual void ActiveReport_NoData() {}
  virtual void ActiveReport_ReportEnd() {}
  // cancel_display set to true would keep the engine from showing the fault.
  virtual void ActiveReport_Error(int number, const std::string& description, bool& cancel_display) {
    (void)number, (void)description, (void)cancel_display;
  }

 private:
  friend class RunState;
  void ResetToDesign();

  ReportLayout design_;
  std::vector<std::unique_ptr<Section>> sections_;
  Section* detail_ = nullptr;
  lupin::engine::Fields fields_{DataControl1};
  int page_number_ = 0;
  bool stop_requested_ = false;
};

// Thrown by handlers or the engine for a fault that ends the run with its own number.
struct ReportFault : std::runtime_error {
  ReportFault(int number_in, const std::string& description) : std::runtime_error(description), number(number_in) {}
  int number;
};

}  // namespace lupin::engine
