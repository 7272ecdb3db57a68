#include "money/tax_summary_run.h"

#include <algorithm>
#include <exception>
#include <string>
#include <utility>

namespace lupin::money {

namespace {

TaxSummaryRow RowOf(const clsCalcChumonT& calc) {
  TaxSummaryRow row;
  const vb::Currency rates[] = {calc.Zeirate1(), calc.Zeirate2(), calc.Zeirate3()};
  const std::int32_t komikin[] = {calc.Komikin1(), calc.Komikin2(), calc.Komikin3()};
  const std::int32_t zeikin[] = {calc.Zeikin1(), calc.Zeikin2(), calc.Zeikin3()};
  for (std::size_t s = 0; s < 3; ++s) {
    row.rate[s] = db::Value(rates[s].ToString());
    row.komikin[s] = db::Value(std::int64_t{komikin[s]});
    row.zeikin[s] = db::Value(std::int64_t{zeikin[s]});
  }
  return row;
}

}  // namespace

TaxSummaryRun::TaxSummaryRun(settings::Settings settings, db::Connection& connection, int dialect,
                             CalculateAhead ahead)
    : settings_(std::move(settings)), connection_(connection), dialect_(dialect), ahead_(std::move(ahead)) {}

void TaxSummaryRun::SetOrders(const std::vector<std::int32_t>& ids) {
  orders_.clear();
  positions_.clear();
  rows_.clear();
  batch_from_ = batch_to_ = 0;
  for (const std::int32_t id : ids) {
    if (positions_.emplace(id, orders_.size()).second) orders_.push_back(id);
  }
}

const TaxSummaryRow* TaxSummaryRun::Row(std::int32_t id) {
  const auto position = positions_.find(id);
  if (position == positions_.end()) return nullptr;
  if (position->second < batch_from_ || position->second >= batch_to_) ReadBatch(position->second);
  if (const auto found = rows_.find(id); found != rows_.end()) return &found->second;
  return &Calculated(id);
}

void TaxSummaryRun::ReadBatch(std::size_t from) {
  rows_.clear();
  batch_from_ = from;
  batch_to_ = std::min(orders_.size(), from + kBatch);
  // Whole numbers only, so the list needs no quoting.
  std::string list;
  for (std::size_t i = batch_from_; i < batch_to_; ++i)
    list.append(i == batch_from_ ? "" : ",").append(std::to_string(orders_[i]));
  ++reads_;
  for (db::Recordset rs = connection_.Open(
           "SELECT [ID],[ZEIRATE1],[ZEIRATE1KIN],[ZEIRATE1ZEI],[ZEIRATE2],[ZEIRATE2KIN],[ZEIRATE2ZEI],[ZEIRATE3],"
           "[ZEIRATE3KIN],[ZEIRATE3ZEI] FROM [CHUMON_T] WHERE [ID] IN (" + list + ")");
       !rs.Eof(); rs.MoveNext()) {
    TaxSummaryRow& row = rows_[static_cast<std::int32_t>(rs["ID"].Long())];
    for (std::size_t s = 0; s < 3; ++s) {
      const std::string slot = "ZEIRATE" + std::to_string(s + 1);
      row.rate[s] = rs[slot];
      row.komikin[s] = rs[slot + "KIN"];
      row.zeikin[s] = rs[slot + "ZEI"];
    }
  }
  std::vector<std::int32_t> missing;
  for (std::size_t i = batch_from_; i < batch_to_; ++i)
    if (!rows_.contains(orders_[i])) missing.push_back(orders_[i]);
  if (!missing.empty()) CalculateBatch(missing);
}

void TaxSummaryRun::CalculateBatch(const std::vector<std::int32_t>& missing) {
  clsCalcChumonT& calc = Calculator();
  ++reads_;
  calc.Prefetch(missing);
  // One transaction for the batch's rewrites, so they travel together; a caller's holds them as is.
  std::optional<db::Transaction> own;
  if (!connection_.InTransaction()) own.emplace(connection_);
  for (const std::int32_t id : missing) {
    // An order gone from CHUMON is not calculated ahead: asked for, it fails as a single order does.
    const std::optional<vb::DateSerial> date = calc.PrefetchedTaxDate(id);
    if (!date || (ahead_ && !ahead_(*date))) continue;
    calc.SetId(id);
    calc.ForgetRates();  // each order as a new object calculates it
    try {
      calc.Calc();
    } catch (const db::DbError&) {
      throw;  // the batch's rows are rolled back
    } catch (const std::exception&) {
      // The run stops at this order when it is asked for (it fails again then), so the orders
      // after it are left to be calculated only if asked; those before it keep their rows.
      break;
    }
    rows_[id] = RowOf(calc);
  }
  if (own) own->Commit();
}

const TaxSummaryRow& TaxSummaryRun::Calculated(std::int32_t id) {
  clsCalcChumonT& calc = Calculator();
  calc.SetId(id);
  calc.ForgetRates();
  calc.Calc();
  return rows_[id] = RowOf(calc);
}

clsCalcChumonT& TaxSummaryRun::Calculator() {
  if (!calc_) {
    clsCalcChumonT calc(settings_);
    calc.SetDb(connection_, dialect_);
    calc.PrepareRun();
    calc_.emplace(std::move(calc));
  }
  return *calc_;
}

}  // namespace lupin::money
