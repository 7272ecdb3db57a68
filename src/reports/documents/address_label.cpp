#include "reports/documents/address_label.h"

#include "common/sql.h"
#include "common/text.h"
#include "engine/measure.h"
#include "layout/format_apply.h"
#include "reports/slips/customer_barcode.h"

namespace lupin::reports {

bool SeenPairs::CheckAndAdd(const std::string& name, const std::string& tel) {
  if (name.empty() && tel.empty()) return false;
  for (const auto& pair : pairs_)
    if (pair.first == name && pair.second == tel) return true;
  pairs_.emplace_back(name, tel);
  return false;
}

AddressLabelReport::AddressLabelReport(entry::Context& context, std::string_view designer_name,
                                       engine::TextMeasurer& measurer, bool prospects)
    : ReportFrame(context, designer_name), measurer_(measurer), prospects_(prospects) {
  Detail().Format = [this] { Detail_Format(); };
  Detail().AfterPrint = [this] { Detail_AfterPrint(); };
}

std::string AddressLabelReport::Query() const {
  const std::string client = sql::SqlQuote(context_.ClientName());
  if (prospects_)
    return "SELECT [CUSTOMER].*, [WK_PRINT].* FROM [CUSTOMER], [WK_PRINT] WHERE [CUSTOMER].[顧客NO] = [WK_PRINT].[SEK_GAKU]"
           " AND [WK_PRINT].[CLIENT_NAME] = '" + client + "' ORDER BY [ID]";
  std::string sql = "SELECT [WK_PRINT].*, [CHUMON].[ID],";
  for (const char* column : {"会社名", "所属", "氏名", "氏名カナ", "郵便番号", "住所", "電話番号", "メールアドレス", "検索用電話番号",
                             "ショップ名", "ショップ郵便番号", "ショップ住所", "ショップ電話番号", "ショップFAX", "ショップURL",
                             "ショップ問合せメールアドレス", "ショップ注文メールアドレス"})
    sql += "[" + std::string(column) + "],";
  sql += "[ショップID] FROM [CHUMON], [WK_PRINT]  WHERE [CHUMON].[ID] = [WK_PRINT].[ID]";
  return sql + " AND [WK_PRINT].[CLIENT_NAME] = '" + client + "'";
}

std::string AddressLabelReport::FirstField(std::initializer_list<std::string_view> names) const {
  const auto& recordset = DataControl1.Recordset;
  if (!recordset) return "";
  for (const auto name : names)
    if (recordset->HasField(name)) return FieldText(name);
  return "";
}

void AddressLabelReport::ActiveReport_ReportStart() {
  SetPrintWidth();
  skipped_ = 0;
  seen_.Clear();
  OpenData(Query());
}

void AddressLabelReport::ActiveReport_DataInitialize() { ApplyFormat(); }

void AddressLabelReport::ActiveReport_FetchData(bool& eof) {
  if (eof || !context_.run.dedupe) return;
  // Prospects have no 氏名 of their own: the staging row's name stands for it.
  const std::string name = FirstField({"氏名", "SIMEI"});
  const std::string tel = FirstField({"検索用電話番号", "検索用TEL番号"});
  if (seen_.CheckAndAdd(name, tel)) Detail().PrintSection = false;
}

void AddressLabelReport::BlankLabel() {
  DetailControl("fldYUBIN").Text.clear();
  for (const char* name : {"lblAddress", "lblName", "Label1", "lblCompany", "lblCompany2"}) DetailControl(name).Caption.clear();
  DetailControl("lblYubinmark").Visible = false;
  DetailControl("BarCode").Visible = false;
}

void AddressLabelReport::Detail_Format() {
  if (skipped_ < context_.run.start_position - 1) {
    // The place is taken blank and the same record waits for the next one.
    LayoutAction = engine::LayoutAction::KeepRecord;
    ++skipped_;
    BlankLabel();
    return;
  }
  const std::string postcode = FieldText("郵便番号");
  layout::ShowUnlessHidden(DetailControl("lblYubinmark"), !postcode.empty());
  layout::ShowUnlessHidden(DetailControl("fldYUBIN"), true);
  engine::Control& honorific = DetailControl("Label1");
  honorific.Caption = "様";
  layout::ShowUnlessHidden(honorific, true);

  engine::Control& address = DetailControl("lblAddress");
  const std::string jusyo = FieldText("住所");
  crlf_.LineBytes = crlf_.FitLineBytes(measurer_, address.Font, address.Width, jusyo);
  address.Caption = crlf_.InsertCrLfAddress(jusyo);

  FillCompanyBlock(FirstField({"COMPANY"}), FirstField({"所属", "顧客所属"}));
  FillName(FirstField({"SIMEI"}));

  engine::Control& barcode = DetailControl("BarCode");
  if (barcode.Tag != layout::kHiddenTag) {
    barcode.Data = MakeCustomerBarcode(postcode, jusyo);
    barcode.Visible = true;
  }
}

void AddressLabelReport::FillCompanyBlock(std::string company, std::string department) {
  engine::Control& upper = DetailControl("lblCompany");
  engine::Control& lower = DetailControl("lblCompany2");
  upper.Caption.clear();
  lower.Caption.clear();
  if (company.empty() && department.empty()) {
    upper.Visible = lower.Visible = false;
    return;
  }
  crlf_.FitCompanyLines(company, department, measurer_, upper.Font, upper.Width);
  upper.Caption = company;
  lower.Caption = department;
  layout::ShowUnlessHidden(upper, !company.empty());
  layout::ShowUnlessHidden(lower, !department.empty());
}

void AddressLabelReport::FillName(const std::string& name) {
  engine::Control& box = DetailControl("lblName");
  crlf_.LineBytes = crlf_.FitLineBytes(measurer_, box.Font, box.Width, name);
  if (crlf_.LineBytes >= text::ByteLen(name)) {
    box.Caption = name;
    return;
  }
  const std::string broken = crlf_.InsertCrLfName(name);
  const auto at = broken.find(kCrLf);
  engine::Control& above = DetailControl("lblCompany2");
  if (at == std::string::npos || !above.Caption.empty()) {
    box.Caption = at == std::string::npos ? broken : name;
    return;
  }
  // The name's first line takes the free department line above it.
  above.Caption = broken.substr(0, at);
  layout::ShowUnlessHidden(above, true);
  box.Caption = broken.substr(at + kCrLf.size());
}

void AddressLabelReport::Detail_AfterPrint() { DetailControl("BarCode").Data.clear(); }

void AddressLabelReport::ActiveReport_ReportEnd() { seen_.Clear(); }

void RegisterAddressLabelReports(engine::ReportRegistry& registry, std::shared_ptr<engine::TextMeasurer> measurer) {
  auto shared_measurer = std::make_shared<std::shared_ptr<engine::TextMeasurer>>(std::move(measurer));
  const auto measurer_of = [shared_measurer]() -> engine::TextMeasurer& {
    if (!*shared_measurer) *shared_measurer = std::make_shared<engine::PangoTextMeasurer>();
    return **shared_measurer;
  };
  registry.Register("rptLabel12", [measurer_of](entry::Context& context) {
    return std::make_unique<rptLabel12>(context, measurer_of());
  });
  registry.Register("rptLabel12_Mikomi", [measurer_of](entry::Context& context) {
    return std::make_unique<rptLabel12_Mikomi>(context, measurer_of());
  });
}

}  // namespace lupin::reports
