#pragma once
// Showing a report: the object of the current number, the page set-up of its definition, the run.
#include <memory>
#include <string>
#include <string_view>

#include "engine/report.h"
#include "engine/report_registry.h"
#include "entry/context.h"
#include "entry/report_definition.h"

namespace lupin::engine {

inline constexpr std::string_view kNoReportMessage = "帳票が登録されていません。";
inline constexpr int kNoReportStyle = 48;  // exclamation
// The fixed bottom margin for a stored bottom margin of 1 to 10.
inline constexpr std::int32_t kFixedBottomMargin = 567;

struct DisplayResult {
  bool shown = false;         // a report ran
  std::string caption;        // the preview's caption
  std::string message;        // what the caller shows when no report ran ("" for none)
  int message_style = 0;
  std::string report_name;    // the object that ran
  RunResult run;
};

// Printer and margins from the definition. Device, paper size, bin and orientation only when
// not 0 (and not at all for the documentation request); margins in tenths of a millimetre.
void ApplyReportSettings(Report& report, const entry::ReportDefinition& definition, bool siryo = false);

// Runs the report object of the context's current definition into the sink. The caller has
// loaded the definition again just before. A number without a report object gives the message
// as a value; the mail numbers give neither report nor message.
DisplayResult S_DisplayReport(entry::Context& context, const ReportRegistry& registry,
                              std::string_view base_caption, PageSink& sink, bool siryo = false);

}  // namespace lupin::engine
