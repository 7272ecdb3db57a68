#include "layout/report_frame.h"

#include "common/sql.h"
#include "engine/designer.h"
#include "layout/format_apply.h"
#include "layout/format_parser.h"

namespace lupin::layout {

ReportFrame::ReportFrame(entry::Context& context, std::string_view designer_name)
    : engine::Report(engine::LoadDesigner(designer_name)), context_(context) {}

ReportFrame::ReportFrame(entry::Context& context, engine::ReportLayout layout)
    : engine::Report(std::move(layout)), context_(context) {}

std::string ReportFrame::WorkstationRestriction() const {
  return " AND [WK_PRINT].[CLIENT_NAME] = '" + sql::SqlQuote(context_.ClientName()) + "'";
}

void ReportFrame::OpenData(std::string_view sql) {
  // Streamed: a season's run holds two rows of its data, not all of them.
  db::Recordset recordset = context_.Db().OpenForward(sql);
  if (!recordset.Eof()) recordset.MoveFirst();
  DataControl1.Recordset = std::move(recordset);
}

void ReportFrame::SetPrintWidth() {
  std::int32_t width = 0, height = 0;
  engine::SheetSize(Printer, width, height);
  PrintWidth = width - PageSettings.Left - PageSettings.Right;
}

void ReportFrame::ApplyFormat() {
  ApplyReportFormat(*this, FormatFileName(context_.current.report_no), clsRptFmtConstat(FormatDirectory(context_)));
}

void ReportFrame::RememberBaseFontSize(std::string_view control_name) {
  base_font_size_ = DetailControl(control_name).Font.size;
}

engine::Control& ReportFrame::DetailControl(std::string_view name) {
  engine::Control* control = Detail().Controls().Item(name);
  if (control == nullptr)
    throw engine::ReportFault(engine::kFaultGeneral, std::string(Name()) + ": コントロール " + std::string(name) + " がありません。");
  return *control;
}

std::string ReportFrame::FieldText(std::string_view name) const {
  const auto& recordset = DataControl1.Recordset;
  if (!recordset || recordset->Eof()) return "";
  return (*recordset)[name].Text();
}

void ReportFrame::ActiveReport_Error(int number, const std::string& description, bool& cancel_display) {
  (void)number, (void)description;
  cancel_display = false;
}

}  // namespace lupin::layout
