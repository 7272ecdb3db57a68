#include "reports/documents/item_list.h"

#include "common/sql.h"
#include "common/text.h"
#include "common/vb.h"
#include "reports/documents/list_text.h"

namespace lupin::reports {

namespace {

constexpr std::string_view kRenamed = "　他";

const char* SortOf(int sort_kind) {
  switch (sort_kind) {
    case 1: return "[ITEM_TOTAL] DESC, [ITEM_ID]";
    case 2: return "[ITEM_QTY] DESC, [ITEM_ID]";
    default: return "[ITEM_ID]";
  }
}

}  // namespace

std::string ItemListInsert(const std::string& id, const std::string& name, double qty, double total) {
  std::string sql = "INSERT INTO WK_ITEMLIST([ITEM_ID],[ITEM_MEI],[ITEM_TANKA],[ITEM_QTY],[ITEM_TOTAL])VALUES('" +
                    sql::SqlQuote(id) + "','" + sql::SqlQuote(name) + "',";
  if (qty == 0)
    sql += "0,0,";
  else
    sql += vb::Format(total / qty) + "," + vb::Format(qty) + ",";
  return sql + vb::Format(total) + ")";
}

rptItemList::rptItemList(entry::Context& context) : ReportFrame(context, "rptItemList") {
  Detail().Format = [this] { Detail_Format(); };
  SectionByName("ReportFooter")->Format = [this] { ReportFooter_Format(); };
}

std::string rptItemList::LinesQuery() const {
  const auto& filter = context_.run.item_list;
  std::string sql = "SELECT [ITEM_ID],[ITEM_MEI],[ITEM_TANKA],[ITEM_QTY],[ITEM_PRICE] FROM [CHUMON_D], [CHUMON]"
                    " WHERE [CHUMON_D].[Id] = [CHUMON].[Id]";
  if (!filter.shop.empty()) sql += " AND [CHUMON].[ショップID] = '" + sql::SqlQuote(filter.shop) + "'";
  if (filter.date_kind == 0) {
    sql += " AND [CHUMON_D].[ITEM_SYUKKA] = 1";
    if (!filter.date_from.empty()) sql += " AND [CHUMON_D].[ITEM_SYUDATE] >= '" + sql::SqlQuote(filter.date_from) + "'";
    if (!filter.date_to.empty()) sql += " AND [CHUMON_D].[ITEM_SYUDATE] <= '" + sql::SqlQuote(filter.date_to) + "'";
  } else {
    if (!filter.date_from.empty()) sql += " AND [CHUMON].[受注日] >= '" + sql::SqlQuote(filter.date_from) + "'";
    if (!filter.date_to.empty()) sql += " AND [CHUMON].[受注日] <= '" + sql::SqlQuote(filter.date_to) + "'";
  }
  return sql + " ORDER BY [CHUMON_D].[ITEM_ID],[CHUMON_D].[ITEM_MEI]";
}

void rptItemList::Build() {
  auto& db = context_.Db();
  db::Recordset lines = db.Open(LinesQuery());
  db.Execute("DELETE FROM [WK_ITEMLIST]");
  std::string id, name;
  double qty = 0, total = 0;
  bool holding = false;
  for (; !lines.Eof(); lines.MoveNext()) {
    const std::string line_id = lines["ITEM_ID"].Text();
    const std::string line_name = lines["ITEM_MEI"].Text();
    if (!holding || line_id != id) {
      if (holding) db.Execute(ItemListInsert(id, name, qty, total));
      id = line_id;
      name = line_name;
      qty = total = 0;
      holding = true;
    } else if (!text::TextEquals(line_name, name) && !name.ends_with(kRenamed)) {
      // An item sold under several names prints with its first name and the mark.
      name += kRenamed;
    }
    qty += lines["ITEM_QTY"].Number();
    total += lines["ITEM_PRICE"].Number();
  }
  lines.Close();
  if (holding) db.Execute(ItemListInsert(id, name, qty, total));
}

void rptItemList::ActiveReport_DataInitialize() {
  qty_ = total_ = 0;
  auto& db = context_.Db();
  // One transaction for the inserts; a fault keeps what was written and the report prints that.
  db.BeginTrans();
  try {
    Build();
  } catch (const std::exception&) {
  }
  db.CommitTrans();
  const auto& filter = context_.run.item_list;
  OpenData(std::string("SELECT * FROM [WK_ITEMLIST]  ORDER BY ") + SortOf(filter.sort_kind));
  auto& header = SectionByName("PageHeader")->Controls();
  header.Item("lblFromTo")->Caption = filter.date_from + " ～ " + filter.date_to;
  header.Item("lblPrintDate")->Caption = vb::FormatDate(Now(), "YYYY/MM/DD HH:NN:SS");
  ApplyFormat();
}

void rptItemList::Detail_Format() {
  const auto& recordset = DataControl1.Recordset;
  if (!recordset || recordset->Eof()) return;
  qty_ += vb::Val(FieldText("ITEM_QTY"));
  total_ += vb::Val(FieldText("ITEM_TOTAL"));
  DetailControl("fldCount").Text = QuantityTextOfText(FieldText("ITEM_QTY"));
}

void rptItemList::ReportFooter_Format() {
  auto& footer = SectionByName("ReportFooter")->Controls();
  footer.Item("lblCountKei")->Caption = QuantityTextOfText(vb::Format(qty_));
  footer.Item("lblTotalAvg")->Caption = vb::Format(total_, "#,##0");
  footer.Item("lblPriceAvg")->Caption = qty_ == 0 ? "0" : vb::Format(total_ / qty_, "#,##0");
}

void RegisterItemListReport(engine::ReportRegistry& registry) {
  registry.Register("rptItemList", [](entry::Context& context) { return std::make_unique<rptItemList>(context); });
}

}  // namespace lupin::reports
