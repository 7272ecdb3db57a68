#include "reports/documents/order_list.h"

#include <algorithm>

#include "common/sql.h"
#include "common/vb.h"
#include "layout/format_apply.h"
#include "reports/documents/list_text.h"

namespace lupin::reports {

namespace {

constexpr std::string_view kNotUpdated = "【注文データ正式更新未済み】";
constexpr std::string_view kOtherMethod = "その他";

const char* const kColumns =
    "SELECT [CHUMON].[氏名],[CHUMON].[顧客番号],[CHUMON].[会社名],[CHUMON].[所属],[CHUMON].[郵便番号], [CHUMON].[住所], "
    "[CHUMON].[電話番号], [CHUMON].[メールアドレス], [CHUMON].[受注日],[CHUMON].[出荷日],[CHUMON].[入金日],[CHUMON].[入金額],"
    "[CHUMON].[配達希望時間帯],[CHUMON].[配達日],[CHUMON].[配達時間帯],[CHUMON].[支払方法], [CHUMON].[送料], "
    "[CHUMON].[決済手数料], [CHUMON].[消費税],[CHUMON].[ポイント利用], [CHUMON].[請求額], [CHUMON].[配達希望日], "
    "[CHUMON].[意見], [CHUMON].[メモ], [商品代金],[CHUMON].[ショップ名], [CHUMON].[贈答先会社名],[CHUMON].[贈答先所属],"
    "[CHUMON].[贈答先氏名], [CHUMON].[贈答先郵便番号],[CHUMON].[贈答先住所], [CHUMON].[贈答先電話番号], [CHUMON].[のし], "
    "[CHUMON].[のしコメント], [CHUMON_D].[ITEM_NO], [CHUMON_D].[ITEM_ID], [CHUMON_D].[ITEM_MEI], [CHUMON_D].[ITEM_TANKA],"
    "[CHUMON_D].[ITEM_QTY], [CHUMON_D].[ITEM_GENKA],[CHUMON_D].[ITEM_PRICE],[CHUMON_D].[ITEM_COLOR],[CHUMON_D].[ITEM_SIZE],"
    "[CHUMON_D].[ITEM_TAX], [CHUMON_D].[ITEM_SYUDATE], [WK_PRINT].* ";

const char* const kShipmentOrder = " ORDER BY CHUMON_D.[ITEM_SYUDATE], CHUMON.[ID], CHUMON_D.[ITEM_NO]";

std::string WithoutLineBreaks(std::string text) {
  for (std::size_t at; (at = text.find("\r\n")) != std::string::npos;) text.replace(at, 2, " ");
  std::replace(text.begin(), text.end(), '\n', ' ');
  std::replace(text.begin(), text.end(), '\r', ' ');
  return text;
}

// The cost with two decimals only where it has a fraction.
std::string CostText(double cost) {
  return cost == static_cast<double>(static_cast<long long>(cost)) ? vb::Format(cost, "#,##0") : vb::Format(cost, "#,##0.00");
}

}  // namespace

OrderListKind OrderListKindOf(std::int32_t report_no) {
  switch (report_no) {
    case 5:
      return {"出荷一覧表", "出荷日付", " WHERE CHUMON_D.[ITEM_SYUKKA] = 1", kShipmentOrder, "ITEM_SYUDATE", 2};
    case 28:
      return {"出荷一覧表", "出荷日付", " WHERE CHUMON_D.[ITEM_SYUKKA] = 1",
              " ORDER BY WK_PRINT.[YUBIN], CHUMON_D.[ITEM_SYUDATE], CHUMON.[ID], CHUMON_D.[ITEM_NO]", "ITEM_SYUDATE", 7};
    case 6:
      return {"入金一覧表", "入金日付", " WHERE [CHUMON].[入金額] <> 0",
              " ORDER BY CHUMON.[入金日], CHUMON.[ID], CHUMON_D.[ITEM_NO]", "入金日", 3};
    case 7:
      return {"出荷予定一覧表", "出荷予定", " WHERE CHUMON_D.[ITEM_SYUKKA] = 0",
              " ORDER BY CHUMON.[出荷予定日], CHUMON.[ID], CHUMON_D.[ITEM_NO]", "出荷予定日", 0};
    case 8:
      return {"未入金一覧表", "出荷日付",
              " WHERE [CHUMON_D].[ITEM_SYUKKA] = 1 AND ([CHUMON].[入金日] IS NULL OR [CHUMON].[入金日] = '')"
              " AND [CHUMON].[請求額] > 0",
              kShipmentOrder, "ITEM_SYUDATE", 5};
    default:
      return {"注文一覧表", "受注日付", "", " ORDER BY [CHUMON].[ID],[CHUMON_D].[ITEM_NO]", "受注日", 1};
  }
}

rptList::rptList(entry::Context& context) : ReportFrame(context, "rptList") {
  SectionByName("PageHeader")->Format = [this] { PageHeader_Format(); };
  SectionByName("GroupIdHeader")->Format = [this] { GroupIdHeader_Format(); };
  SectionByName("GroupIdHeader")->BeforePrint = [this] { GroupIdHeader_BeforePrint(); };
  Detail().Format = [this] { Detail_Format(); };
  SectionByName("GroupIdFooter")->BeforePrint = [this] { GroupIdFooter_BeforePrint(); };
  SectionByName("GroupIdFooter")->AfterPrint = [this] { GroupIdFooter_AfterPrint(); };
  SectionByName("ReportFooter")->BeforePrint = [this] { ReportFooter_BeforePrint(); };
}

std::string rptList::Query() const {
  const OrderListKind list = OrderListKindOf(context_.current.report_no);
  std::string sql = kColumns;
  sql += " FROM (CHUMON LEFT JOIN CHUMON_D ON CHUMON.ID = CHUMON_D.ID) INNER JOIN WK_PRINT ON CHUMON.ID = WK_PRINT.ID";
  sql += list.restriction;
  sql += list.restriction.empty() ? " WHERE [WK_PRINT].[CLIENT_NAME] = '" : " AND [WK_PRINT].[CLIENT_NAME] = '";
  sql += sql::SqlQuote(context_.ClientName()) + "'";
  sql += list.order;
  return sql;
}

engine::Control& rptList::Control(std::string_view section, std::string_view name) {
  engine::Control* control = SectionByName(section)->Controls().Item(name);
  if (control == nullptr)
    throw engine::ReportFault(engine::kFaultGeneral, "rptList: コントロール " + std::string(name) + " がありません。");
  return *control;
}

void rptList::ActiveReport_ReportStart() {
  list_ = OrderListKindOf(context_.current.report_no);
  Control("PageHeader", "lblTitle").Caption = list_.title;
  Control("PageHeader", "lblDateTitle").Caption = list_.date_heading;
  Control("PageHeader", "lblPrintDate").Caption = vb::FormatDate(Now(), "YYYY/MM/DD HH:NN:SS");
  int year = 0, month = 0, day = 0;
  vb::SplitDate(Now(), year, month, day);
  const auto& run = context_.run;
  Control("PageHeader", "lblFromTo").Caption =
      run.date_from.empty() && run.date_to.empty()
          ? ""
          : NormalizeDateText(run.date_from, year) + " ～ " + NormalizeDateText(run.date_to, year);
  previous_id_.clear();
  counted_.clear();
  order_qty_ = order_amount_ = 0;
  postage_ = fee_ = tax_ = points_ = paid_ = billed_ = qty_ = amount_ = 0;
  OpenData(Query());
}

void rptList::ActiveReport_DataInitialize() {
  Fields().Add("GroupKey");
  Fields().Add("DeliKey");
  LoadPaymentMethods();
  AddPaymentLabels();
  ApplyFormat();
}

void rptList::LoadPaymentMethods() {
  methods_.clear();
  const std::string& shop = context_.run.shop;
  const std::string sql = shop.empty()
                              ? "SELECT [METHOD] FROM [PAYMENT] WHERE [OK] = 1 GROUP BY [METHOD] ORDER BY METHOD"
                              : "SELECT [METHOD] FROM [PAYMENT] WHERE [OK] = 1 AND [SHOP_ID] = '" + sql::SqlQuote(shop) +
                                    "' ORDER BY [ORD]";
  try {
    db::Recordset methods = context_.Db().Open(sql);
    for (; !methods.Eof(); methods.MoveNext()) methods_.push_back(methods["METHOD"].Text());
    methods.Close();
  } catch (const std::exception&) {
    // A failed look-up leaves "その他" alone.
    methods_.clear();
  }
  methods_.emplace_back(kOtherMethod);
  method_totals_.assign(methods_.size(), 0);
}

void rptList::AddPaymentLabels() {
  auto& footer = SectionByName("ReportFooter")->Controls();
  const auto add = [&](const std::string& name, const std::string& caption, std::int32_t top, std::int32_t left,
                       std::int32_t width) {
    engine::Control& label = footer.Add(engine::ControlKind::Label, name);
    label.Caption = caption;
    label.Top = top;
    label.Left = left;
    label.Width = width;
    label.Height = 340;
    label.Font.size = 9;
    label.Font.name = "ＭＳ Ｐ明朝";
    added_labels_.push_back(name);
    return &label;
  };
  for (std::size_t i = 0; i < methods_.size(); ++i) {
    const std::string n = std::to_string(i);
    const auto top = static_cast<std::int32_t>(i) * 300 + 300;
    add(n + "lblShiharai", methods_[i], top, 11880, 1785);
    const engine::Control* open = add(n + "lblUchiwake", "(", top, 13615, 100);
    add(n + "lblShiharai_Gaku", "", top, 13665, 1000)->alignment = engine::Alignment::Right;
    add(n + "lblUchiwake_2", ")", top, 14715, open->Width);
  }
}

void rptList::RemovePaymentLabels() {
  auto& footer = SectionByName("ReportFooter")->Controls();
  for (const auto& name : added_labels_) footer.Remove(name);
  added_labels_.clear();
  methods_.clear();
  method_totals_.clear();
}

void rptList::ActiveReport_FetchData(bool& eof) {
  if (eof) return;
  const std::int32_t report_no = context_.current.report_no;
  if (!((report_no >= 4 && report_no <= 8) || report_no == 28)) return;
  // The statement does not carry 出荷予定日: the planned list groups by order alone.
  const bool dated = DataControl1.Recordset && DataControl1.Recordset->HasField(list_.date_column);
  const std::string date = dated ? FieldText(list_.date_column) : std::string();
  const auto serial = vb::CDate(date);
  Fields().Set("GroupKey", db::Value((serial ? vb::FormatDate(*serial, "YYYYMMDD") : date) + FieldText("ID")));
}

void rptList::PageHeader_Format() { Control("PageHeader", "lblShopName").Caption = FieldText("ショップ名"); }

void rptList::GroupIdHeader_Format() {
  const auto text = [&](std::string_view name, std::string value) { Control("GroupIdHeader", name).Caption = std::move(value); };
  const std::string date_column = list_.kind == 2 || list_.kind == 5 || list_.kind == 7 ? "ITEM_SYUDATE"
                                  : list_.kind == 3                                     ? "入金日"
                                                                                        : "ORD_DATE";
  text("lblDate", DateOfRow(FieldText(date_column)));
  text("lblId", FieldText("ID"));
  text("lblCustomerNo", FieldText("顧客番号"));
  text("lblCompany", FieldText("COMPANY"));
  text("lblSyozoku", FieldText("所属"));
  text("lblSimei", FieldText("SIMEI"));
  text("lblPayment", FieldText("支払方法"));
  text("lblAddress", "〒" + FieldText("郵便番号") + " " + WithoutLineBreaks(FieldText("住所")));
  text("lblMail", FieldText("メールアドレス"));
  text("lblTel", FieldText("電話番号"));

  const bool gift = !FieldText("贈答先氏名").empty() || !FieldText("贈答先会社名").empty();
  for (const char* name : {"lblGiftCaption", "lblGiftCompany", "lblGiftSyozoku", "lblGiftSimei", "lblGiftAddress",
                           "lblGiftTel"})
    layout::ShowUnlessHidden(Control("GroupIdHeader", name), gift);
  if (gift) {
    text("lblGiftCompany", FieldText("贈答先会社名"));
    text("lblGiftSyozoku", FieldText("贈答先所属"));
    text("lblGiftSimei", FieldText("贈答先氏名"));
    text("lblGiftAddress", "〒" + FieldText("贈答先郵便番号") + " " + WithoutLineBreaks(FieldText("贈答先住所")));
    text("lblGiftTel", FieldText("贈答先電話番号"));
  }
  for (const auto& [caption, field, column] : {std::tuple{"lblNosiCaption", "lblNosi", "のし"},
                                               std::tuple{"lblNosiCommentCaption", "lblNosiComment", "のしコメント"}}) {
    const std::string value = FieldText(column);
    text(field, value);
    layout::ShowUnlessHidden(Control("GroupIdHeader", caption), !value.empty());
    layout::ShowUnlessHidden(Control("GroupIdHeader", field), !value.empty());
  }
  text("lblIken", WithoutLineBreaks(FieldText("意見")));
  text("lblMemo", WithoutLineBreaks(FieldText("メモ")));
}

void rptList::GroupIdHeader_BeforePrint() {
  const std::string id = FieldText("ID");
  SectionByName("GroupIdHeader")->Visible = id != previous_id_;
  previous_id_ = id;
}

void rptList::Detail_Format() {
  const auto& recordset = DataControl1.Recordset;
  if (!recordset || recordset->Eof()) return;
  const int tax = static_cast<int>(vb::Val(FieldText("ITEM_TAX")));
  DetailControl("lblTaxMark").Caption = tax == 1 ? "抜" : tax == 2 ? "込" : "";
  const db::Value name = (*recordset)["ITEM_MEI"];
  DetailControl("lblItemMei").Caption = name.IsNull() ? std::string(kNotUpdated) : name.Text();
  const bool line = !(*recordset)["ITEM_NO"].IsNull();
  const double qty = vb::Val(FieldText("ITEM_QTY"));
  const double amount = vb::Val(FieldText("ITEM_PRICE"));
  DetailControl("lblGenka").Caption = line ? CostText(vb::Val(FieldText("ITEM_GENKA"))) : "";
  DetailControl("lblSuryo").Caption = line ? QuantityText(qty) : "";
  order_qty_ += qty;
  order_amount_ += amount;
}

bool rptList::ShippedEarlier() {
  std::string sql = "SELECT COUNT(*) AS CNT ";
  if (list_.kind == 5)
    sql += "FROM [CHUMON], [CHUMON_D] WHERE CHUMON_D.[ITEM_SYUKKA] = 1 AND (CHUMON.[入金日] IS NULL OR CHUMON.[入金日] = '') "
           "AND CHUMON.[入金額] <= 0 AND CHUMON.[ID] = CHUMON_D.[ID] ";
  else
    sql += "FROM [CHUMON], [CHUMON_D] WHERE CHUMON_D.[ITEM_SYUKKA] = 1 AND CHUMON.[ID] = CHUMON_D.[ID] ";
  sql += "AND CHUMON_D.[ITEM_SYUDATE] < '" + sql::SqlQuote(FieldText("ITEM_SYUDATE")) + "' AND CHUMON.[ID] = " +
         vb::Format(vb::Val(FieldText("ID")), "0");
  db::Recordset count = context_.Db().Open(sql);
  const bool earlier = !count.Eof() && count["CNT"].Number() > 0;
  count.Close();
  return earlier;
}

void rptList::GroupIdFooter_BeforePrint() {
  const auto money = [&](const char* column) { return vb::Val(FieldText(column)); };
  const auto show = [&](std::string_view name, const std::string& value) { Control("GroupIdFooter", name).Caption = value; };
  show("lblSouryo", MoneyText(money("送料")));
  show("lblHandling", MoneyText(money("決済手数料")));
  show("lblTax", MoneyText(money("消費税")));
  show("lblPoint", MoneyText(money("ポイント利用")));
  show("lblNyukin", MoneyText(money("入金額")));
  show("lblSeikyu", MoneyText(money("請求額")));
  show("fldSuryo", QuantityText(order_qty_));
  show("fldGaku", MoneyText(order_amount_));
  qty_ += order_qty_;
  amount_ += order_amount_;

  const std::string id = FieldText("ID");
  const bool by_shipment = list_.kind == 2 || list_.kind == 5 || list_.kind == 7;
  if (counted_.contains(id) || (by_shipment && ShippedEarlier())) return;
  counted_.insert(id);
  postage_ += money("送料");
  fee_ += money("決済手数料");
  tax_ += money("消費税");
  points_ += money("ポイント利用");
  paid_ += money("入金額");
  billed_ += money("請求額");
  const std::string method = FieldText("支払方法");
  const auto found = std::find(methods_.begin(), methods_.end() - 1, method);
  const auto position = static_cast<std::size_t>(found - methods_.begin());
  method_totals_[position] += list_.kind == 3 ? money("入金額") : money("請求額");
}

void rptList::GroupIdFooter_AfterPrint() {
  for (const char* name : {"lblSouryo", "lblHandling", "lblTax", "lblPoint", "lblNyukin", "lblSeikyu", "fldSuryo", "fldGaku"})
    Control("GroupIdFooter", name).Caption.clear();
  order_qty_ = order_amount_ = 0;
}

void rptList::ReportFooter_BeforePrint() {
  const auto show = [&](std::string_view name, const std::string& value) { Control("ReportFooter", name).Caption = value; };
  show("lblSouryo_kei", MoneyText(postage_));
  show("lblhandling_kei", MoneyText(fee_));
  show("lblPoint_kei", MoneyText(points_));
  show("lblShippingHandling_Kei", MoneyText(postage_ + fee_));
  show("lblTax_kei", MoneyText(tax_));
  show("lblGoukei_kei", MoneyText(billed_));
  show("fldSuryo_kei", QuantityText(qty_));
  show("fldGaku_kei", MoneyText(amount_));
  for (std::size_t i = 0; i < methods_.size(); ++i)
    show(std::to_string(i) + "lblShiharai_Gaku", MoneyText(method_totals_[i]));
}

void rptList::ActiveReport_NoData() {
  // The empty list prints its headers and footers without an order block.
  SectionByName("GroupIdHeader")->Visible = false;
  SectionByName("GroupIdFooter")->Visible = false;
}

void rptList::ActiveReport_ReportEnd() { RemovePaymentLabels(); }

void RegisterOrderListReport(engine::ReportRegistry& registry) {
  registry.Register("rptList", [](entry::Context& context) { return std::make_unique<rptList>(context); });
}

}  // namespace lupin::reports
