#pragma once
// Which consumption-tax rates were in force on a reference date, from the TAX table.
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "common/currency.h"
#include "common/vb.h"
#include "db/connection.h"
#include "money/order_tax.h"

namespace lupin::money {

// Calling order: SetDb once, then per date set Kijyun and call GetData, then read the rates.
// When no rate generation starts on or before Kijyun, GetData leaves the rates it held: zero on a
// new object, the previous date's rates on a used one.
class clsZeiInfo {
 public:
  clsZeiInfo() = default;

  // Keeps the connection (the caller's; never closed here) and loads ReducedStartDate. Raises
  // TypeMismatchError when TAX has no reduced row (MIN gives NULL, which is no date).
  // `dialect` picks the date delimiter; SQLite and PostgreSQL both use mode 0.
  void SetDb(db::Connection& connection, int dialect = 0);

  vb::DateSerial Kijyun() const { return kijyun_; }
  void SetKijyun(vb::DateSerial date) { kijyun_ = date; }

  // Loads the youngest generation starting on or before Kijyun, in REDUCEDKBN order. What a date
  // gave is kept for the object's life (TAX does not change while orders are calculated; a
  // season's orders share a few hundred dates): SetDb starts afresh.
  void GetData();

  // Reads the whole TAX table in one statement, so that GetData answers every date from memory:
  // for a run over many orders. When a FROM_DATE is not written "YYYY/MM/DD" or a REDUCEDKBN is
  // NULL, the engines' own comparison and ordering would decide, so GetData keeps asking the
  // database. SetDb drops what was read.
  void PreloadGenerations();

  // Back to the rates of a new object (none), so the next date without a generation finds none
  // instead of the previous date's.
  void ForgetRates();

  bool IsExistReduced() const;
  vb::DateSerial ReducedStartDate() const { return reduced_start_date_; }
  vb::Currency NormalRate() const;     // first row of kind 0, else 0
  vb::Currency ReducedRate() const;    // first row of kind 1, else 0
  vb::Currency OldNormalRate() const;  // OLDRATE of the first row of kind 0, else 0
  TaxRates Rates() const { return {NormalRate(), ReducedRate(), OldNormalRate(), IsExistReduced()}; }

 private:
  int FindKind(std::int16_t kind) const;  // index of the first row of that kind, or -1

  struct Generation {
    bool found = false;  // no row leaves the previous rates standing
    std::vector<std::int16_t> kinds;
    std::vector<vb::Currency> rates, old_rates;
  };
  // One TAX row as preloaded: its date text, compared as the engine compares the column.
  struct TaxRow {
    std::string from_date;
    std::int16_t kind;
    vb::Currency rate, old_rate;
  };
  Generation PreloadedGeneration(const std::string& date_text) const;

  static constexpr std::size_t kGenerationCacheLimit = 4096;
  bool preloaded_ = false;
  std::vector<TaxRow> tax_rows_;  // by FROM_DATE, then REDUCEDKBN
  std::unordered_map<std::string, Generation> generations_;  // by statement text

  db::Connection* connection_ = nullptr;
  int dialect_ = 0;
  vb::DateSerial kijyun_ = 0;
  vb::DateSerial reduced_start_date_ = 0;
  std::vector<std::int16_t> kinds_{0};
  std::vector<vb::Currency> rates_{vb::Currency{}};
  std::vector<vb::Currency> old_rates_{vb::Currency{}};
};

}  // namespace lupin::money
