#pragma once
// An order's tax-included amounts and taxes per rate, kept in CHUMON_T for the rest of the package.
#include <cstdint>
#include <optional>

#include "common/currency.h"
#include "common/settings.h"
#include "db/connection.h"
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
  void RewriteChumonT();

  settings::Settings settings_;
  db::Connection* connection_ = nullptr;
  std::int32_t id_ = 0;
  clsZeiInfo zei_info_;
  vb::Currency zeirate_[3]{};
  std::int32_t komikin_[3]{};
  std::int32_t zeikin_[3]{};
};

}  // namespace lupin::money
