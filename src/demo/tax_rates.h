#pragma once
// The rates that decide a demo order's tax, read through the tax service itself, once per TAX
// generation: the demo prices its orders by the rules `lupinprint tax` recomputes them by.
#include <map>
#include <string>
#include <vector>

#include "common/vb.h"
#include "db/connection.h"
#include "money/zei_info.h"

namespace lupin::demo {

class TaxRatesByDate {
 public:
  // Expects TAX to hold the generations (FillTax).
  explicit TaxRatesByDate(db::Connection& connection);
  // The rates in force on the order's tax date.
  const money::TaxRates& On(vb::DateSerial tax_date);

 private:
  money::clsZeiInfo info_;
  std::vector<std::string> starts_;  // FROM_DATE of each generation, ascending
  std::map<std::string, money::TaxRates> by_start_;
};

}  // namespace lupin::demo
