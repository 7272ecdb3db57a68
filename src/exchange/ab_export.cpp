#include "exchange/ab_export.h"

#include <fstream>
#include <limits>

#include "common/text.h"
#include "common/vb.h"
#include "exchange/checked_order_fetch.h"
#include "exchange/csv_line.h"
#include "exchange/deferred_payment_values.h"
#include "exchange/field_text.h"
#include "money/calc_chumon_t.h"

namespace lupin::exchange {

std::vector<std::string> ReadSiteIds(const std::filesystem::path& file) {
  std::vector<std::string> lines;
  std::ifstream in(file, std::ios::binary);
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(text::FromCp932(line));
  }
  return lines;
}

std::string FindSiteId(const std::vector<std::string>& lines, std::string_view shop_id) {
  const std::string key = std::string(shop_id) + ",";
  for (const std::string& line : lines)
    if (line.starts_with(key)) return line.substr(key.size());
  return {};
}

std::int32_t GetOrderTax(entry::Context& context, db::Connection& db, std::int32_t id) {
  auto rs = db.Open(std::string("SELECT") + " [ZEIRATE1ZEI]" + ",[ZEIRATE2ZEI]" + ",[ZEIRATE3ZEI]" +
                    " FROM [CHUMON_T]" + " WHERE [ID] = " + std::to_string(id));
  if (!rs.Eof()) {
    return vb::CLng(rs["ZEIRATE1ZEI"].Number() + rs["ZEIRATE2ZEI"].Number() + rs["ZEIRATE3ZEI"].Number());
  }
  money::clsCalcChumonT calc(context.settings);
  calc.SetDb(db, context.dialect);
  calc.SetId(id);
  calc.Calc();
  return calc.Zeikin1() + calc.Zeikin2() + calc.Zeikin3();
}

std::string ABTransfer(std::string_view carrier) {
  const std::string text = RemoveAll(CompactText(carrier), " ");
  static constexpr std::pair<std::string_view, std::string_view> kNames[] = {
      {"クロネコ", "クロネコヤマト"}, {"ヤマト", "クロネコヤマト"}, {"佐川", "佐川急便"},     {"日通", "日本通運"},
      {"郵", "ゆうパック"},           {"ゆう", "ゆうパック"},       {"西濃", "西濃運輸"},     {"福山", "福山通運"},
      {"名鉄", "名鉄運輸"},           {"新潟", "新潟運輸"},         {"トナミ", "トナミ運輸"}, {"西武", "西武運輸"},
      {"フットワーク", "フットワークエクスプレス"},                 {"物流工作", "物流工作"}, {"メール", "メール便"},
      {"ＥＭＳ", "ＥＭＳ"},
  };
  for (const auto& [word, name] : kNames)
    if (text.find(word) != std::string::npos) return std::string(name);
  return text;
}

void clsABUriage::Output(std::string& out) const {
  CsvLine line(out);
  for (const std::string* t : {&OrdYMD, &Yubin, &Jusyo, &Simei, &Kana, &Tel, &EMail, &Job, &ZYubin, &ZJusyo, &ZSimei,
                               &ZKana, &ZTel, &ItemName})
    line.Add(*t);
  line.Add(std::to_string(Tanka), Quote::None).Add(Quantity(Suryo), Quote::None);
  for (const std::int32_t n : {Shipping, Handling, SeiGaku}) line.Add(std::to_string(n), Quote::None);
  line.Add(SiteID).Add(std::to_string(id), Quote::None).Add(Biko).End();
}

void clsABSyukka::Output(std::string& out) const {
  CsvLine(out)
      .Add("")
      .Add(Transfer)
      .Add(DenNo)
      .Add(OrdYMD)
      .Add(Simei)
      .Add(Tel)
      .Add(std::to_string(SeiGaku), Quote::None)
      .Add(ZJusyo)
      .Add(std::to_string(id), Quote::None)
      .End();
}

void ABUriageExport::Begin(entry::Context& context, entry::Ui&, const common::Grid& grid) {
  context_ = &context;
  site_ids_ = ReadSiteIds(context.home / "siteid.txt");
  std::vector<std::int32_t> ids;
  for (const std::int64_t id : CheckedWholeNumberIds(grid))
    if (id <= std::numeric_limits<std::int32_t>::max()) ids.push_back(static_cast<std::int32_t>(id));
  tax_run_ = std::make_unique<money::TaxSummaryRun>(context.settings, context.Db(), context.dialect);
  tax_run_->SetOrders(ids);
}

std::int32_t ABUriageExport::OrderTax(db::Connection& db, std::int32_t id) {
  if (const money::TaxSummaryRow* row = tax_run_ ? tax_run_->Row(id) : nullptr)
    return vb::CLng(row->zeikin[0].Number() + row->zeikin[1].Number() + row->zeikin[2].Number());
  return GetOrderTax(*context_, db, id);
}

RowFailure ABUriageExport::Line(const CheckedOrder& o, db::Connection& db, std::string& out) {
  const auto f = [&](std::string_view name) { return o.Field(name); };
  clsABUriage row;
  row.OrdYMD = OrderDate(f("受注日"));
  row.Yubin = CompactText(f("請求先郵便番号"));
  row.Jusyo = CompactText(f("請求先住所"));
  row.Simei = CompactText(f("請求先氏名"));
  row.Tel = CompactText(f("請求先電話番号"));
  row.EMail = std::string(clsABUriage::EmptyAddress);
  const bool gift = !TrimBlanks(f("贈答先氏名")).empty();
  row.ZYubin = gift ? CompactText(f("贈答先郵便番号")) : row.Yubin;
  row.ZJusyo = gift ? CompactText(f("贈答先住所")) : row.Jusyo;
  row.ZSimei = gift ? CompactText(f("贈答先氏名")) : row.Simei;
  row.ZTel = gift ? CompactText(f("贈答先電話番号")) : row.Tel;
  row.SiteID = CompactText(FindSiteId(site_ids_, f("ショップID")));
  row.id = vb::CLng(o.order["ID"].Number());
  bool first = true;
  const auto put = [&](std::string_view name, double tanka, double suryo) {
    row.ItemName = CompactText(name);
    row.Tanka = vb::CLng(tanka);
    row.Suryo = suryo;
    // Postage, fee and the billed total ride on the order's first line only.
    row.Shipping = first ? vb::CLng(o.order["送料"].Number()) : 0;
    row.Handling = first ? vb::CLng(o.order["決済手数料"].Number()) : 0;
    row.SeiGaku = first ? vb::CLng(o.order["請求額"].Number()) : 0;
    first = false;
    row.Output(out);
  };
  ForEachItemSlot(o.order, [&](const BilledItem& item) { put(item.name, item.unit_price, item.quantity); });
  const std::int32_t tax = OrderTax(db, row.id);
  if (tax != 0) put("消費税", tax, 1);
  const double points = o.order["ポイント利用"].Number();
  if (points != 0) put("ポイント利用分", -points, 1);
  return {};
}

RowFailure ABSyukkaExport::Line(const CheckedOrder& o, db::Connection&, std::string& out) {
  const auto f = [&](std::string_view name) { return o.Field(name); };
  clsABSyukka row;
  row.Transfer = ABTransfer(f("宅配業者"));
  row.DenNo = RemoveAll(RemoveAll(RemoveAll(CompactText(f("出荷伝票番号")), "-"), "－"), "ー");
  row.OrdYMD = OrderDate(f("受注日"));
  row.Simei = CompactText(f("請求先氏名"));
  row.Tel = CompactText(f("請求先電話番号"));
  row.SeiGaku = vb::CLng(o.order["請求額"].Number());
  row.ZJusyo = CompactText(TrimBlanks(f("贈答先氏名")).empty() ? f("請求先住所") : f("贈答先住所"));
  row.id = vb::CLng(o.order["ID"].Number());
  row.Output(out);
  return {};
}

}  // namespace lupin::exchange
