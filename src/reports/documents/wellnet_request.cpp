#include "reports/documents/wellnet_request.h"

#include "common/sql.h"
#include "common/vb.h"
#include "layout/form_fill.h"
#include "money/payment_limit.h"

namespace lupin::reports {

rptWellNet::rptWellNet(entry::Context& context) : ReportFrame(context, "rptWellNet") {
  SectionByName("ReportFooter")->BeforePrint = [this] { ReportFooter_BeforePrint(); };
}

std::string rptWellNet::Query() const {
  return "SELECT [CHUMON].[ID],[CHUMON].[請求先郵便番号],[CHUMON].[請求先住所],[CHUMON].[請求先会社名],"
         "[CHUMON].[請求先氏名],[CHUMON].[請求日],[CHUMON].[請求額] FROM [CHUMON], [WK_PRINT] "
         "WHERE [CHUMON].[ID] = [WK_PRINT].[ID] AND [WK_PRINT].[CLIENT_NAME] = '" +
         sql::SqlQuote(context_.ClientName()) + "' ORDER BY [CHUMON].[ID]";
}

engine::Control& rptWellNet::Control(std::string_view section, std::string_view name) {
  return layout::FormControl(*SectionByName(section), name);
}

void rptWellNet::ActiveReport_ReportStart() {
  kigen_days_ = money::WellNetKigenDays(context_.settings);
  count_ = 0;
  total_ = 0;
  const bool limited = kigen_days_ != 0 && kigen_days_ != 99;
  Control("PageHeader", "lblTerm").Caption =
      limited ? "支払期限: 請求日から " + std::to_string(kigen_days_) + " 日" : "支払期限なし";
  Control("PageHeader", "lblPrintDate").Caption = vb::FormatDate(Now(), "YYYY/MM/DD HH:NN:SS");
  OpenData(Query());
}

void rptWellNet::ActiveReport_DataInitialize() { ApplyFormat(); }

void rptWellNet::ActiveReport_FetchData(bool& eof) {
  if (eof) return;
  // The file's rules: the company when there is one, else the person; the limit only with a term.
  const std::string company = FieldText("請求先会社名");
  Fields().Set("Simei", db::Value(company.empty() ? FieldText("請求先氏名") : company));
  const auto limit = money::PaymentLimit(FieldText("請求日"), kigen_days_);
  Fields().Set("Kigen", limit ? db::Value(vb::FormatDate(*limit, "YYYY/MM/DD")) : db::Value());
  ++count_;
  total_ += Fields().Value("請求額").Number();
}

void rptWellNet::ReportFooter_BeforePrint() {
  Control("ReportFooter", "lblCount").Caption = vb::Format(count_, "#,##0") + " 件";
  Control("ReportFooter", "lblTotal").Caption = vb::Format(total_, "#,##0");
}

void RegisterWellNetReport(engine::ReportRegistry& registry) {
  registry.Register("rptWellNet", [](entry::Context& context) { return std::make_unique<rptWellNet>(context); });
}

}  // namespace lupin::reports
