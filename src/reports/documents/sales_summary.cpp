#include "reports/documents/sales_summary.h"

#include <cmath>
#include <vector>

#include "common/sql.h"
#include "common/vb.h"

namespace lupin::reports {

namespace {

std::string Quoted(std::string_view text) { return "'" + sql::SqlQuote(text) + "'"; }
std::string DateText(vb::DateSerial date) { return vb::FormatDate(date, "YYYY/MM/DD"); }

}  // namespace

SummaryPeriod SummaryPeriodOf(std::int32_t report_no) {
  return report_no == 45 ? SummaryPeriod::Week : report_no == 46 ? SummaryPeriod::Month : SummaryPeriod::Day;
}

double RepeatRate(long repeat_orders, long orders) {
  if (orders <= 0) return 0;
  return vb::Int(static_cast<double>(repeat_orders) * 100.0 / static_cast<double>(orders) * 10.0) / 10.0;
}

rptUriage::rptUriage(entry::Context& context) : ReportFrame(context, "rptUriage") {
  Detail().Format = [this] { Detail_Format(); };
  SectionByName("ReportFooter")->Format = [this] { ReportFooter_Format(); };
}

void rptUriage::ActiveReport_DataInitialize() {
  const std::int32_t report_no = context_.current.report_no;
  period_ = SummaryPeriodOf(report_no);
  orders_ = qty_ = amount_ = 0;
  Build();
  OpenData("SELECT * FROM [WK_URIAGE]  WHERE [CLIENT_NAME] = " + Quoted(context_.ClientName()) + " ORDER BY [TARGET_DATE]");
  const auto& filter = context_.run.sales_summary;
  auto& header = *SectionByName("PageHeader");
  header.Controls().Item("lblFromTo")->Caption = filter.date_from + " ～ " + filter.date_to;
  header.Controls().Item("lblTitle")->Caption = period_ == SummaryPeriod::Week    ? "週別売上集計表"
                                                : period_ == SummaryPeriod::Month ? "月別売上集計表"
                                                                                  : "日別売上集計表";
  if (period_ == SummaryPeriod::Month) header.Controls().Item("lblTargetTitle")->Caption = "月";
  header.Controls().Item("lblPrintDate")->Caption = vb::FormatDate(Now(), "YYYY/MM/DD HH:NN:SS");
  ApplyFormat();
}

void rptUriage::InsertPeriods() {
  const auto& filter = context_.run.sales_summary;
  const auto from = vb::CDate(filter.date_from);
  const auto to = vb::CDate(filter.date_to);
  if (!from || !to) return;
  vb::DateSerial date = *from;
  std::string step = "d";
  if (period_ == SummaryPeriod::Week) {
    date = vb::DateAdd("d", 1 - vb::Weekday(*from), *from);
    step = "ww";
  } else if (period_ == SummaryPeriod::Month) {
    int year = 0, month = 0, day = 0;
    vb::SplitDate(*from, year, month, day);
    date = vb::DateSerialOf(year, month, 1);
    step = "m";
  }
  const std::string client = Quoted(context_.ClientName());
  for (; date <= *to; date = vb::DateAdd(step, 1, date)) {
    context_.Db().Execute("INSERT INTO [WK_URIAGE](CLIENT_NAME,TARGET_DATE,ORDERQTY,TANKA,QTY,KINGAKU,REPEAT_RATE)VALUES(" +
                          client + ",'" + DateText(date) + "',0,0,0,0,0)");
    ++build_queries_;
  }
}

std::string rptUriage::CommonCondition() const {
  const auto& filter = context_.run.sales_summary;
  std::string condition = " WHERE [出荷日] >= " + Quoted(filter.date_from) + " AND [出荷日] <= " + Quoted(filter.date_to);
  if (!filter.id_from.empty()) condition += " AND [ID] >= " + vb::Format(vb::Val(filter.id_from), "0");
  if (!filter.id_to.empty()) condition += " AND [ID] <= " + vb::Format(vb::Val(filter.id_to), "0");
  if (!filter.payment.empty())
    condition += (filter.payment_excluded ? " AND [支払方法] <> " : " AND [支払方法] = ") + Quoted(filter.payment);
  if (!filter.shop.empty()) condition += " AND [ショップID] = " + Quoted(filter.shop);
  return condition;
}

long rptUriage::RepeatOrders(const std::string& condition) {
  db::Recordset orders = context_.Db().Open("SELECT [顧客NO],[出荷日],[ID] FROM [CHUMON]" + condition + " AND [顧客NO] <> 0");
  ++build_queries_;
  long repeats = 0;
  for (; !orders.Eof(); orders.MoveNext()) {
    const std::string sql = "SELECT COUNT(*) as CNT FROM [CHUMON] WHERE [顧客NO] = " +
                            vb::Format(orders["顧客NO"].Number(), "0") + " AND (([出荷日] < " +
                            Quoted(orders["出荷日"].Text()) + ") OR ([出荷日] = " + Quoted(orders["出荷日"].Text()) +
                            " AND [ID] < " + vb::Format(orders["ID"].Number(), "0") + "))";
    db::Recordset count = context_.Db().Open(sql);
    ++build_queries_;
    ++repeat_queries_;
    if (!count.Eof() && count["CNT"].Number() > 0) ++repeats;
    count.Close();
  }
  orders.Close();
  return repeats;
}

void rptUriage::Build() {
  build_queries_ = repeat_queries_ = repeat_total_ = 0;
  const std::string client = Quoted(context_.ClientName());
  auto& db = context_.Db();
  // One transaction: a file database would otherwise sync once per statement.
  db.BeginTrans();
  try {
    BuildRows(client);
    db.CommitTrans();
  } catch (...) {
    db.RollbackTrans();
    throw;
  }
}

void rptUriage::BuildRows(const std::string& client) {
  auto& db = context_.Db();
  db.Execute("DELETE FROM [WK_URIAGE] WHERE [CLIENT_NAME] = " + client);
  ++build_queries_;
  InsertPeriods();

  db::Recordset rows = db.Open("SELECT * FROM [WK_URIAGE] WHERE [CLIENT_NAME] = " + client + " ORDER BY TARGET_DATE DESC");
  ++build_queries_;
  std::string sums = "SELECT COUNT(*) as CNT,";
  for (int n = 1; n <= 20; ++n) sums += "SUM([注文数量" + std::to_string(n) + "]) as QTY" + std::to_string(n) + ",";
  sums += "SUM([請求額]) as KINGAKU FROM [CHUMON]";
  const std::string common = CommonCondition();
  // The newest row ends on the selection's to date; each older one on the day before the next.
  std::string to_date = context_.run.sales_summary.date_to;
  std::vector<std::string> updates;
  for (; !rows.Eof(); rows.MoveNext()) {
    const std::string target = rows["TARGET_DATE"].Text();
    const std::string condition = common + " AND [出荷日] >= " + Quoted(target) + " AND [出荷日] <= " + Quoted(to_date);
    db::Recordset sum = db.Open(sums + condition);
    ++build_queries_;
    const long orders = sum.Eof() ? 0 : static_cast<long>(sum["CNT"].Number());
    double qty = 0;
    for (int n = 1; n <= 20 && !sum.Eof(); ++n) qty += sum["QTY" + std::to_string(n)].Number();
    const double amount = sum.Eof() ? 0 : sum["KINGAKU"].Number();
    sum.Close();
    const double average = orders != 0 ? amount / static_cast<double>(orders) : 0;
    const long repeats = orders > 0 ? RepeatOrders(condition) : 0;
    repeat_total_ += repeats;
    updates.push_back("UPDATE [WK_URIAGE] SET [TO_DATE] = " + Quoted(to_date) + ",[ORDERQTY] = " + std::to_string(orders) +
                      ",[TANKA] = " + vb::Format(average) + ",[QTY] = " + vb::Format(qty) + ",[KINGAKU] = " +
                      vb::Format(amount) + ",[REPEAT_RATE] = " + vb::Format(RepeatRate(repeats, orders)) +
                      " WHERE [CLIENT_NAME] = " + client + " AND [TARGET_DATE] = " + Quoted(target));
    const auto start = vb::CDate(target);
    if (start) to_date = DateText(vb::DateAdd("d", -1, *start));
  }
  rows.Close();
  for (const auto& update : updates) db.Execute(update);
  build_queries_ += static_cast<long>(updates.size());
}

void rptUriage::Detail_Format() {
  const auto& recordset = DataControl1.Recordset;
  if (!recordset || recordset->Eof()) return;
  const std::string target = FieldText("TARGET_DATE");
  const auto date = vb::CDate(target);
  std::string shown = target;
  if (date) {
    shown = period_ == SummaryPeriod::Month  ? vb::FormatDate(*date, "YYYY/MM")
            : period_ == SummaryPeriod::Week ? vb::FormatDate(*date, "YYYY/MM/DD") + "の週"
                                             : vb::FormatDate(*date, "YYYY/MM/DD");
  }
  DetailControl("lblTarget").Caption = shown;
  DetailControl("fldRepeatRate").Text = vb::Format(vb::Val(FieldText("REPEAT_RATE")), "0.0") + "%";
  orders_ += vb::Val(FieldText("ORDERQTY"));
  qty_ += vb::Val(FieldText("QTY"));
  amount_ += vb::Val(FieldText("KINGAKU"));
}

void rptUriage::ReportFooter_Format() {
  auto& footer = SectionByName("ReportFooter")->Controls();
  footer.Item("fldSumNinzu")->Text = vb::Format(orders_, "#,##0");
  footer.Item("fldSumQty")->Text = vb::Format(qty_, "#,##0");
  footer.Item("fldSumKingaku")->Text = vb::Format(amount_, "#,##0");
  footer.Item("fldSumTanka")->Text = orders_ > 0 ? vb::Format(amount_ / orders_, "#,##0") : "0";
  footer.Item("fldSumRepeatRate")->Text =
      vb::Format(RepeatRate(repeat_total_, static_cast<long>(orders_)), "0.0") + "%";
}

void RegisterSalesSummaryReport(engine::ReportRegistry& registry) {
  registry.Register("rptUriage", [](entry::Context& context) { return std::make_unique<rptUriage>(context); });
}

}  // namespace lupin::reports
