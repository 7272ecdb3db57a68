#include "reports/documents/seikyu.h"

#include "common/sql.h"
#include "common/text.h"
#include "common/vb.h"
#include "engine/measure.h"
#include "layout/form_fill.h"
#include "layout/format_apply.h"
#include "reports/documents/picking.h"
#include "reports/documents/seikyu_work.h"

namespace lupin::reports {

namespace {

constexpr int kAmountBoxes = 8;
constexpr std::string_view kHiddenAmount = "******** ";

}  // namespace

rptSeikyuWell::rptSeikyuWell(entry::Context& context, engine::TextMeasurer& measurer)
    : ReportFrame(context, "rptSeikyuWell"), measurer_(measurer) {
  Detail().Format = [this] { Detail_Format(); };
}

bool rptSeikyuWell::NameOnly() const { return vb::Val(context_.default_item_name) == 1; }

void rptSeikyuWell::ActiveReport_DataInitialize() {
  pages_.clear();
  units_.clear();
  BuildWkSeikyu(context_, context_.current.report_no, NameOnly());
  OpenData("SELECT * FROM WK_SEIKYU WHERE [CLIENT_NAME] = '" + sql::SqlQuote(context_.ClientName()) +
           "' ORDER BY [ID], [ORD]");
  PrepareSlip();
  ApplyFormat();
  SetPrintWidth();
}

void rptSeikyuWell::PrepareSlip() {
  account_ = ParseSlipAccount(context_.current.fld_txt[0]);
  engine::Section& detail = Detail();
  const std::string number = layout::RightAligned(account_.number, 6);
  // Three places on the slip: the payment form, the receipt, and the symbol stub.
  for (const int first : {1, 13}) {
    layout::FillBoxes(detail, "lblKoza_digit_", first, first + 4, account_.symbol);
    layout::FillBoxes(detail, "lblKoza_digit_", first + 5, first + 5, account_.check);
    layout::FillBoxes(detail, "lblKoza_digit_", first + 6, first + 11, number);
  }
  layout::FillBoxes(detail, "lblKoza_digit_", 25, 29, account_.symbol);
  const std::string holder = context_.current.fld_txt[1];
  DetailControl("lblKoza").Caption = Fit(DetailControl("lblKoza"), holder);
  DetailControl("lblKoza2").Caption = Fit(DetailControl("lblKoza2"), holder);
}

std::string rptSeikyuWell::Fit(engine::Control& box, std::string_view address) {
  crlf_.LineBytes = crlf_.FitLineBytes(measurer_, box.Font, box.Width, address);
  return crlf_.InsertCrLfAddress(address);
}

int rptSeikyuWell::PagesOf(const std::string& id) {
  if (const auto found = pages_.find(id); found != pages_.end()) return found->second;
  db::Recordset count = context_.Db().Open("SELECT COUNT(*) as CNT FROM [WK_SEIKYU] WHERE [ID] = " + id);
  const int pages = count.Eof() ? 0 : static_cast<int>(vb::Val(count["CNT"].Text()));
  count.Close();
  pages_.emplace(id, pages);
  return pages;
}

void rptSeikyuWell::Detail_Format() {
  const auto& recordset = DataControl1.Recordset;
  if (!recordset || recordset->Eof()) return;
  const std::string id = FieldText("ID");
  const int ord = static_cast<int>(vb::Val(FieldText("ORD")));
  const int pages = PagesOf(id);
  engine::Control& mark = DetailControl("lblPageNo");
  mark.Caption = std::to_string(ord) + "/" + std::to_string(pages);
  mark.Visible = false;
  layout::ShowUnlessHidden(mark, pages > 1);
  const bool last_page = ord == pages || pages <= 1;

  Addressee();
  DetailControl("lblName2").Caption = Fit(DetailControl("lblName2"), FieldText("ショップ住所"));
  Amount(last_page);
  Lines(ord);
  DetailControl("fldSyu_date").Text = vb::FormatText(FieldText("出荷日"), "YYYY/MM/DD");
  DetailControl("lblTax").Caption =
      vb::Val(FieldText("消費税")) == 0 ? "（税込み）" : vb::Format(vb::Val(FieldText("消費税")), "#,##0");
  DetailControl("lblTsushin").Caption = "ご注文番号 " + id;

  const OcrLine ocr = MakeOcrLine(account_, id, FieldText("CNT"), static_cast<long>(vb::Val(FieldText("請求額"))));
  DetailControl("lblOcr5").Caption = ocr.block5;
  DetailControl("lblOcr6").Caption = ocr.block6;
  DetailControl("lblOcr7").Caption = ocr.block7;
  DetailControl("lblOcr8").Caption = ocr.block8;
}

void rptSeikyuWell::Addressee() {
  DetailControl("lblYubin").Caption = "〒" + FieldText("郵便番号");
  const std::string address = FieldText("住所");
  DetailControl("lblAddress").Caption = Fit(DetailControl("lblAddress"), address);
  DetailControl("lblAddress3").Caption = Fit(DetailControl("lblAddress3"), address);

  std::string company = FieldText("会社名");
  std::string department = FieldText("所属");
  const bool has_company = !company.empty() || !department.empty();
  const std::string slip_company = company + (department.empty() ? "" : "　" + department);
  engine::Control& upper = DetailControl("lblCompany");
  engine::Control& lower = DetailControl("lblCompany2");
  if (has_company) crlf_.FitCompanyLines(company, department, measurer_, lower.Font, lower.Width);
  layout::FillCompanyPair(upper, lower, company, department);

  engine::Control& name = DetailControl("lblName");
  const std::string person = FieldText("氏名");
  crlf_.LineBytes = crlf_.FitLineBytes(measurer_, name.Font, name.Width, person);
  name.Caption = crlf_.InsertCrLfName(person) + "　様";
  const std::string slip_name = has_company ? slip_company : person + "　様";
  DetailControl("lblName3").Caption = slip_name;
  DetailControl("lblName4").Caption = slip_name;
}

void rptSeikyuWell::Amount(bool last_page) {
  engine::Section& detail = Detail();
  const std::string figure = vb::Format(vb::Val(FieldText("請求額")), "#,##0");
  const std::string boxes = last_page ? layout::RightAligned(figure, kAmountBoxes) : std::string(kHiddenAmount);
  layout::FillBoxes(detail, "lblSek_gaku_", 1, kAmountBoxes, boxes);
  layout::FillBoxes(detail, "lblSek_gaku_", 21, 20 + kAmountBoxes, boxes);
  const std::string total = last_page ? figure : std::string(kHiddenAmount);
  DetailControl("lblSEK_GAKU").Caption = total;
  DetailControl("lblSEK_GAKU2").Caption = total;
}

void rptSeikyuWell::Lines(int ord) {
  for (int k = 1; k <= kSeikyuSlots; ++k) {
    const std::string s = std::to_string(k);
    const std::string item = FieldText("商品ID" + s);
    const bool used = !item.empty() || !FieldText("商品名" + s).empty();
    const auto set = [&](const std::string& name, std::string text) {
      engine::Control& control = DetailControl(name);
      layout::SetShownText(control, std::move(text));
      control.Visible = false;
      layout::ShowUnlessHidden(control, true);
    };
    set("lblNo" + s, used ? std::to_string((ord - 1) * kSeikyuSlots + k) : "");
    set("fldItem_id" + s, item);
    set("lblItem" + s, FieldText("商品名" + s));
    set("lblBiko" + s, FieldText("備考" + s));
    set("lblNoshi" + s, FieldText("のし" + s));
    set("lblSuryo" + s, used ? QuantityText(vb::Val(FieldText("注文数量" + s))) : "");
    set("lblTani" + s, item.empty() ? "" : Unit(item));
    set("lblKingaku" + s, used ? vb::Format(vb::Val(FieldText("小計" + s)), "#,##0") : "");
  }
}

std::string rptSeikyuWell::Unit(const std::string& item) {
  if (const auto found = units_.find(item); found != units_.end()) return found->second;
  db::Recordset units = context_.Db().Open("SELECT [TANI] FROM [ITEM] " " WHERE [ITEM_ID] = '" + sql::SqlQuote(item) + "'");
  std::string unit = units.Eof() ? "" : units["TANI"].Text();
  units.Close();
  units_.emplace(item, unit);
  return unit;
}

void RegisterSeikyuReports(engine::ReportRegistry& registry, std::shared_ptr<engine::TextMeasurer> measurer) {
  auto shared_measurer = std::make_shared<std::shared_ptr<engine::TextMeasurer>>(std::move(measurer));
  registry.Register("rptSeikyuWell", [shared_measurer](entry::Context& context) {
    if (!*shared_measurer) *shared_measurer = std::make_shared<engine::PangoTextMeasurer>();
    return std::make_unique<rptSeikyuWell>(context, **shared_measurer);
  });
}

}  // namespace lupin::reports
