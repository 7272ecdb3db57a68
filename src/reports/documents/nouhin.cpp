#include "reports/documents/nouhin.h"

#include <vector>

#include "common/sql.h"
#include "common/text.h"
#include "common/vb.h"
#include "engine/measure.h"
#include "layout/format_apply.h"
#include "money/calc_chumon_t.h"
#include "money/tax_date.h"

namespace lupin::reports {

namespace {

constexpr std::string_view kSama = "　様";
constexpr std::string_view kReducedHeading = "軽は軽減税率(8%)の商品です。";

std::string Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return "";
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::string Amount(std::string_view value) { return vb::Format(vb::Val(value), "#,##0"); }

// A rate kept as a fraction (0.08), printed as the per cent a customer reads ("8").
std::string PercentText(std::string_view fraction) {
  const double percent = vb::Val(fraction) * 100;
  std::string text = vb::Format(percent, "0.00");
  while (text.back() == '0') text.pop_back();
  if (text.back() == '.') text.pop_back();
  return text;
}

std::string Slot(int k) { return std::to_string(k); }

}  // namespace

std::string ReducedSummaryText(const RateSummary& summary, bool invoice) {
  std::string text;
  for (int i = 0; i < 3; ++i) {
    const auto slot = static_cast<std::size_t>(i);
    if (summary.komikin[slot] + summary.zeikin[slot] == 0) continue;
    if (!text.empty()) text += "  ";
    if (i == 2) text += "旧";
    text += PercentText(summary.rate[slot]) + "%対象 " + vb::Format(summary.komikin[slot], "#,##0") + "円";
    if (invoice) text += "(消費税 " + vb::Format(summary.zeikin[slot], "#,##0") + "円)";
  }
  if (invoice) return std::string(kReducedHeading) + "　" + text;
  if (summary.komikin[1] == 0 && summary.komikin[2] == 0) return std::string(kReducedHeading);
  return std::string(kReducedHeading) + "(" + text + ")";
}

NouhinReport::NouhinReport(entry::Context& context, std::string_view designer_name, engine::TextMeasurer& measurer,
                           bool invoice)
    : ReportFrame(context, designer_name), measurer_(measurer), invoice_(invoice) {
  Detail().Format = [this] { Detail_Format(); };
}

NouhinQueryCounts NouhinReport::Counts() const {
  NouhinQueryCounts counts = counts_;
  if (tax_run_) counts.summaries += tax_run_->Reads();
  return counts;
}

std::string NouhinReport::Block(int ord) const {
  const int d = context_.dialect;
  const bool first = ord == 1;
  // Free-text columns go through the dialect so that the union agrees on their type.
  const auto text = [&](const std::string& column, const std::string& alias) {
    return sql::DialectField(d, 5, "[" + column + "]") + (first ? " as [" + alias + "]" : "");
  };
  std::string sql = "SELECT [CHUMON].[ID], ";
  sql += text("氏名", "氏名_U") + ", " + text("会社名", "会社名_U") + ", " + text("所属", "所属_U") + ", " +
         text("顧客番号", "顧客番号_U") + ", " + text("住所", "住所_U") + ", ";
  sql += "[出荷日], [電話番号], [請求日], " + text("メールアドレス", "メールアドレス_U") + ", [郵便番号], [ショップID], " +
         text("ショップ名", "ショップ名_U") + ", [ショップ郵便番号], " + text("ショップ住所", "ショップ住所_U") +
         ", [ショップ電話番号], ";
  for (int k = 1; k <= kNouhinSlots; ++k) {
    const std::string n = std::to_string(5 * (ord - 1) + k);
    sql += "[商品ID" + n + "], " + text("商品名" + n, "商品名" + Slot(k) + "_U") + ", [注文数量" + n + "], [小計" + n +
           "], [消費税区分" + n + "], " + text("商品カラー" + n, "商品カラー" + Slot(k) + "_U") + ", " +
           text("商品サイズ" + n, "商品サイズ" + Slot(k) + "_U") + ", ";
  }
  sql += text("支払方法", "支払方法_U") + ", [商品代金], [送料], [決済手数料], [消費税], [請求額], [ポイント利用], ";
  sql += text("贈答先会社名", "贈答先会社名_U") + ", " + text("贈答先所属", "贈答先所属_U") + ", " +
         text("贈答先氏名", "贈答先氏名_U") + ", [贈答先郵便番号], " + text("贈答先住所", "贈答先住所_U") +
         ", [贈答先電話番号], ";
  sql += text("請求先会社名", "請求先会社名_U") + ", " + text("請求先所属", "請求先所属_U") + ", " +
         text("請求先氏名", "請求先氏名_U") + ", [請求先郵便番号], " + text("請求先住所", "請求先住所_U") +
         ", [請求先電話番号], ";
  sql += "[SHIPPING_TAXKBN],[HANDLING_TAXKBN],[TAX_RATE],";
  if (invoice_) sql += "[INVOICE_NAME],[INVOICE_NO],";
  sql += std::to_string(ord) + " as ord ";
  sql += ",[受注日],[出荷予定日] ";
  sql += "From [CHUMON], [SHOP]";
  sql += " WHERE [CHUMON].[ショップID] = [SHOP].[SHOP_ID] ";
  if (ord > 1) {
    const std::string first_line = "[商品ID" + std::to_string(5 * (ord - 1) + 1) + "]";
    sql += " AND (" + first_line + " IS NOT NULL) AND (" + first_line + " <> '')";
    if (ord < 4) sql += " ";
  }
  return sql;
}

std::string NouhinReport::Query() const {
  std::string sql =
      "select a.*, [WK_PRINT].[COMPANY],[WK_PRINT].[SIMEI] , [WK_PRINT].[ORD_DATE], [WK_PRINT].[Date], "
      "[WK_PRINT].[BIKO1], [WK_PRINT].[BIKO2], [WK_PRINT].[BIKO3], [WK_PRINT].[ITEM_ID1], [WK_PRINT].[SEK_GAKU] "
      "from [WK_PRINT], ";
  sql += "(" + Block(1);
  for (int ord = 2; ord <= 4; ++ord) sql += "Union " + Block(ord);
  sql += ") a ";
  sql += "WHERE a.[ID] = [WK_PRINT].[ID]";
  sql += WorkstationRestriction();
  sql += " order by a.id,a.ord";
  return sql;
}

void NouhinReport::ActiveReport_DataInitialize() {
  atena_.Clear();
  page_marks_.clear();
  units_.clear();
  reduced_by_date_.clear();
  flags_id_.clear();
  summary_id_.clear();
  tax_run_.reset();
  counts_ = {};
  old_arithmetic_ = context_.command.find("-nohinoldver") != std::string::npos;

  OpenData(Query());
  SetPrintWidth();
  DetailControl("lblKoza").Caption = context_.current.fld_txt[0];
  ApplyFormat();
  if (context_.current.paper_type != 0) HideDrawnParts();
  RememberBaseFontSize("lblITEM1");
  zei_info_ = money::clsZeiInfo();
  zei_info_.SetDb(context_.Db(), 0);
}

void NouhinReport::HideDrawnParts() {
  // On the preprinted paper only data prints: rules, boxes and fixed captions are on the form.
  // They are hidden for good, so the steps that show titles again for a record leave them.
  for (const auto& control : Detail().Controls()) {
    const std::string type = control->TypeName();
    const bool caption = type == "label" && text::ToLower(text::CharLeft(control->Name, 3)) != "lbl";
    if (type != "line" && type != "shape" && !caption) continue;
    control->Visible = false;
    control->Tag = std::string(layout::kHiddenTag);
  }
}

void NouhinReport::Detail_Format() {
  const auto& recordset = DataControl1.Recordset;
  if (!recordset || recordset->Eof()) return;
  engine::Section& detail = Detail();
  const std::string id = FieldText("ID");
  const int ord = static_cast<int>(vb::Val(FieldText("ord")));
  const std::string shop = FieldText("ショップID");
  const std::uint8_t atena = atena_.Of(context_.Db(), shop);
  const bool no_tax = vb::Val(FieldText("消費税")) == 0;

  PageMark(id, ord);
  CompanyBlock("lblCompany", "lblCompany2", FieldText("Company"), FieldText("所属_U"));
  layout::CopyCaption(detail, "lblCompany", {"lblCompany_3"});
  layout::CopyCaption(detail, "lblCompany2", {"lblCompany2_3"});
  DetailControl("lblCompany_3").Visible = DetailControl("lblCompany").Visible;
  DetailControl("lblCompany2_3").Visible = DetailControl("lblCompany2").Visible;
  for (const char* copy : {"lblCompany_3", "lblCompany2_3"})
    layout::ShowUnlessHidden(DetailControl(copy), DetailControl(copy).Visible);

  CompanyBlock("lblCompany_2", "lblCompany2_2", FieldText("請求先会社名_U"), FieldText("請求先所属_U"));
  const std::string billing_name = FieldText("請求先氏名_U");
  DetailControl("LblName2").Caption = billing_name + std::string(kSama);
  layout::ShowUnlessHidden(DetailControl("LblName2"), !billing_name.empty());

  DetailControl("fldSYUKKA_DATE").Text = vb::FormatText(FieldText("請求日"), "YYYY/MM/DD");
  layout::CopyCaption(detail, "fldSYUKKA_DATE", {"lblSYUKKA_DATE2", "lblSYUKKA_DATE3"});
  layout::CopyCaption(detail, "fldCUSTOMERNO", {"lblCUSTOMERNO2", "lblCUSTOMERNO3"});
  layout::CopyCaption(detail, "fldID", {"lblID2", "lblID3"});
  DetailControl("lblName1").Caption = FieldText("Simei") + std::string(kSama);
  layout::CopyCaption(detail, "lblName1", {"lblNAME3"});
  DetailControl("Field2").Text = FieldText("請求先郵便番号");
  layout::CopyCaption(detail, "fldYUBIN", {"lblYUBIN3"});
  layout::CopyCaption(detail, "fldTEL", {"lblTEL2", "lblTEL3"});
  layout::CopyCaption(detail, "fldSHOP_NAME", {"lblSHOP_NAME2", "lblSHOP_NAME3"});
  layout::CopyCaption(detail, "fldJYUBIN", {"lblJYUBIN2", "lblJYUBIN3"});
  layout::CopyCaption(detail, "fldJTEL", {"lblJTEL2", "lblJTEL3"});

  Address("lblADDRESS1", FieldText("住所_U"));
  Address("lblADDRESS2", FieldText("請求先住所_U"));
  Address("lblADDRESS3", FieldText("住所_U"));
  const std::string shop_address = text::TextReplace(FieldText("ショップ住所_U"), "\r\n", " ");
  for (const char* name : {"lblJJUSYO1", "lblJJUSYO2", "lblJJUSYO3"}) DetailControl(name).Caption = shop_address;

  Lines(ord);
  for (int k = 1; k <= kNouhinSlots; ++k) {
    const std::string mark = !no_tax && vb::Val(FieldText("消費税区分" + Slot(k))) != 0 ? "税込" : "";
    DetailControl("lblTAX_DIV" + Slot(k)).Caption = mark;
    DetailControl("lblTAX_DIV2" + Slot(k)).Caption = mark;
    DetailControl("lblTAX_DIV3" + Slot(k)).Caption = mark;
  }

  DetailControl("lblSOURYO2").Caption = Amount(FieldText("送料"));
  DetailControl("lblSOURYO3").Caption = DetailControl("lblSOURYO2").Caption;
  DetailControl("lblHandling2").Caption = Amount(FieldText("決済手数料"));
  DetailControl("lblHandling3").Caption = DetailControl("lblHandling2").Caption;

  Totals();
  TaxBox(no_tax);
  layout::CopyCaption(detail, "fldSIHARAI", {"lblShiharai2", "lblShiharai3"});
  Gift(atena != 0 && !FieldText("贈答先氏名_U").empty());
  ZeroLines();
  Suffixes(no_tax);
  BillingBox();
  ReducedRate(id, ord);
  if (invoice_) InvoiceNumber();
}

void NouhinReport::PageMark(const std::string& id, int ord) {
  auto found = page_marks_.find(id);
  if (found == page_marks_.end()) {
    ++counts_.page_marks;
    db::Recordset marks = context_.Db().Open("SELECT [商品ID6],[商品ID11],[商品ID16] FROM [CHUMON] WHERE [ID] = " + id);
    int forms = 0;
    if (!marks.Eof()) {
      if (!marks["商品ID16"].Text().empty()) forms = 4;
      else if (!marks["商品ID11"].Text().empty()) forms = 3;
      else if (!marks["商品ID6"].Text().empty()) forms = 2;
    }
    marks.Close();
    found = page_marks_.emplace(id, forms).first;
  }
  const int forms = found->second;
  std::string mark;
  is_last_form_ = true;
  if (forms > 0) {
    mark = std::to_string(ord) + "/" + std::to_string(forms);
    is_last_form_ = ord == forms;
  }
  for (const char* name : {"lblPageNo", "lblPageNo2", "lblPageNo3"}) DetailControl(name).Caption = mark;
}

void NouhinReport::CompanyBlock(const char* upper, const char* lower, std::string company, std::string department) {
  engine::Control& upper_box = DetailControl(upper);
  engine::Control& lower_box = DetailControl(lower);
  if (!company.empty() || !department.empty())
    crlf_.FitCompanyLines(company, department, measurer_, lower_box.Font, lower_box.Width);
  layout::FillCompanyPair(upper_box, lower_box, company, department);
}

void NouhinReport::Address(const char* control, std::string_view address) {
  engine::Control& box = DetailControl(control);
  crlf_.LineBytes = crlf_.FitLineBytes(measurer_, box.Font, box.Width, address);
  box.Caption = crlf_.InsertCrLfAddress(address);
}

void NouhinReport::Lines(int ord) {
  const std::string shop = FieldText("ショップID");
  const double base = BaseFontSize();
  for (int k = 1; k <= kNouhinSlots; ++k) {
    const std::string s = Slot(k);
    const std::string item = FieldText("商品ID" + s);
    // The print list may override the first line's text through BIKO1.
    const std::string name = ord == 1 && k == 1 ? FieldText("BIKO1") : FieldText("商品名" + s + "_U");
    const std::string line =
        item + "   " + name + "   " + FieldText("商品カラー" + s + "_U") + "   " + FieldText("商品サイズ" + s + "_U");
    engine::Control& text = DetailControl("lblITEM" + s);
    text.Caption = line;
    if (Trim(line).empty()) {
      for (const std::string& field : {"fldITEM_SURYO" + s, "fldITEM_GAKU" + s}) {
        engine::Control& box = DetailControl(field);
        if (box.Tag != layout::kHiddenTag) box.Text.clear();
      }
    }
    // Sixteen-bit bytes: two a character, whatever the character.
    const double size = 2 * text::CharLen(line) > 75 ? base - 2 : base;
    for (const std::string& copy : {"lblITEM" + s, "lblITEM2" + s, "lblITEM3" + s}) {
      DetailControl(copy).Caption = line;
      DetailControl(copy).Font.size = size;
    }

    const std::string quantity = DetailControl("fldITEM_SURYO" + s).Text;
    const std::string amount = DetailControl("fldITEM_GAKU" + s).Text;
    for (const char* copy : {"2", "3"}) {
      DetailControl("lblITEM_SURYO" + std::string(copy) + s).Caption = quantity;
      DetailControl("lblITEM_GAKU" + std::string(copy) + s).Caption = amount.empty() ? "" : Amount(FieldText("小計" + s));
    }

    std::string unit;
    if (!item.empty()) {
      DetailControl("fldITEM_ID" + s).Visible = false;
      unit = text::ByteLeft(Unit(item, shop), 6);
    }
    const double count = vb::Val(FieldText("注文数量" + s));
    const std::string unit_price = count != 0 ? vb::Format(vb::Val(FieldText("小計" + s)) / count, "#,##0") : "";
    for (const std::string_view copy : {"", "2", "3"}) {
      DetailControl("lblTANI" + std::string(copy) + s).Caption = unit;
      DetailControl("lblTANKA" + std::string(copy) + s).Caption = unit_price;
    }
  }
}

std::string NouhinReport::Unit(const std::string& item, const std::string& shop) {
  const auto key = std::make_pair(item, shop);
  if (const auto found = units_.find(key); found != units_.end()) return found->second;
  ++counts_.units;
  db::Recordset units = context_.Db().Open("SELECT [TANI] FROM [ITEM] " " WHERE [ITEM_ID] = '" + sql::SqlQuote(item) +
                                           "'" " AND [SHOP_ID] = '" + sql::SqlQuote(shop) + "'");
  std::string unit = units.Eof() ? "" : units["TANI"].Text();
  units.Close();
  units_.emplace(key, unit);
  return unit;
}

void NouhinReport::Totals() {
  const char* totals[] = {"lblGOK_GAKU1", "lblGOK_GAKU2", "lblGOK_GAKU3"};
  if (!is_last_form_) {
    for (const char* name : totals) DetailControl(name).Caption.clear();
    DetailControl("fldSEK_GAKU").Text.clear();
    DetailControl("lblSEK_GAKU2").Caption.clear();
    DetailControl("lblSEK_GAKU3").Caption.clear();
    return;
  }
  // Postage and fee as printed, read back through the "0" picture.
  const double postage = vb::Val(vb::FormatText(DetailControl("lblSOURYO2").Caption, "0"));
  const double fee = vb::Val(vb::FormatText(DetailControl("lblHandling2").Caption, "0"));
  double total = vb::Val(FieldText("商品代金")) + postage + fee;
  if (!old_arithmetic_) total -= vb::Val(FieldText("ポイント利用"));
  for (const char* name : totals) DetailControl(name).Caption = vb::Format(total, "#,##0");
  layout::ShowUnlessHidden(DetailControl("fldSEK_GAKU"), true);
  DetailControl("lblSEK_GAKU2").Caption = Amount(FieldText("SEK_GAKU"));
  DetailControl("lblSEK_GAKU3").Caption = DetailControl("lblSEK_GAKU2").Caption;
}

void NouhinReport::TaxBox(bool no_tax) {
  engine::Control& tax1 = DetailControl("fldTAX");
  engine::Control& tax2 = DetailControl("lblTAX2");
  engine::Control& tax3 = DetailControl("lblTAX3");
  const char* masks[] = {"lblMask1", "lblMask2", "lblMask1_2", "lblMask2_2", "lblMask1_3", "lblMask2_3"};
  if (no_tax) {
    tax1.Text.clear();
    tax2.Caption.clear();
    tax3.Caption = is_last_form_ ? "（税込み）" : "";
    for (engine::Control* box : {&tax1, &tax2, &tax3}) box->alignment = engine::Alignment::Center;
    for (const char* mask : masks) layout::ShowUnlessHidden(DetailControl(mask), true);
    return;
  }
  tax2.Caption = is_last_form_ ? Amount(FieldText("消費税")) : "";
  if (!is_last_form_) tax1.Text.clear();
  tax3.Caption = tax2.Caption;
  for (engine::Control* box : {&tax1, &tax2, &tax3}) box->alignment = engine::Alignment::Right;
  for (const char* mask : masks) DetailControl(mask).Visible = false;
}

void NouhinReport::Gift(bool addressed_to_recipient) {
  const char* priced_titles[] = {"lblSOURYO_TITLE", "lblZEUNIKI_TITLE1", "Label102", "lblHtax_div1",
                                 "lblShiharai",     "Line196",           "Label107", "Label108"};
  engine::Control& order2 = DetailControl("lblOrder2");
  if (!addressed_to_recipient) {
    for (const char* name : priced_titles) layout::ShowUnlessHidden(DetailControl(name), true);
    order2.Visible = false;
    return;
  }
  // The first copy goes with the parcel to the recipient: no prices on it.
  DetailControl("fldCUSTOMERNO").Text.clear();
  CompanyBlock("lblCompany", "lblCompany2", FieldText("贈答先会社名_U"), FieldText("贈答先所属_U"));
  DetailControl("lblName1").Caption = FieldText("贈答先氏名_U") + std::string(kSama);
  Address("lblADDRESS1", FieldText("贈答先住所_U"));
  DetailControl("fldYUBIN").Text = FieldText("贈答先郵便番号");
  DetailControl("fldTEL").Text = FieldText("贈答先電話番号");
  for (int k = 1; k <= kNouhinSlots; ++k) {
    for (const std::string& name : {"lblTANKA" + Slot(k), "fldITEM_GAKU" + Slot(k), "lblTAX_DIV" + Slot(k)})
      layout::SetShownText(DetailControl(name), "");
  }
  for (const char* name : {"fldSOURYO", "fldHANDLING", "lblGOK_GAKU1", "fldTAX", "fldSEK_GAKU", "fldPoint", "fldSIHARAI"})
    layout::SetShownText(DetailControl(name), "");
  for (const char* name : priced_titles) DetailControl(name).Visible = false;
  order2.Caption = FieldText("Simei") + std::string(kSama) + " ご依頼分";
  layout::ShowUnlessHidden(order2, true);
}

void NouhinReport::ZeroLines() {
  struct Charge {
    const char* column;
    std::vector<const char*> first_titles, copy_titles, amounts;
  };
  const Charge charges[] = {
      {"送料", {"lblSOURYO_TITLE", "lblZEUNIKI_TITLE1"},
       {"lblSOURYO_TITLE2", "lblSOURYO_TITLE3", "lblZEINUKI_TITLE2", "lblZEINUKI_TITLE"},
       {"fldSOURYO", "lblSOURYO2", "lblSOURYO3"}},
      {"決済手数料", {"Label102", "lblHtax_div1"}, {"Label104", "Label106", "lblHtax_div2", "lblHtax_div3"},
       {"fldHANDLING", "lblHandling2", "lblHandling3"}},
      {"ポイント利用", {"Label107", "Label108"}, {"Label109", "Label110", "Label111", "Label112"},
       {"fldPoint", "fldPoint2", "fldPoint3"}},
  };
  for (const auto& charge : charges) {
    if (vb::Val(FieldText(charge.column)) == 0 || !is_last_form_) {
      for (const char* name : charge.first_titles) DetailControl(name).Visible = false;
      for (const char* name : charge.copy_titles) DetailControl(name).Visible = false;
      for (const char* name : charge.amounts) layout::SetShownText(DetailControl(name), "");
    } else {
      for (const char* name : charge.copy_titles) layout::ShowUnlessHidden(DetailControl(name), true);
    }
  }
}

void NouhinReport::Suffixes(bool no_tax) {
  const auto suffix = [&](std::string_view flag_column) -> std::string {
    if (!is_last_form_) return "";
    if (no_tax) return "円";
    return vb::Val(FieldText(flag_column)) != 0 ? "円(税込)" : "円(税抜)";
  };
  const std::string postage = suffix("SHIPPING_TAXKBN");
  for (const char* name : {"lblZEUNIKI_TITLE1", "lblZEINUKI_TITLE2", "lblZEINUKI_TITLE"}) DetailControl(name).Caption = postage;
  const std::string fee = suffix("HANDLING_TAXKBN");
  for (const char* name : {"lblHtax_div1", "lblHtax_div2", "lblHtax_div3"}) DetailControl(name).Caption = fee;
}

void NouhinReport::BillingBox() {
  engine::Control* rows[] = {&DetailControl("lblSeiInfo1"), &DetailControl("lblSeiInfo2"), &DetailControl("lblSeiInfo3")};
  const std::string company = FieldText("請求先会社名_U");
  const std::string department = FieldText("請求先所属_U");
  std::vector<std::string> lines;
  for (const std::string& part : {company, department})
    if (!part.empty()) lines.push_back(part);
  lines.push_back(FieldText("請求先氏名_U") + std::string(kSama));
  // Packed towards the bottom: the name always stands in the last row.
  std::string texts[3];
  for (std::size_t i = 0; i < lines.size(); ++i) texts[3 - lines.size() + i] = lines[i];
  if (!company.empty() && !department.empty()) texts[0] = company, texts[1] = department;
  for (int i = 0; i < 3; ++i)
    if (rows[i]->Tag != layout::kHiddenTag) rows[i]->Caption = texts[i];
}

bool NouhinReport::ReducedRateApplies(vb::DateSerial date) {
  // From the first reduced rate on, a generation always applies and the answer is fixed; before
  // it the rates of the previous date may survive, so those dates are asked each time.
  const bool fixed = date >= zei_info_.ReducedStartDate();
  if (fixed) {
    if (const auto found = reduced_by_date_.find(date); found != reduced_by_date_.end()) return found->second;
  }
  ++counts_.tax_dates;
  zei_info_.SetKijyun(date);
  zei_info_.GetData();
  const bool reduced = zei_info_.IsExistReduced();
  if (fixed) reduced_by_date_.emplace(date, reduced);
  return reduced;
}

const std::array<bool, kNouhinMaxLines>& NouhinReport::ReducedFlags(const std::string& id) {
  if (flags_id_ == id) return flags_;
  ++counts_.reduced_flags;
  flags_.fill(false);
  db::Recordset rows = context_.Db().Open("SELECT [ITEM_NO],[REDUCEDKBN],[TAXRATE] FROM [CHUMON_D] WHERE [ID] = " + id);
  for (; !rows.Eof(); rows.MoveNext()) {
    const int line = static_cast<int>(vb::Val(rows["ITEM_NO"].Text()));
    if (line >= 1 && line <= kNouhinMaxLines && vb::Val(rows["REDUCEDKBN"].Text()) != 0)
      flags_[static_cast<std::size_t>(line - 1)] = true;
  }
  rows.Close();
  flags_id_ = id;
  return flags_;
}

money::TaxSummaryRun& NouhinReport::TaxRun() {
  if (tax_run_) return *tax_run_;
  // Only orders whose date has the reduced rate are asked for, so only those are calculated ahead.
  tax_run_ = std::make_unique<money::TaxSummaryRun>(context_.settings, context_.Db(), 0,
                                                    [this](vb::DateSerial date) { return ReducedRateApplies(date); });
  // The orders the run prints: those of its first forms, in the order of the run.
  ++counts_.summaries;
  std::vector<std::int32_t> ids;
  for (db::Recordset rs = context_.Db().Open(
           "SELECT [WK_PRINT].[ID] FROM [WK_PRINT], [CHUMON], [SHOP] WHERE [WK_PRINT].[ID] = [CHUMON].[ID]"
           " AND [CHUMON].[ショップID] = [SHOP].[SHOP_ID]" + WorkstationRestriction() + " ORDER BY [WK_PRINT].[ID]");
       !rs.Eof(); rs.MoveNext())
    ids.push_back(static_cast<std::int32_t>(rs["ID"].Long()));
  tax_run_->SetOrders(ids);
  return *tax_run_;
}

const RateSummary& NouhinReport::Summary(const std::string& id) {
  if (summary_id_ == id) return summary_;
  if (const money::TaxSummaryRow* row = TaxRun().Row(static_cast<std::int32_t>(vb::Val(id)))) {
    for (std::size_t s = 0; s < 3; ++s) {
      summary_.rate[s] = row->rate[s].Text();
      summary_.komikin[s] = static_cast<std::int32_t>(vb::Val(row->komikin[s].Text()));
      summary_.zeikin[s] = static_cast<std::int32_t>(vb::Val(row->zeikin[s].Text()));
    }
    summary_id_ = id;
    return summary_;
  }
  ++counts_.summaries;
  db::Recordset row = context_.Db().Open(
      "SELECT [ZEIRATE1],[ZEIRATE1KIN],[ZEIRATE1ZEI],[ZEIRATE2],[ZEIRATE2KIN],[ZEIRATE2ZEI],[ZEIRATE3],[ZEIRATE3KIN],"
      "[ZEIRATE3ZEI] FROM [CHUMON_T] WHERE [ID] = " + id);
  summary_ = {};
  if (!row.Eof()) {
    for (int i = 0; i < 3; ++i) {
      const std::string slot = "ZEIRATE" + std::to_string(i + 1);
      const auto s = static_cast<std::size_t>(i);
      summary_.rate[s] = row[slot].Text();
      summary_.komikin[s] = static_cast<std::int32_t>(vb::Val(row[slot + "KIN"].Text()));
      summary_.zeikin[s] = static_cast<std::int32_t>(vb::Val(row[slot + "ZEI"].Text()));
    }
    row.Close();
  } else {
    row.Close();
    // No summary yet: the calculation of the order writes it, with its own rounding.
    money::clsCalcChumonT calc(context_.settings);
    calc.SetDb(context_.Db(), 0);
    calc.SetId(static_cast<std::int32_t>(vb::Val(id)));
    calc.Calc();
    const vb::Currency rates[] = {calc.Zeirate1(), calc.Zeirate2(), calc.Zeirate3()};
    const std::int32_t komikin[] = {calc.Komikin1(), calc.Komikin2(), calc.Komikin3()};
    const std::int32_t zeikin[] = {calc.Zeikin1(), calc.Zeikin2(), calc.Zeikin3()};
    for (std::size_t s = 0; s < 3; ++s) {
      summary_.rate[s] = rates[s].ToString();
      summary_.komikin[s] = komikin[s];
      summary_.zeikin[s] = zeikin[s];
    }
  }
  summary_id_ = id;
  return summary_;
}

void NouhinReport::ReducedRate(const std::string& id, int ord) {
  const char* words[] = {"lblReducedWord1", "lblReducedWord2", "lblReducedWord3"};
  for (const char* name : words) DetailControl(name).Visible = false;
  for (int k = 1; k <= kNouhinSlots; ++k)
    for (const std::string_view copy : {"", "2", "3"}) DetailControl("lblReducedKbn" + std::string(copy) + Slot(k)).Visible = false;

  const vb::DateSerial date = money::GetTaxDate(context_.settings, FieldText("受注日"), FieldText("出荷予定日"),
                                                FieldText("出荷日"), FieldText("請求日"));
  if (!ReducedRateApplies(date)) return;
  const auto& flags = ReducedFlags(id);
  if (is_last_form_) {
    const std::string text = ReducedSummaryText(Summary(id), invoice_);
    for (const char* name : words) {
      DetailControl(name).Caption = text;
      layout::ShowUnlessHidden(DetailControl(name), true);
    }
  }
  for (int k = 1; k <= kNouhinSlots; ++k) {
    const int line = (ord - 1) * kNouhinSlots + k;
    if (line < 1 || line > kNouhinMaxLines || !flags[static_cast<std::size_t>(line - 1)]) continue;
    for (const std::string_view copy : {"", "2", "3"}) layout::ShowUnlessHidden(DetailControl("lblReducedKbn" + std::string(copy) + Slot(k)), true);
  }
}

void NouhinReport::InvoiceNumber() {
  engine::Control& number = DetailControl("fldInvoiceNo");
  const std::string value = FieldText("INVOICE_NO");
  number.Text = value.empty() ? "" : "適格請求書発行事業者登録番号:" + value;
  layout::CopyCaption(Detail(), "fldInvoiceNo", {"lblInvoiceNo2", "lblInvoiceNo3"});
}

void RegisterNouhinReports(engine::ReportRegistry& registry, std::shared_ptr<engine::TextMeasurer> measurer) {
  auto shared_measurer = std::make_shared<std::shared_ptr<engine::TextMeasurer>>(std::move(measurer));
  const auto measurer_of = [shared_measurer]() -> engine::TextMeasurer& {
    if (!*shared_measurer) *shared_measurer = std::make_shared<engine::PangoTextMeasurer>();
    return **shared_measurer;
  };
  registry.Register("rptNouhin", [measurer_of](entry::Context& context) {
    return std::make_unique<rptNouhin>(context, measurer_of());
  });
  registry.Register("rptNouhinInvoice", [measurer_of](entry::Context& context) {
    return std::make_unique<rptNouhinInvoice>(context, measurer_of());
  });
}

}  // namespace lupin::reports
