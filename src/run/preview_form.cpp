#include "run/preview_form.h"

#include "catalogue/load_report_definition.h"
#include "common/sql.h"
#include "entry/catalogue.h"
#include "entry/print_list_order.h"
#include "run/select_form.h"

namespace lupin::run {

PreviewForm::PreviewForm(entry::Context& context, entry::Ui& ui, const SelectForm& select, PreviewRunner& runner,
                         bool siryo)
    : context_(context), ui_(ui), select_(select), runner_(runner), siryo_(siryo) {}

bool PreviewForm::S_DisplayReport() {
  if (siryo_) {
    caption = std::string(kPreviewCaption) + "  [ウェルネット資料請求]";
    return runner_.Run(context_, "rptWellNet");
  }
  const std::int32_t report_no = context_.current.report_no;
  const auto& entry = entry::CatalogueOf(report_no);
  if (entry.output != entry::OutputKind::Report || entry.object.empty()) {
    if (!entry::IsSilentNoneReport(report_no)) {
      ui_.MessageBox("帳票が登録されていません。", caption, entry::kExclamation);
    }
    return false;
  }
  catalogue::LoadReportDefinition(context_, report_no);
  caption = std::string(kPreviewCaption) + "  [" + context_.current.report_name + "]";
  return runner_.Run(context_, entry.object);
}

bool PreviewForm::cmdPrint() {
  if (!siryo_) {
    const std::int32_t report_no = context_.current.report_no;
    const std::string date = ledger_date.empty() ? LedgerDate() : ledger_date;
    last_ledger = WritePreviewLedger(context_.Db(), context_.ClientName(), report_no, select_.dedupe != 0, date);
    // The print goes on after a failed ledger: the form never tested the result.
    if (!last_ledger.ok) ui_.MessageBox(last_ledger.error, caption, entry::kInformation);
    if (entry::IsWaybillReport(report_no)) {
      last_den_no = AssignDenNo(context_.Db(), context_.ClientName(), select_.txtDenNo.text,
                                select_.chkReDenNo.Checked(), runner_.RecordCount(), entry::ListSort(context_.settings));
    }
  }
  return runner_.Print();
}

}  // namespace lupin::run
