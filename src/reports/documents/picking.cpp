#include "reports/documents/picking.h"

#include "common/sql.h"
#include "common/vb.h"

namespace lupin::reports {

namespace {

constexpr int kLines = 20;

}  // namespace

PickingReport::PickingReport(entry::Context& context, std::string_view designer_name)
    : ReportFrame(context, designer_name) {
  Detail().Format = [this] { Detail_Format(); };
}

std::string PickingReport::Query() const {
  std::string sql = "SELECT [WK_PRINT].*, ";
  sql += "[CHUMON].[ID] as [ID],";
  for (const char* column : {"顧客NO", "受注方法", "顧客番号", "会社名", "所属", "氏名", "氏名カナ", "郵便番号", "住所",
                             "電話番号", "メールアドレス", "受注日", "支払方法", "電子決済受付No", "意見", "返信（出荷）",
                             "商品代金", "送料", "決済手数料", "消費税", "ポイント利用", "請求額", "出荷日", "出荷予定日",
                             "宅配業者"}) {
    sql += "[" + std::string(column) + "],";
  }
  for (int n = 1; n <= kLines; ++n) {
    const std::string i = std::to_string(n);
    sql += "[商品ID" + i + "],[商品名" + i + "],[商品カラー" + i + "],[商品サイズ" + i + "],[単価" + i + "],[注文数量" + i +
           "],[小計" + i + "],";
  }
  sql += "[贈答先会社名],[贈答先所属],[贈答先氏名],[贈答先郵便番号],[贈答先住所],[贈答先電話番号],[のし],[のしコメント],[ショップID]";
  sql += " FROM [CHUMON], [WK_PRINT] ";
  sql += " WHERE [CHUMON].[ID] = [WK_PRINT].[ID]";
  sql += " AND [WK_PRINT].[CLIENT_NAME] ='" + sql::SqlQuote(context_.ClientName()) + "'";
  sql += " ORDER BY [CHUMON].[ID]";
  return sql;
}

void PickingReport::ActiveReport_ReportStart() {
  units_.clear();
  OpenData(Query());
  const vb::DateSerial now = Now();
  SectionByName("PageHeader")->Controls().Item("lblPrintDate")->Caption = vb::FormatDate(now, "YYYY/MM/DD HH:NN:SS");
}

void PickingReport::ActiveReport_DataInitialize() { ApplyFormat(); }

std::string PickingReport::RepeatCount() {
  // The customer number goes in as its numeric value: an empty one counts the orders of 0.
  const std::string customer = vb::Format(vb::Val(FieldText("顧客NO")), "0");
  const std::string sql = "SELECT COUNT(*)" " FROM [CHUMON]" " WHERE [顧客NO] = " + customer +
                          " AND [受注日] <= '" + sql::SqlQuote(FieldText("受注日")) + "'" " AND [ID] < " +
                          vb::Format(vb::Val(FieldText("ID")), "0");
  db::Recordset count = context_.Db().Open(sql);
  const double orders = count.Eof() ? 0 : count.Field(0).Number();
  count.Close();
  return vb::Format(orders, "#,##0");
}

std::string PickingReport::Unit(const std::string& shop, const std::string& item) {
  const auto key = std::make_pair(shop, item);
  if (const auto found = units_.find(key); found != units_.end()) return found->second;
  const std::string sql = "SELECT TANI" " FROM [ITEM]" " WHERE [SHOP_ID] = '" + sql::SqlQuote(shop) + "'" +
                          " AND [ITEM_ID] = '" + sql::SqlQuote(item) + "'";
  db::Recordset units = context_.Db().Open(sql);
  std::string unit = units.Eof() ? "" : units["TANI"].Text();
  units.Close();
  units_.emplace(key, unit);
  return unit;
}

void PickingReport::Detail_Format() {
  const auto& recordset = DataControl1.Recordset;
  if (!recordset || recordset->Eof()) return;
  DetailControl("lblRepeat").Caption = RepeatCount();

  const std::string shop = FieldText("ショップID");
  for (int n = 1; n <= kLines; ++n) {
    const std::string i = std::to_string(n);
    const std::string item = FieldText("商品ID" + i);
    if (!item.empty()) {
      DetailControl("lblSuryo" + i).Caption = QuantityText(vb::Val(FieldText("注文数量" + i)));
      DetailControl("lblTani" + i).Caption = Unit(shop, item);
      continue;
    }
    for (const char* field : {"fldItemID", "fldItemName", "fldColor", "fldSize", "fldTanka", "fldSyokei"})
      DetailControl(field + i).Text.clear();
    DetailControl("lblSuryo" + i).Caption.clear();
    DetailControl("lblTani" + i).Caption.clear();
  }
}

void RegisterPickingReports(engine::ReportRegistry& registry) {
  registry.Register("rptPickingSyuDate",
                    [](entry::Context& context) { return std::make_unique<rptPickingSyuDate>(context); });
  registry.Register("rptPickingSyuYDate",
                    [](entry::Context& context) { return std::make_unique<rptPickingSyuYDate>(context); });
}

}  // namespace lupin::reports
