#include "reports/slips/yamato_slip.h"

#include "common/sql.h"
#include "entry/print_list_order.h"

namespace lupin::reports {

SlipSpec YamatoSpec(const std::string& designer) {
  SlipSpec spec;
  spec.designer = designer;
  // The height twice in the other orientation, the width untouched: the driver turns the form.
  spec.paper = {SlipPaper::Rule::UserDefinedSize, kSlipPaperWidth, kSlipPaperHeight, 0, kSlipPaperWidth};
  spec.sender_rule = SenderRule::AtenaDecides;
  spec.recipient = {{PostcodeSpec::Style::Boxes, "lblYubin_"}, {TelSpec::Style::Text, "lblTEL"}, "lblADDRESS",
                    "lblCompany", "lblCompany2", "lblNAME"};
  spec.sender.postcode = {PostcodeSpec::Style::Boxes, "lblJYubin_"};
  spec.sender.tel = {TelSpec::Style::Text, "lblJTEL"};
  spec.sender.address = "lblJJUSYO";
  spec.sender.name = "lblSHOP_NAME";
  spec.sender.company = "lblCompany3";
  spec.dates = {{"lblDELIVERY_DATE", "配達日", "mm   dd"}};
  spec.time_slots = {"shpDelivery1",
                     "",
                     {{12, 14, "shpDelivery2"}, {14, 16, "shpDelivery3"}, {16, 18, "shpDelivery4"},
                      {18, 20, "shpDelivery5"}, {20, 21, "shpDelivery6"}},
                     {{0, 2, "shpDelivery2"}, {2, 4, "shpDelivery3"}, {4, 6, "shpDelivery4"},
                      {6, 8, "shpDelivery5"}, {8, 9, "shpDelivery6"}}};
  spec.items = {"lblITEM", {25, 8, 24, 9}, true};
  spec.sender_printed_hides = {"lblJJUSYO", "lblJTEL", "lblSHOP_NAME"};
  for (auto& box : Numbered("lblJYubin_", 7)) spec.sender_printed_hides.push_back(std::move(box));
  spec.memo_fields = true;
  return spec;
}

YamatoSlip::YamatoSlip(entry::Context& context, const std::string& designer, std::shared_ptr<SlipShopMembers> shop,
                       engine::TextMeasurer& measurer, bool collect)
    : SlipFrame(context, YamatoSpec(designer), measurer), collect_(collect) {
  shop_ = std::move(shop);
}

bool YamatoSlip::CustomerMode() const {
  const std::int32_t number = context_.current.report_no;
  return number == 29 || number == 30;
}

std::string YamatoSlip::Query() const {
  std::string sql;
  if (CustomerMode()) {
    // Customer staging carries the customer number in SEK_GAKU.
    sql = "SELECT [CUSTOMER].*,[WK_PRINT].[COMPANY],[WK_PRINT].[SIMEI] ";
    sql += "FROM [CUSTOMER],[WK_PRINT] ";
    sql += "WHERE [CUSTOMER].[顧客NO] = [WK_PRINT].[SEK_GAKU]";
    return sql + WorkstationRestriction() + entry::CustomerListOrder();
  }
  sql = "SELECT [CHUMON].*,[WK_PRINT].[COMPANY],[WK_PRINT].[SIMEI], [WK_PRINT].[ORD_DATE], [WK_PRINT].[DATE], "
        "[WK_PRINT].[BIKO1], [WK_PRINT].[BIKO2], [WK_PRINT].[ITEM_ID1], [WK_PRINT].[SEK_GAKU] ";
  sql += "FROM [CHUMON], [WK_PRINT] ";
  sql += "WHERE [CHUMON].[ID] = [WK_PRINT].[ID]";
  return sql + WorkstationRestriction() + entry::OrderListOrder(entry::ListSort(context_.settings));
}

void YamatoSlip::InitialiseCarrierExtras() {
  if (!CustomerMode() || context_.current.paper_type != 0 || !shop_->Empty()) return;
  // Nothing is printed or booked for slips whose sender boxes would stay blank.
  if (!FindSenderShop()) throw engine::ReportFault(engine::kFaultGeneral, kNoSenderShopMessage);
}

bool YamatoSlip::FindSenderShop() {
  std::string shop = context_.run.shop;
  if (shop.empty()) {
    db::Recordset shops = context_.Db().Open("SELECT [SHOP_ID] FROM [SHOP]");
    if (shops.Eof()) return false;
    shop = shops["SHOP_ID"].Text();
    shops.MoveNext();
    if (!shops.Eof()) return false;
  }
  // The shop's name and address live in its orders; the newest order has them as they are now.
  db::Recordset order = context_.Db().Open(
      "SELECT [ショップ名],[ショップ郵便番号],[ショップ住所],[ショップ電話番号] FROM [CHUMON] WHERE [ショップID] = '" +
      sql::SqlQuote(shop) + "' ORDER BY [ID] DESC");
  if (order.Eof()) return false;
  *shop_ = {order["ショップ名"].Text(), order["ショップ郵便番号"].Text(), order["ショップ住所"].Text(),
            order["ショップ電話番号"].Text()};
  return !shop_->Empty();
}

void YamatoSlip::FillCarrierExtras(const SlipParties& parties) {
  (void)parties;
  // In customer mode the column holds the customer number.
  if (collect_ && CustomerMode()) DetailControl("fldSEK_GAKU").Text.clear();
}

}  // namespace lupin::reports
