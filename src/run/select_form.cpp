#include "run/select_form.h"

#include "catalogue/load_report_definition.h"
#include "common/sql.h"
#include "common/text.h"
#include "common/vb.h"
#include "entry/catalogue.h"
#include "entry/print_list_order.h"
#include "run/query_builder.h"

namespace lupin::run {

namespace {


std::string Today() { return vb::FormatDate(vb::Today(), "YYYY/MM/DD"); }

bool IsCashOnDelivery(std::string_view method) { return method == "代引" || method == "代引き"; }

// "number of txtId(0)": numeric conversion, then the default format.
std::string NumberText(std::string_view text) { return vb::Format(vb::Val(text)); }

}  // namespace

SelectForm::SelectForm(entry::Context& context, entry::Ui& ui) : context_(context), ui_(ui) {
  cboKbn.AddItem("0:顧客", 0);
  cboKbn.AddItem("1:届け先", 1);
  cboKbn.AddItem("2:見込み客", 2);
  for (int k = 1; k <= 5; ++k) cboDMKbn.AddItem("DM区分" + std::to_string(k), k);
  cboDate.AddItem("出荷日");
  cboDate.AddItem("受注日");
  cboOrderBy.AddItem("商品ID(昇順)");
  cboOrderBy.AddItem("小計(降順)");
  cboOrderBy.AddItem("個数(降順)");
  int year = 0, month = 0, day = 0;
  vb::SplitDate(vb::Today(), year, month, day);
  for (int y = year; y > year - 10; --y) cboNendo.AddItem(std::to_string(y), y);
  Form_Initialize();
}

void SelectForm::Message(std::string_view text) {
  ui_.MessageBox(text, kSelectCaption, entry::kInformation);
}

void SelectForm::Form_Initialize() {
  activated_ = false;
  // The settings folder, the dialect and the tax rate, once per creation of the form.
  entry::InitialiseContextSettings(context_);
  closed = 0;
}

void SelectForm::Form_Load() {
  loaded_ = true;
}

void SelectForm::Form_Activate() {
  if (activated_) return;
  activated_ = true;
  loading_ = true;
  lblName[0].caption.clear();
  lblName[1].caption.clear();
  S_SetReportSet();
  LoadShops();
  cboShop_id.list_index = cboShop_id.ListCount() > 0 ? 0 : -1;
  cboShop_id2.list_index = cboShop_id2.ListCount() > 0 ? 0 : -1;
  cboDate.list_index = 0;
  cboOrderBy.list_index = 0;
  LoadPayments("");

  txtDate[0].text = Today();
  txtDate[1].text = Today();
  int year = 0, month = 0, day = 0;
  vb::SplitDate(vb::Today(), year, month, day);
  const vb::DateSerial first_of_month = vb::DateSerialOf(year, month, 1);
  txtDate[5].text = vb::FormatDate(vb::DateAdd("m", -1, first_of_month), "YYYY/MM/") + "01";
  txtDate[4].text = vb::FormatDate(vb::DateAdd("d", -1, first_of_month), "YYYY/MM/DD");
  cboPayment.list_index = cboPayment.ListCount() > 0 ? 0 : -1;
  loading_ = false;

  if (!Report.empty()) {
    lblReport.caption = Report;
    lblReport.visible = true;
    cboList.visible = false;
    common::SelectComboByText(cboList, Report);
    cboList_Click();
  }
}

void SelectForm::Form_KeyDown(int key_code, int shift) {
  if (key_code == 123 && shift == 0) Form_Unload();
}

void SelectForm::Form_Unload() { closed = -1; }

void SelectForm::S_SetReportSet() {
  cboList.Clear();
  auto rs = context_.Db().Open("SELECT [REPORT_NO], [REPORT_NAME] FROM [REPORT] WHERE [ENABLED] = 1 ORDER BY [ORD]");
  for (; !rs.Eof(); rs.MoveNext()) {
    cboList.AddItem(rs["REPORT_NAME"].Text(), static_cast<std::int32_t>(rs["REPORT_NO"].Long()));
  }
}

void SelectForm::LoadShops() {
  cboShop_id.Clear();
  cboShop_id2.Clear();
  cboShop_id.AddItem("すべて", 0);
  cboShop_id2.AddItem("すべて", 0);
  auto rs = context_.Db().Open("SELECT [SHOP_ID] FROM [SHOP]");
  for (; !rs.Eof(); rs.MoveNext()) {
    cboShop_id.AddItem(rs["SHOP_ID"].Text());
    cboShop_id2.AddItem(rs["SHOP_ID"].Text());
  }
}

void SelectForm::LoadPayments(std::string_view shop) {
  const std::string statement =
      shop.empty() ? std::string("SELECT [METHOD],SUM([ORD]) FROM [PAYMENT] WHERE [OK] = 1 GROUP BY [METHOD] ORDER BY SUM([ORD])")
                   : "SELECT [METHOD] FROM [PAYMENT] WHERE [OK] = 1 AND [SHOP_ID] = '" + sql::SqlQuote(shop) +
                         "' ORDER BY [ORD]";
  auto rs = context_.Db().Open(statement);
  cboPayment.Clear();
  cboPayment.AddItem("すべて");
  cod_position = 0;
  bool seen = false;
  for (; !rs.Eof(); rs.MoveNext()) {
    const std::string method = rs["METHOD"].Text();
    if (IsCashOnDelivery(method) && !seen) {
      seen = true;
      cboPayment.AddItem(method + "以外");
      cod_position = cboPayment.ListCount();
    }
    cboPayment.AddItem(method);
  }
  cboPayment.list_index = 0;
}

void SelectForm::cboShop_id_Click() {
  if (cboShop_id.list_index == -1) return;
  LoadPayments(cboShop_id.list_index == 0 ? std::string_view() : std::string_view(cboShop_id.Text()));
}

std::string SelectForm::IdTable() const {
  return context_.current.other_tbl_name.empty() ? std::string("CHUMON") : context_.current.other_tbl_name;
}

std::string SelectForm::NameOf(const std::string& company, const std::string& name) const {
  return text::CharLeft(company + name, 10);
}

void SelectForm::LoadNewestRecord() {
  db::Recordset rs;
  try {
    rs = context_.Db().Open("SELECT [ID],[会社名],[氏名] FROM [" + IdTable() + "] ORDER BY [ID] DESC");
  } catch (const db::DbError&) {
    // CUSTOMER has no [ID]: a customer report has no order number to show, as with an empty table.
    rs = db::Recordset();
  }
  if (rs.Eof()) {
    for (int i = 0; i < 2; ++i) {
      txtId[i].text.clear();
      lblName[i].caption.clear();
    }
    return;
  }
  const std::string id = rs["ID"].Text();
  const std::string name = NameOf(rs["会社名"].Text(), rs["氏名"].Text());
  for (int i = 0; i < 2; ++i) {
    txtId[i].text = id;
    lblName[i].caption = name;
  }
}

void SelectForm::ApplyFrames() {
  const auto& def = context_.current;
  if (def.other_tbl_name.empty()) {
    const bool item_list = def.report_no == 35;
    fraItemList = {item_list, item_list, item_list};
    fraSelect = {!item_list, !item_list, !item_list};
    fraCustomer.enabled = false;
  } else if (def.other_tbl_name == "CUSTOMER") {
    fraSelect = {true, false, true};
    fraItemList = {false, false, false};
    fraCustomer.enabled = true;
  }
  fraCustomer.visible = true;
  cmdCustomer.enabled = fraCustomer.enabled;
  cmdItem.enabled = fraCustomer.enabled;
  cmdChumon.enabled = fraSelect.enabled;
}

void SelectForm::cboList_Click() {
  if (cboList.list_index == -1 || loading_) return;
  catalogue::LoadReportDefinition(context_, cboList.ItemData());
  const auto& def = context_.current;
  LoadNewestRecord();

  for (int k = 0; k < 4; ++k) chkChumonOption[k].value = entry::WhereChecksOption(def.where, k) ? 1 : 0;
  ApplyFrames();
  chkChumonOption[0].caption = def.date_label;

  if (def.lbl_rpt != 0) {
    fraLabel.visible = true;
    chkDistinct.enabled = !entry::IsCustomerReport(def.other_tbl_name);
    fraDenNo.visible = false;
    txtDenNo.text.clear();
  } else {
    fraLabel.visible = false;
    txtStart.text = "1";
    chkDistinct.value = 1;
    fraDenNo.visible = entry::IsWaybillReport(def.report_no);
    if (!fraDenNo.visible) txtDenNo.text.clear();
  }
  chkReDenNo.value = 1;

  if (loaded_ && cboPayment.ListCount() > 0) {
    if (def.payment_init == 2) {
      cboPayment.list_index = cod_position;
    } else if (def.payment_init == 1 && cboPayment.ListCount() > 1) {
      cboPayment.list_index = 1;
    } else {
      cboPayment.list_index = 0;
    }
  }

  if (entry::IsSalesSummaryReport(def.report_no)) {
    txtDate[0].text.clear();
    txtDate[1].text = Today();
  } else {
    txtDate[0].text = Today();
    txtDate[1].text = txtDate[0].text;
  }

  if (def.report_no == 101) {
    const std::string shop = context_.settings.GetSetting(0, "", "AmazonShop");
    if (!shop.empty()) {
      common::SelectComboByText(cboShop_id, shop);
      cboShop_id_Click();
    }
  }
}

void SelectForm::txtCustomer_Change() { chkOption[0].value = txtCustomer.text.empty() ? 0 : 1; }
void SelectForm::txtTanto_Change(int index) { chkOption[3].value = txtTanto[index].text.empty() ? 0 : 1; }
void SelectForm::txtTiku_Change(int index) { chkOption[4].value = txtTiku[index].text.empty() ? 0 : 1; }
void SelectForm::txtGaku_Change(int index) { chkOption[5].value = txtGaku[index].text.empty() ? 0 : 1; }
void SelectForm::txtItem_id_Change(int index) {
  item_field = index;
  chkOption[6].value = txtItem_id[index].text.empty() ? 0 : 1;
}
void SelectForm::cboKbn_Click() { chkOption[1].value = cboKbn.Text().empty() ? 0 : 1; }
void SelectForm::cboNendo_Click() { chkOption[5].value = cboNendo.Text().empty() ? 0 : 1; }
void SelectForm::cboDMKbn_Click() { chkOption[7].value = cboDMKbn.Text().empty() ? 0 : 1; }

void SelectForm::chkOption_Click(int index) {
  if (index == 5 && chkOption[5].Checked() && cboNendo.ListCount() > 0) cboNendo.list_index = 0;
}

bool SelectForm::txtDate_Validate(int index) {
  const auto& text = txtDate[index].text;
  if (text.empty() || vb::IsDate(text)) return true;
  Message("日付を入力してください。");
  ui_.SetFocus("txtDate[" + std::to_string(index) + "]");
  return false;
}

bool SelectForm::txtId_Validate(int index) {
  auto rs = context_.Db().Open("SELECT [会社名],[氏名] FROM [" + IdTable() + "] WHERE [ID] = " +
                               NumberText(txtId[index].text));
  if (rs.Eof()) {
    Message("IDが見つかりません。");
    ui_.SetFocus("txtId[" + std::to_string(index) + "]");
    return false;
  }
  lblName[index].caption = rs["会社名"].Text() + rs["氏名"].Text();
  return true;
}

bool SelectForm::txtCustomer_Validate() {
  if (txtCustomer.text.empty()) {
    lblCust_mei.caption.clear();
    return true;
  }
  auto rs = context_.Db().Open("SELECT [顧客会社名],[顧客名] FROM [CUSTOMER] WHERE [検索用TEL番号] = '" +
                               sql::NumericText(txtCustomer.text) + "' ORDER BY [顧客NO] DESC");
  if (rs.Eof()) {
    Message("見つかりません。");
    ui_.SetFocus("txtCustomer");
    return false;
  }
  lblCust_mei.caption = rs["顧客会社名"].Text() + rs["顧客名"].Text();
  return true;
}

bool SelectForm::txtEda_Validate() {
  if (txtEda.text.empty()) return true;
  const double number = vb::Val(txtEda.text);
  txtEda.text = vb::Format(number, "00");
  auto rs = context_.Db().Open("SELECT [顧客会社名],[顧客名] FROM [CUSTOMER] WHERE [顧客電話番号枝番] = " +
                               vb::Format(number) + " AND [顧客電話番号] = '" +
                               sql::NumericText(txtCustomer.text) + "'");
  if (rs.Eof()) {
    Message("顧客番号枝番が誤っています。");
    ui_.SetFocus("txtEda");
    return false;
  }
  lblCust_mei.caption = rs["顧客会社名"].Text() + rs["顧客名"].Text();
  return true;
}

void SelectForm::txtTanto_Validate(int index) {
  if (txtTanto[index].text.empty()) {
    LblTantoMei[index].caption.clear();
    return;
  }
  const double number = vb::Val(txtTanto[index].text);
  txtTanto[index].text = vb::Format(number, "00");
  auto rs = context_.Db().Open("SELECT [担当者名] FROM [TANTO] WHERE [担当者コード] = " + vb::Format(number) +
                               " ORDER BY [担当者コード]");
  LblTantoMei[index].caption = rs.Eof() ? std::string() : rs["担当者名"].Text();
}

void SelectForm::txtGaku_LostFocus(int index) {
  auto& box = txtGaku[index];
  // The box may already hold "1,000"; Val would stop at the comma.
  if (!box.text.empty()) box.text = vb::Format(vb::Val(sql::NumericText(box.text)), "#,##0");
}

bool SelectForm::txtItem_id_Validate(int index) {
  if (txtItem_id[index].text.empty()) {
    lblItem_name[index].caption.clear();
    return true;
  }
  auto rs = context_.Db().Open("SELECT [ITEM_NAME] FROM [ITEM] WHERE [ITEM_ID] = '" +
                               sql::SqlQuote(txtItem_id[index].text) + "'");
  if (rs.Eof()) {
    Message("商品IDが誤っています。");
    ui_.SetFocus("txtItem_id[" + std::to_string(index) + "]");
    return false;
  }
  lblItem_name[index].caption = rs["ITEM_NAME"].Text();
  return true;
}

void SelectForm::txtStart_Validate() {
  const int limit = context_.current.lbl_rpt;
  int number = static_cast<int>(vb::Val(txtStart.text));
  if (number < 1) number = 1;
  if (limit > 0 && number > limit) number = limit;
  txtStart.text = std::to_string(number);
}

void SelectForm::txtDenNo_LostFocus() {
  auto& text = txtDenNo.text;
  const auto first = text.find_first_not_of(' ');
  const auto last = text.find_last_not_of(' ');
  text = first == std::string::npos ? std::string() : text.substr(first, last - first + 1);
}

void SelectForm::vsrlDate_Change(int index, int direction) {
  const auto date = vb::CDate(txtDate[index].text);
  if (!date) return;
  txtDate[index].text = vb::FormatDate(vb::DateAdd("d", direction, *date), "YYYY/MM/DD");
}

void SelectForm::vsrlId_Change(int index, int direction) {
  const std::string number = NumberText(txtId[index].text);
  const std::string statement =
      direction < 0 ? "SELECT [ID],[会社名],[氏名] FROM [" + IdTable() + "] WHERE [ID] < " + number + " ORDER BY [ID] DESC"
                    : "SELECT [ID],[会社名],[氏名] FROM [" + IdTable() + "] WHERE [ID] > " + number + " ORDER BY [ID]";
  auto rs = context_.Db().Open(statement);
  if (rs.Eof()) return;
  txtId[index].text = rs["ID"].Text();
  lblName[index].caption = NameOf(rs["会社名"].Text(), rs["氏名"].Text());
}

void SelectForm::vsrlStart_Change(int direction) {
  const int limit = context_.current.lbl_rpt > 0 ? context_.current.lbl_rpt : 1;
  int number = static_cast<int>(vb::Val(txtStart.text)) + direction;
  if (number < 1) number = 1;
  if (number > limit) number = limit;
  txtStart.text = std::to_string(number);
}

SelectOutcome SelectForm::cmdSelect() {
  const auto& def = context_.current;
  if (entry::IsSalesSummaryReport(def.report_no)) {
    const std::string& caption = chkChumonOption[0].caption;
    if (!chkChumonOption[0].Checked() || txtDate[0].text.empty() || txtDate[1].text.empty()) {
      Message(caption + "の範囲は必須です。");
      ui_.SetFocus(!chkChumonOption[0].Checked() ? "chkChumonOption[0]"
                   : txtDate[0].text.empty()     ? "txtDate[0]"
                                                 : "txtDate[1]");
      return SelectOutcome::Stopped;
    }
    // Compared as text, as the dates are stored.
    if (txtDate[0].text > txtDate[1].text) {
      Message(caption + "の範囲が不正です。");
      ui_.SetFocus("txtDate[1]");
      return SelectOutcome::Stopped;
    }
  }
  if (def.report_no == 101) {
    if (cboShop_id.list_index < 1) {
      Message("ショップを選択して下さい。");
      ui_.SetFocus("cboShop_id");
      return SelectOutcome::Stopped;
    }
    context_.settings.SaveSetting(0, cboShop_id.Text(), "AmazonShop");
  }
  if (def.lbl_rpt != 0) {
    dedupe = chkDistinct.value;
    start_position = static_cast<int>(vb::Val(txtStart.text));
  } else {
    dedupe = 0;
  }

  context_.run.shop = cboShop_id.list_index > 0 ? cboShop_id.Text() : "";
  selection = BuildSelection(*this, entry::ListSort(context_.settings));
  SQL = selection.sql;
  context_.run = entry::RunValues{start_position, dedupe != 0, selection.item_list, selection.sales_summary,
                                  cboShop_id.list_index > 0 ? cboShop_id.Text() : std::string(),
                                  chkChumonOption[0].Checked() ? txtDate[0].text : std::string(),
                                  chkChumonOption[0].Checked() ? txtDate[1].text : std::string()};
  NoCarrierFilter = selection.no_carrier_filter;

  if (entry::IsDirectReport(def.report_no)) {
    ui_.ShowModal("frmPreview");
    return SelectOutcome::Preview;
  }
  ui_.ShowModal("frmPrint");
  return SelectOutcome::PrintList;
}

void SelectForm::S_SetCusNo(std::int64_t number) {
  auto rs = context_.Db().Open("SELECT [顧客会社名],[顧客名],[TEL番号] FROM [CUSTOMER] WHERE [顧客NO] = " +
                               std::to_string(number));
  if (rs.Eof()) {
    lblCust_mei.caption.clear();
    txtCustomer.text.clear();
  } else {
    txtCustomer.text = rs["TEL番号"].Text();
    lblCust_mei.caption = rs["顧客会社名"].Text() + rs["顧客名"].Text();
  }
  txtCustomer_Change();
}

void SelectForm::S_SetOrderNo(std::string_view text) {
  auto rs = context_.Db().Open("SELECT [会社名],[氏名] FROM [" + IdTable() + "] WHERE [ID] = " + NumberText(text));
  if (rs.Eof()) return;
  const std::string name = NameOf(rs["会社名"].Text(), rs["氏名"].Text());
  for (int i = 0; i < 2; ++i) {
    txtId[i].text = std::string(text);
    lblName[i].caption = name;
  }
}

void SelectForm::S_SetItemId(std::string_view text) {
  auto rs = context_.Db().Open("SELECT [ITEM_NAME] FROM [ITEM] WHERE [ITEM_ID] = '" + sql::SqlQuote(text) + "'");
  if (rs.Eof()) return;
  txtItem_id[item_field].text = std::string(text);
  lblItem_name[item_field].caption = rs["ITEM_NAME"].Text();
  txtItem_id_Change(item_field);
}

bool SelectForm::S_RecvData(std::string_view data) {
  auto rest = [&](std::string_view prefix) { return data.substr(prefix.size()); };
  if (data.starts_with("CUSNO=")) {
    S_SetCusNo(static_cast<std::int64_t>(vb::Val(rest("CUSNO="))));
  } else if (data.starts_with("ORDERNO=")) {
    S_SetOrderNo(rest("ORDERNO="));
  } else if (data.starts_with("ITEM=")) {
    S_SetItemId(rest("ITEM="));
  } else {
    return false;
  }
  return true;
}

}  // namespace lupin::run
