#pragma once
// The CHUMON_T rows of a run over many orders (the delivery notes, the AB sales file), read a
// batch of orders at a time instead of a statement per order. The batch's orders without a row
// are read in one statement, calculated, and their rows written in one transaction: a run stopped
// half-way leaves none of that batch's rows behind, which only costs their calculation again.
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

#include "common/settings.h"
#include "common/vb.h"
#include "db/connection.h"
#include "db/value.h"
#include "money/calc_chumon_t.h"

namespace lupin::money {

// One order's three slots of rate, tax-included amount and tax: as CHUMON_T holds them, or as
// the calculation gave them (the rate in its text form, the amounts whole numbers).
struct TaxSummaryRow {
  std::array<db::Value, 3> rate, komikin, zeikin;
};

class TaxSummaryRun {
 public:
  static constexpr std::size_t kBatch = 500;
  // Whether an order without a row is calculated with its batch, by the date its rates come
  // from; the others are calculated only when asked for. Empty: every order is.
  using CalculateAhead = std::function<bool(vb::DateSerial tax_date)>;

  TaxSummaryRun(settings::Settings settings, db::Connection& connection, int dialect, CalculateAhead ahead = {});

  // The run's order IDs, in the order they will be asked for (a repeated ID counts once).
  void SetOrders(const std::vector<std::int32_t>& ids);
  // The order's row; its batch is read first when it is not the current one. An order without a
  // row is calculated, which writes it; the calculation's errors are raised. Null for an order
  // outside the run's list, which the caller asks for on its own.
  const TaxSummaryRow* Row(std::int32_t id);
  // Statements sent to read CHUMON_T and the orders to calculate, for a run's counters.
  int Reads() const { return reads_; }

 private:
  void ReadBatch(std::size_t from);
  void CalculateBatch(const std::vector<std::int32_t>& missing);
  clsCalcChumonT& Calculator();
  const TaxSummaryRow& Calculated(std::int32_t id);

  settings::Settings settings_;
  db::Connection& connection_;
  int dialect_;
  CalculateAhead ahead_;
  std::optional<clsCalcChumonT> calc_;  // made when the first order needs calculating

  std::vector<std::int32_t> orders_;
  std::unordered_map<std::int32_t, std::size_t> positions_;
  std::size_t batch_from_ = 0, batch_to_ = 0;  // orders_[from, to) is the current batch
  std::unordered_map<std::int32_t, TaxSummaryRow> rows_;  // of the current batch
  int reads_ = 0;
};

}  // namespace lupin::money
