#include "money/calc_chumon_t.h"

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "common/vb.h"
#include "money/order_tax.h"
#include "money/tax_date.h"

namespace lupin::money {

namespace {

// NULL and non-numeric text count as 0; halves round to even.
std::int32_t ReadLong(const db::Recordset& rs, std::string_view name) { return vb::CLng(rs[name].Number()); }
std::int16_t ReadFlag(const db::Recordset& rs, std::string_view name) { return vb::CInt(rs[name].Number()); }

OrderCharges ReadCharges(const db::Recordset& rs) {
  OrderCharges o;
  o.postage = ReadLong(rs, "送料");
  o.fee = ReadLong(rs, "決済手数料");
  o.points_8 = ReadLong(rs, "ポイント利用８％");
  o.points_10 = ReadLong(rs, "ポイント利用１０％");
  o.includes_declared = ReadFlag(rs, "TAX_INCLUDES_DECLARED");
  o.shipping_taxkbn = ReadFlag(rs, "SHIPPING_TAXKBN");
  o.handling_taxkbn = ReadFlag(rs, "HANDLING_TAXKBN");
  o.tax_calkbn = ReadFlag(rs, "TAX_CALKBN");
  return o;
}

OrderTaxLine ReadLine(const db::Recordset& rs) {
  return {ReadLong(rs, "ITEM_PRICE"), ReadFlag(rs, "REDUCEDKBN"), rs["ITEM_TAX"].Number()};
}

// The columns and tables of an order's calculation.
std::string OrderColumns() {
  return std::string("[受注日]") + ",[出荷予定日]" + ",[出荷日]" + ",[請求日]" + ",[送料]" + ",[決済手数料]" +
         ",[ポイント利用８％]" + ",[ポイント利用１０％]" + ",[SHIPPING_TAXKBN]" + ",[HANDLING_TAXKBN]" +
         ",[TAX_CALKBN]" + ",[TAX_INCLUDES_DECLARED]" + ",[ITEM_PRICE]" + ",[CHUMON_D].[REDUCEDKBN]" +
         ",[ITEM_TAX]" + " FROM ([CHUMON]" + " LEFT OUTER JOIN [SHOP]" + " ON [SHOP].[SHOP_ID] = [CHUMON].[ショップID])" +
         " LEFT OUTER JOIN [CHUMON_D]" + " ON [CHUMON_D].[ID] = [CHUMON].[ID]";
}

}  // namespace

clsCalcChumonT::clsCalcChumonT() : clsCalcChumonT(settings::Settings(settings::StorePaths::Default())) {}

clsCalcChumonT::clsCalcChumonT(settings::Settings settings) : settings_(std::move(settings)) {}

void clsCalcChumonT::SetDb(db::Connection& connection, int dialect) {
  connection_ = &connection;
  prefetched_.clear();
  zei_info_.SetDb(connection, dialect);
}

void clsCalcChumonT::PrepareRun() {
  zei_info_.PreloadGenerations();
  tax_check_date_ = TaxCheckDate(settings_);
}

void clsCalcChumonT::Prefetch(std::int32_t first, std::int32_t last) {
  PrefetchWhere("[CHUMON].[ID] >= " + std::to_string(first) + " AND [CHUMON].[ID] <= " + std::to_string(last));
}

void clsCalcChumonT::Prefetch(const std::vector<std::int32_t>& ids) {
  if (ids.empty()) {
    prefetched_.clear();
    return;
  }
  // Whole numbers only, so the list needs no quoting.
  std::string list;
  for (const std::int32_t id : ids) list.append(list.empty() ? "" : ",").append(std::to_string(id));
  PrefetchWhere("[CHUMON].[ID] IN (" + list + ")");
}

std::optional<vb::DateSerial> clsCalcChumonT::PrefetchedTaxDate(std::int32_t id) const {
  const auto found = prefetched_.find(id);
  if (found == prefetched_.end()) return std::nullopt;
  return TaxDateOf(found->second);
}

void clsCalcChumonT::PrefetchWhere(const std::string& condition) {
  if (connection_ == nullptr) throw db::DbError("clsCalcChumonT: SetDb が呼ばれていません。");
  prefetched_.clear();
  db::Recordset rs = connection_->Open("SELECT [CHUMON].[ID]," + OrderColumns() + " WHERE " + condition +
                                       " ORDER BY [CHUMON].[ID],[CHUMON_D].[ITEM_NO]");
  std::unordered_map<std::int32_t, OrderRows> orders;
  std::optional<std::int32_t> current;
  OrderRows* order = nullptr;  // null while the current order cannot be read
  for (; !rs.Eof(); rs.MoveNext()) {
    const auto id = static_cast<std::int32_t>(rs["ID"].Long());
    const bool next = id != current;
    current = id;
    try {
      if (next) {
        order = &(orders[id] = {rs["受注日"].Text(), rs["出荷予定日"].Text(), rs["出荷日"].Text(), rs["請求日"].Text(),
                                ReadCharges(rs), {}});
      }
      if (order != nullptr) order->lines.push_back(ReadLine(rs));
    } catch (const vb::OverflowError&) {
      // A value out of range: the order is not held, so its Calc reads it and fails on its own.
      orders.erase(id);
      order = nullptr;
    }
  }
  prefetched_ = std::move(orders);
}

vb::DateSerial clsCalcChumonT::TaxDateOf(const OrderRows& order) const {
  return PickTaxDate(tax_check_date_ ? *tax_check_date_ : TaxCheckDate(settings_), order.order_date,
                     order.planned_ship_date, order.ship_date, order.bill_date);
}

void clsCalcChumonT::Calc() {
  if (connection_ == nullptr) throw db::DbError("clsCalcChumonT: SetDb が呼ばれていません。");
  if (auto found = prefetched_.find(id_); found != prefetched_.end()) {
    const OrderRows order = std::move(found->second);
    prefetched_.erase(found);  // used once: a later Calc of the order reads it afresh
    zei_info_.SetKijyun(TaxDateOf(order));
    zei_info_.GetData();
    Apply(order.charges, order.lines);
    return;
  }
  db::Recordset rs = connection_->Open("SELECT " + OrderColumns() +
                                       " WHERE [CHUMON].[ID] = " + std::to_string(id_));

  // The date that decides the rates; no row at all gives the lowest date.
  if (rs.Eof()) {
    zei_info_.SetKijyun(vb::kLowestDate);
  } else {
    zei_info_.SetKijyun(TaxDateOf({rs["受注日"].Text(), rs["出荷予定日"].Text(), rs["出荷日"].Text(),
                                   rs["請求日"].Text(), {}, {}}));
  }
  zei_info_.GetData();

  // A missing order fails here with the end-of-data error, before CHUMON_T is touched.
  const OrderCharges charges = ReadCharges(rs);
  // The lines; an order without lines is one row of NULLs, adding 0 to the normal slot.
  std::vector<OrderTaxLine> lines;
  for (; !rs.Eof(); rs.MoveNext()) lines.push_back(ReadLine(rs));
  rs.Close();
  Apply(charges, lines);
}

void clsCalcChumonT::Apply(const OrderCharges& charges, const std::vector<OrderTaxLine>& lines) {
  // Only a run that got this far replaces the results.
  const OrderTax tax = CalcOrderTax(charges, lines, zei_info_.Rates());
  for (std::size_t i = 0; i < 3; ++i) {
    zeirate_[i] = tax.zeirate[i];
    komikin_[i] = tax.komikin[i];
    zeikin_[i] = tax.zeikin[i];
  }
  RewriteChumonT();
}

void clsCalcChumonT::RewriteChumonT() {
  // On its own the pair runs as one transaction: the order never stands without its row (a crash
  // between the two), and the pair travels in one round trip. A caller's transaction holds it as is.
  std::optional<db::Transaction> own;
  if (!connection_->InTransaction()) own.emplace(*connection_);
  const std::string id = std::to_string(id_);
  connection_->Execute("DELETE FROM [CHUMON_T] WHERE [ID] = " + id);
  std::string statement = std::string("INSERT INTO [CHUMON_T](") + " [ID]" + ",[ZEIRATE1]" +
                          ",[ZEIRATE1KIN]" + ",[ZEIRATE1ZEI]" + ",[ZEIRATE2]" + ",[ZEIRATE2KIN]" +
                          ",[ZEIRATE2ZEI]" + ",[ZEIRATE3]" + ",[ZEIRATE3KIN]" + ",[ZEIRATE3ZEI]" +
                          ")VALUES(" + id;
  for (std::size_t i = 0; i < 3; ++i) {
    for (const std::string& value :
         {zeirate_[i].ToString(), std::to_string(komikin_[i]), std::to_string(zeikin_[i])}) {
      statement.append(",").append(value);
    }
  }
  statement += ")";
  connection_->Execute(statement);
  if (own) own->Commit();
}

}  // namespace lupin::money
