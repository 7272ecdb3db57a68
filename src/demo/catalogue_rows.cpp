// The REPORT rows and tax generations a fresh installation starts with.
#include <map>
#include <set>
#include <string>

#include "entry/catalogue.h"
#include "demo/demo_data.h"
#include "demo/insert_batch.h"
#include "demo/masters.h"
#include "entry/schema.h"

namespace lupin::demo {
namespace {

using entry::Carrier;
using entry::CatalogueEntry;
using entry::OutputKind;
using entry::SourceRows;

// Names for the numbers whose delivery name the catalogue leaves open; REPORT.INI sections are
// named after them, so each must be unique.
std::string_view InstalledName(std::int32_t no) {
  static const std::map<std::int32_t, std::string_view> names = {
      {2, "ヤマト宅配伝票(旧)"},        {3, "ヤマトコレクト伝票(旧)"},       {28, "出荷一覧表(郵便番号順)"},
      {29, "ヤマト宅配伝票(顧客)"},      {30, "ヤマトコレクト伝票(顧客)"},    {40, "郵パック代引き(新)"},
      {41, "郵パック代引き(新E)"},       {42, "日通宅配伝票(新)"},            {43, "日通代引き伝票(新)"},
      {47, "ゆうパック伝票2010"},        {48, "ゆうパック代引き伝票2010"},    {49, "ゆうパック代引き伝票2010(E)"},
      {50, "福通代引き伝票(新)"},        {51, "佐川宅配伝票2010"},            {52, "佐川代引き伝票2010"},
      {53, "福通宅配伝票(新)"},          {54, "ピッキングリスト(出荷日)"},    {55, "ピッキングリスト(出荷予定日)"},
      {56, "納品書(適格請求書)"},        {89, "ゆうパックプリントV4"},        {95, "ゆうパックプリント"},
      {96, "e-飛伝Ⅱ"},                   {97, "ヤマトi-CATs V6"},             {98, "後払い決済サービス売上"},
      {99, "後払い決済サービス出荷"},    {101, "Amazon出荷確認"},             {102, "ゆうプリR"},
      {104, "e-飛伝Ⅲ"},
  };
  const auto found = names.find(no);
  return found == names.end() ? std::string_view{} : found->second;
}

bool IsCarrierFile(std::int32_t no) { return no == 89 || no == 90 || no == 91 || no == 95 || no == 96 || no == 97 || no == 102 || no == 104; }

void SetText(SqlRow& row, std::string_view column, std::string_view text) { row.Text(row.Index(column), text); }
void SetInt(SqlRow& row, std::string_view column, std::int64_t value) { row.Int(row.Index(column), value); }

// A plausible definition of a number: date criterion, preset options, remark columns, free fields.
void DescribeReport(SqlRow& row, const CatalogueEntry& e) {
  const std::int32_t no = e.report_no;
  const bool collect = entry::IsCollectReport(no);
  const bool slip = e.carrier != Carrier::None && e.output == OutputKind::Report;
  const bool customers = e.source == SourceRows::Customers;

  std::string_view date_field = "出荷日";
  if (no == 4 || no == 8 || no == 93 || no == 98) date_field = "受注日";
  if (no == 6) date_field = "入金日";
  if (no == 7 || no == 55 || slip || IsCarrierFile(no)) date_field = "出荷予定日";
  if (customers) date_field = "";
  SetText(row, "DATE_LABEL", date_field);
  SetText(row, "DATE_FIELD", date_field);

  int where = date_field.empty() ? 0 : 1;
  if (collect) where |= 4;                                 // payment criterion preset
  if (slip || e.output == OutputKind::File) where |= 8;    // not yet printed only
  SetInt(row, "Where", where);
  SetInt(row, "PAYMENT_INIT", collect ? 2 : (slip ? 1 : 0));
  SetInt(row, "USE_PAPER_TYPE", (e.carrier == Carrier::Yamato && slip) || no == 0 ? 1 : 0);
  SetInt(row, "ENABLED", e.output == OutputKind::None ? 0 : 1);

  if (no == 22 || no == 23) SetInt(row, "LBL_RPT", 12);
  if (customers) SetText(row, "OTHER_TBL_NAME", "CUSTOMER");

  if (!customers) {
    if (slip || IsCarrierFile(no)) {
      SetText(row, "BIKO_LBL1", "配送業者");
      SetText(row, "BIKO_FLD1", "宅配業者");
      SetText(row, "BIKO_LBL2", "時間帯");
      SetText(row, "BIKO_FLD2", "配達時間帯");
    } else {
      SetText(row, "BIKO_LBL1", "支払方法");
      SetText(row, "BIKO_FLD1", "支払方法");
    }
    SetText(row, "BIKO_LBL3", "メモ");
    SetText(row, "BIKO_FLD3", "メモ");
  }

  if (e.carrier == Carrier::Yamato && slip) {
    SetText(row, "FLD_LBL1", "お客様コード");
    SetText(row, "FLD_TXT1", "0312345678");
    SetText(row, "FLD_LBL2", "請求先コード");
    SetText(row, "FLD_TXT2", "031234567801-01");
    SetText(row, "FLD_TOOLTIP1", "ヤマト運輸との契約のお客様コード");
  } else if (slip && collect) {
    SetText(row, "FLD_LBL1", "振替口座番号");
    SetText(row, "FLD_TXT1", "00120-3-456789");
    SetText(row, "FLD_LBL2", "口座名義");
    SetText(row, "FLD_TXT2", "カ）ルパンドウ");
  } else if (IsCarrierFile(no)) {
    SetText(row, "FLD_LBL1", "荷送人名");
    SetText(row, "FLD_LBL2", "荷送人郵便番号");
    SetText(row, "FLD_LBL3", "荷送人電話番号");
    SetText(row, "FLD_LBL4", e.carrier == Carrier::Yamato ? "お客様コード,分類コード,運賃管理番号" : "時間帯指定");
    SetText(row, "FLD_TXT4", e.carrier == Carrier::Yamato ? "0312345678,,01" : "1");
    SetText(row, "FLD_LBL5", "荷送人住所");
    SetText(row, "FLD_TOOLTIP1", "空欄のときはショップの情報を使います");
  } else if (no == 92 || no == 93 || no == 94 || no == 98 || no == 99) {
    SetText(row, "FLD_LBL1", "加盟店コード");
    SetText(row, "FLD_TXT1", "LP0012345");
  } else if (no == 0 || no == 56) {
    SetText(row, "MEMO1", "毎度お引き立ていただき、ありがとうございます。");
    SetText(row, "MEMO2", "商品到着後、8日以内にお支払いください。");
  } else if (no == 1 || no == 36) {
    SetText(row, "FLD_LBL1", "口座番号");
    SetText(row, "FLD_TXT1", "00120-3-456789");
    SetText(row, "FLD_LBL2", "加入者名");
    SetText(row, "FLD_TXT2", "株式会社ルパン堂");
  }
  // Margins are tenths of a millimetre: 10 mm around an A4 page, none on a preprinted slip; the
  // label sheet's own edges (two columns of six labels of 97 x 42.3 mm) on the label reports.
  const bool labels = no == 22 || no == 23;
  SetInt(row, "MARGIN_LEFT", slip ? 0 : labels ? 45 : 100);
  SetInt(row, "MARGIN_RIGHT", slip ? 0 : labels ? 45 : 100);
  SetInt(row, "MARGIN_TOP", slip ? 0 : labels ? 214 : 100);
  SetInt(row, "MARGIN_BOTTOM", slip ? 0 : labels ? 214 : 100);
  // The order lists are laid out across an A4 sheet.
  SetInt(row, "Orientation", e.object == "rptList" ? 2 : 1);
  SetInt(row, "PAPER_TYPE", slip ? 1 : 0);
  SetInt(row, "PAPER_SIZE", slip ? 256 : 9);  // user-defined slip form, else A4
  SetInt(row, "PAPER_BIN", 0);
  SetText(row, "DEVICE_NAME", "");
}

int FillReports(db::Connection& connection) {
  std::set<std::int64_t> present;
  auto existing = connection.Open("SELECT [REPORT_NO] FROM [REPORT]");
  for (; !existing.Eof(); existing.MoveNext()) present.insert(existing["REPORT_NO"].Long());

  const entry::TableDef& table = *entry::FindTable("REPORT");
  SqlRow row(table);
  demo::InsertBatch batch(connection, table, 200);
  int ord = 0;
  for (const CatalogueEntry* e = entry::CatalogueBegin(); e != entry::CatalogueEnd(); ++e) {
    const bool listed = e->output != OutputKind::None || e->report_no == 2 || e->report_no == 3;
    if (!listed) continue;
    ord += 10;
    if (present.count(e->report_no)) continue;
    std::string_view name = e->delivery_name.empty() ? InstalledName(e->report_no) : e->delivery_name;
    if (name.empty()) name = e->object;
    row.Reset();
    SetInt(row, "REPORT_NO", e->report_no);
    SetText(row, "REPORT_NAME", name);
    SetInt(row, "ORD", ord);
    DescribeReport(row, *e);
    batch.Add(row);
  }
  batch.Flush();
  return static_cast<int>(batch.RowsWritten());
}

}  // namespace

int FillTax(db::Connection& connection) {
  auto count = connection.Open("SELECT COUNT(*) AS CNT FROM [TAX]");
  if (!count.Eof() && count["CNT"].Long() > 0) return 0;
  // RATE, FROM_DATE, REDUCEDKBN, OLDRATE: one generation per date, the reduced rate beside the
  // normal one from the day it began.
  struct Generation { int rate; const char* from; int reduced; int old_rate; };
  static constexpr Generation kGenerations[] = {
      {3, "1989/04/01", 0, 0}, {5, "1997/04/01", 0, 3}, {8, "2014/04/01", 0, 5},
      {10, "2019/10/01", 0, 8}, {8, "2019/10/01", 1, 8},
  };
  const entry::TableDef& table = *entry::FindTable("TAX");
  SqlRow row(table);
  demo::InsertBatch batch(connection, table, 50);
  for (const auto& g : kGenerations) {
    row.Reset();
    row.Int(row.Index("RATE"), g.rate);
    row.Text(row.Index("FROM_DATE"), g.from);
    row.Int(row.Index("REDUCEDKBN"), g.reduced);
    row.Int(row.Index("OLDRATE"), g.old_rate);
    batch.Add(row);
  }
  batch.Flush();
  return static_cast<int>(batch.RowsWritten());
}

CatalogueSummary FillCatalogue(db::Connection& connection) {
  db::Transaction transaction(connection);
  CatalogueSummary summary;
  summary.reports_added = FillReports(connection);
  summary.tax_rows_added = FillTax(connection);
  transaction.Commit();
  return summary;
}

long CountOrders(db::Connection& connection) {
  auto count = connection.Open("SELECT COUNT(*) AS CNT FROM [CHUMON]");
  return count.Eof() ? 0 : static_cast<long>(count["CNT"].Long());
}

}  // namespace lupin::demo
