#include "engine/display.h"

#include "engine/units.h"
#include "entry/catalogue.h"

namespace lupin::engine {

namespace {

// Stored margins are tenths of a millimetre.
std::int32_t Margin(std::int32_t tenths) { return TenthsMmToTwips(static_cast<float>(tenths), 1); }

}  // namespace

void ApplyReportSettings(Report& report, const entry::ReportDefinition& definition, bool siryo) {
  if (!siryo) {
    report.Printer.DeviceName = definition.device_name;
    if (definition.paper_size != 0) report.Printer.PaperSize = definition.paper_size;
    if (definition.paper_bin != 0) report.Printer.PaperBin = definition.paper_bin;
    if (definition.orientation != 0) report.Printer.Orientation = definition.orientation;
  }
  if (!definition.report_name.empty()) report.DocumentTitle = definition.report_name;
  report.PageSettings.Left = Margin(definition.margin_left);
  report.PageSettings.Top = Margin(definition.margin_top);
  report.PageSettings.Right = Margin(definition.margin_right);
  const bool fixed_bottom = definition.margin_bottom >= 1 && definition.margin_bottom <= 10;
  report.PageSettings.Bottom = fixed_bottom ? kFixedBottomMargin : Margin(definition.margin_bottom);
}

DisplayResult S_DisplayReport(entry::Context& context, const ReportRegistry& registry,
                              std::string_view base_caption, PageSink& sink, bool siryo) {
  DisplayResult result;
  std::unique_ptr<Report> report;
  if (siryo) {
    result.report_name = "rptWellNet";
    result.caption = std::string(base_caption) + "  [ウェルネット資料請求]";
  } else {
    const auto number = context.current.report_no;
    if (entry::IsSilentNoneReport(number)) return result;
    const auto& entry = entry::CatalogueOf(number);
    if (entry.output == entry::OutputKind::Report) result.report_name = entry.object;
    result.caption = std::string(base_caption) + "  [" + context.current.report_name + "]";
  }
  if (!result.report_name.empty()) report = registry.Create(result.report_name, context);
  if (!report) {
    result.caption = std::string(base_caption);
    result.message = kNoReportMessage;
    result.message_style = kNoReportStyle;
    return result;
  }
  ApplyReportSettings(*report, context.current, siryo);
  result.run = report->Run(sink);
  result.shown = true;
  return result;
}

}  // namespace lupin::engine
