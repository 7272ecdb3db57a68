#include "money/zei_info.h"

#include <string>
#include <utility>
#include <vector>

#include "money/errors.h"
#include "money/tax_date.h"

namespace lupin::money {

namespace {

db::Connection& Require(db::Connection* connection) {
  if (connection == nullptr) throw db::DbError("clsZeiInfo: SetDb が呼ばれていません。");
  return *connection;
}

}  // namespace

void clsZeiInfo::SetDb(db::Connection& connection, int dialect) {
  generations_.clear();
  preloaded_ = false;
  tax_rows_.clear();
  connection_ = &connection;
  dialect_ = dialect;
  db::Recordset rs = connection.Open(std::string("SELECT") + " MIN([FROM_DATE]) AS MINDATE" +
                                     " FROM [TAX]" + " WHERE [REDUCEDKBN] = 1");
  if (rs.Eof()) return;
  // MIN over no rows is one NULL row; the old code converted it anyway and failed.
  const auto date = vb::CDate(rs["MINDATE"].Text());
  if (!date) throw TypeMismatchError();
  reduced_start_date_ = *date;
}

void clsZeiInfo::PreloadGenerations() {
  db::Connection& connection = Require(connection_);
  std::vector<TaxRow> rows;
  for (db::Recordset rs = connection.Open("SELECT [FROM_DATE],[REDUCEDKBN],[RATE],[OLDRATE] FROM [TAX]"
                                          " ORDER BY [FROM_DATE],[REDUCEDKBN]");
       !rs.Eof(); rs.MoveNext()) {
    if (rs["FROM_DATE"].IsNull()) continue;  // never the maximum, never equal to it
    const std::string from_date = rs["FROM_DATE"].Text();
    const auto date = vb::CDate(from_date);
    // Only one written like the date literal compares as a date on every engine and collation.
    if (!date || vb::FormatDate(*date, "YYYY/MM/DD") != from_date || rs["REDUCEDKBN"].IsNull()) return;
    rows.push_back({from_date, static_cast<std::int16_t>(vb::CInt(rs["REDUCEDKBN"].Number())),
                    vb::Currency::FromDouble(rs["RATE"].Number() / 100),
                    vb::Currency::FromDouble(rs["OLDRATE"].Number() / 100)});
  }
  tax_rows_ = std::move(rows);
  preloaded_ = true;
}

clsZeiInfo::Generation clsZeiInfo::PreloadedGeneration(const std::string& date_text) const {
  // MAX(FROM_DATE) <= the date, then that generation's rows in REDUCEDKBN order.
  const std::string* youngest = nullptr;
  for (const TaxRow& row : tax_rows_) {
    if (row.from_date <= date_text && (youngest == nullptr || row.from_date > *youngest)) youngest = &row.from_date;
  }
  Generation generation;
  if (youngest == nullptr) return generation;
  const std::string from_date = *youngest;
  for (const TaxRow& row : tax_rows_) {
    if (row.from_date != from_date) continue;
    generation.found = true;
    generation.kinds.push_back(row.kind);
    generation.rates.push_back(row.rate);
    generation.old_rates.push_back(row.old_rate);
  }
  return generation;
}

void clsZeiInfo::GetData() {
  const std::string statement = std::string("SELECT") + " MAIN.[REDUCEDKBN]" + ",MAIN.[RATE]" + ",MAIN.[OLDRATE]" +
                                " FROM [TAX] MAIN" + " WHERE MAIN.[FROM_DATE] = (" + "SELECT" + " MAX(SUB.[FROM_DATE])" +
                                " FROM [TAX] SUB" + " WHERE SUB.[FROM_DATE] <= " + TaxDateLiteral(dialect_, kijyun_) + ")" +
                                " ORDER BY MAIN.[REDUCEDKBN]";
  auto cached = generations_.find(statement);
  if (cached == generations_.end() && preloaded_) {
    if (generations_.size() >= kGenerationCacheLimit) generations_.clear();
    cached = generations_.emplace(statement, PreloadedGeneration(vb::FormatDate(kijyun_, "YYYY/MM/DD"))).first;
  }
  if (cached == generations_.end()) {
    db::Connection& connection = Require(connection_);
    Generation generation;
    for (db::Recordset rs = connection.Open(statement); !rs.Eof(); rs.MoveNext()) {
      generation.found = true;
      generation.kinds.push_back(vb::CInt(rs["REDUCEDKBN"].Number()));
      generation.rates.push_back(vb::Currency::FromDouble(rs["RATE"].Number() / 100));
      generation.old_rates.push_back(vb::Currency::FromDouble(rs["OLDRATE"].Number() / 100));
    }
    if (generations_.size() >= kGenerationCacheLimit) generations_.clear();
    cached = generations_.emplace(statement, std::move(generation)).first;
  }
  // No row leaves the previous arrays standing: callers rely on the last rates surviving.
  const Generation& generation = cached->second;
  if (!generation.found) return;
  kinds_ = generation.kinds;
  rates_ = generation.rates;
  old_rates_ = generation.old_rates;
}

void clsZeiInfo::ForgetRates() {
  kinds_ = {0};
  rates_ = {vb::Currency{}};
  old_rates_ = {vb::Currency{}};
}

int clsZeiInfo::FindKind(std::int16_t kind) const {
  for (std::size_t i = 0; i < kinds_.size(); ++i) {
    if (kinds_[i] == kind) return static_cast<int>(i);
  }
  return -1;
}

bool clsZeiInfo::IsExistReduced() const {
  for (std::int16_t kind : kinds_) {
    if (kind != 0) return true;
  }
  return false;
}

vb::Currency clsZeiInfo::NormalRate() const {
  const int i = FindKind(0);
  return i < 0 ? vb::Currency{} : rates_[static_cast<std::size_t>(i)];
}

vb::Currency clsZeiInfo::ReducedRate() const {
  const int i = FindKind(1);
  return i < 0 ? vb::Currency{} : rates_[static_cast<std::size_t>(i)];
}

vb::Currency clsZeiInfo::OldNormalRate() const {
  const int i = FindKind(0);
  return i < 0 ? vb::Currency{} : old_rates_[static_cast<std::size_t>(i)];
}

}  // namespace lupin::money
