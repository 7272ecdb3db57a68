#include "catalogue/load_report_definition.h"

#include <string>

#include "catalogue/repor_info.h"
#include "catalogue/whole_number.h"

namespace lupin::catalogue {
namespace {

template <typename T>
T Number(const db::Recordset& rs, std::string_view name) {
  return WholeNumber<T>(rs[name].Number()).value_or(T{0});
}

std::string Text(const db::Recordset& rs, const std::string& name) { return rs[name].Text(); }

}  // namespace

bool LoadReportDefinition(entry::Context& context, std::int32_t report_no) {
  db::Connection& connection = context.Db();
  db::Recordset rs = connection.Open("SELECT * FROM [REPORT] WHERE [REPORT_NO] = " + std::to_string(report_no));
  if (rs.Eof()) return false;

  entry::ReportDefinition& def = context.current;
  def.report_no = Number<std::int32_t>(rs, "Report_no");
  def.report_name = rs["REPORT_NAME"].Text();
  def.margin_right = Number<std::int32_t>(rs, "MARGIN_RIGHT");
  def.margin_bottom = Number<std::int32_t>(rs, "MARGIN_BOTTOM");

  {
    clsReporInfo info(context.home);
    info.Connection(&connection);
    info.INIFile(context.home / "REPORT.INI");
    info.GetReportSetting(report_no);
    // Right and bottom margins never come from the workstation file.
    if (!info.NoData()) {
      def.paper_type = info.PaperType();
      def.device_name = info.DeviceName();
      def.paper_size = info.PaperSize();
      def.paper_bin = info.PaperBin();
      def.margin_left = info.MarginLeft();
      def.margin_top = info.MarginTop();
      def.orientation = info.Orientation();
    }
  }

  def.where = Number<std::int32_t>(rs, "Where");
  def.date_label = rs["DATE_LABEL"].Text();
  def.date_field = rs["DATE_FIELD"].Text();
  def.use_paper_type = Number<std::int32_t>(rs, "USE_PAPER_TYPE");
  for (std::size_t k = 0; k < def.memo.size(); ++k) def.memo[k] = Text(rs, "MEMO" + std::to_string(k + 1));
  for (std::size_t k = 0; k < def.fld_lbl.size(); ++k) def.fld_lbl[k] = Text(rs, "FLD_LBL" + std::to_string(k + 1));
  // A free field's text counts only under a label.
  for (std::size_t k = 0; k < def.fld_txt.size(); ++k)
    def.fld_txt[k] = def.fld_lbl[k].empty() ? std::string() : Text(rs, "FLD_TXT" + std::to_string(k + 1));

  def.payment_init = Number<std::int32_t>(rs, "PAYMENT_INIT");
  for (std::size_t k = 0; k < def.biko_lbl.size(); ++k) {
    def.biko_lbl[k] = Text(rs, "BIKO_LBL" + std::to_string(k + 1));
    def.biko_fld[k] = def.biko_lbl[k].empty() ? std::string() : Text(rs, "BIKO_FLD" + std::to_string(k + 1));
  }

  def.lbl_rpt = Number<std::int32_t>(rs, "LBL_RPT");
  def.other_tbl_name = rs["OTHER_TBL_NAME"].Text();
  for (std::size_t k = 0; k < def.fld_tooltip.size(); ++k)
    def.fld_tooltip[k] = Text(rs, "FLD_TOOLTIP" + std::to_string(k + 1));
  return true;
}

}  // namespace lupin::catalogue
