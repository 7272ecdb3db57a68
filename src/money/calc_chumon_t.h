#pragma once
// An order's tax-included amounts and taxes per rate, kept in CHUMON_T for the rest of the package.
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "common/currency.h"
#include "common/settings.h"
#include "db/connection.h"
#include "money/order_tax.h"
#include "money/zei_info.h"

namespace lupin::money {

// Three fixed slots: 1 the normal rate, 2 the reduced rate, 3 the old normal rate. A slot is never
// reused for another rate and slots are not compacted.
//
//   clsCalcChumonT calc;           // TaxCheckDate from the default settings stores
//   calc.SetDb(connection);
//   calc.SetId(1234);
//   calc.Calc();                   // also rewrites the order's CHUMON_T row
//   calc.Komikin1(); calc.Zeikin1(); …
class clsCalcChumonT {
 public:
  clsCalcChumonT();
  // TaxCheckDate, which picks the date of the rate, is read from these stores on each Calc.
  explicit clsCalcChumonT(settings::Settings settings);

  // Keeps the connection (the caller's) and hands it to the tax information, which loads its
  // reduced-rate start date and so raises TypeMismatchError when TAX has no reduced row.
  void SetDb(db::Connection& connection, int dialect = 0);
  void SetId(std::int32_t id) { id_ = id; }

  // For a run over many orders, after SetDb: the TAX table and TaxCheckDate are read once here
  // instead of per order (neither changes while a run lasts).
  void PrepareRun();
  // Reads the orders with IDs first..last, their shop and lines in one statement; the next Calc
  // of each of them uses those rows once instead of its own query. An ID with no order is not
  // held, and its Calc asks the database as always.
  void Prefetch(std::int32_t first, std::int32_t last);
  // The same for the orders of a list, when a range would read many orders outside it. No
  // statement for an empty list.
  void Prefetch(const std::vector<std::int32_t>& ids);
  bool IsPrefetched(std::int32_t id) const { return prefetched_.contains(id); }
  // The date whose rates the next Calc of a prefetched order takes; none for an order not held.
  std::optional<vb::DateSerial> PrefetchedTaxDate(std::int32_t id) const;

  // The next Calc starts from no rates, as on a new object: an order dated before every TAX
  // generation then gets none rather than the previous order's.
  void ForgetRates() { zei_info_.ForgetRates(); }

  // Calculates the order and rewrites its CHUMON_T row (delete, then insert; in a transaction of
  // their own unless the caller has one open).
  // Database errors, a missing order (end of data), vb::OverflowError and DivisionByZeroError are
  // raised; the nine results then keep the values of the previous run.
  void Calc();

  vb::Currency Zeirate1() const { return zeirate_[0]; }
  vb::Currency Zeirate2() const { return zeirate_[1]; }
  vb::Currency Zeirate3() const { return zeirate_[2]; }
  std::int32_t Komikin1() const { return komikin_[0]; }
  std::int32_t Komikin2() const { return komikin_[1]; }
  std::int32_t Komikin3() const { return komikin_[2]; }
  std::int32_t Zeikin1() const { return zeikin_[0]; }
  std::int32_t Zeikin2() const { return zeikin_[1]; }
  std::int32_t Zeikin3() const { return zeikin_[2]; }

  const clsZeiInfo& ZeiInfo() const { return zei_info_; }

 private:
  // What Calc reads of one order.
  struct OrderRows {
    std::string order_date, planned_ship_date, ship_date, bill_date;
    OrderCharges charges;
    std::vector<OrderTaxLine> lines;
  };
  void PrefetchWhere(const std::string& condition);
  vb::DateSerial TaxDateOf(const OrderRows& order) const;
  void Apply(const OrderCharges& charges, const std::vector<OrderTaxLine>& lines);
  void RewriteChumonT();

  settings::Settings settings_;
  db::Connection* connection_ = nullptr;
  std::int32_t id_ = 0;
  clsZeiInfo zei_info_;
  std::optional<int> tax_check_date_;  // held by PrepareRun
  std::unordered_map<std::int32_t, OrderRows> prefetched_;
  vb::Currency zeirate_[3]{};
  std::int32_t komikin_[3]{};
  std::int32_t zeikin_[3]{};
};

}  // namespace lupin::money
