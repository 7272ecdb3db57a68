#include "demo/tax_rates.h"

#include <algorithm>

namespace lupin::demo {

TaxRatesByDate::TaxRatesByDate(db::Connection& connection) {
  info_.SetDb(connection, 0);
  auto rs = connection.Open("SELECT DISTINCT [FROM_DATE] FROM [TAX] ORDER BY [FROM_DATE]");
  for (; !rs.Eof(); rs.MoveNext()) starts_.push_back(rs["FROM_DATE"].Text());
}

const money::TaxRates& TaxRatesByDate::On(vb::DateSerial tax_date) {
  // Dates are compared as text, as the rate lookup compares them; the generation names the cache.
  const std::string date = vb::DateText(tax_date);
  const auto after = std::upper_bound(starts_.begin(), starts_.end(), date);
  const std::string start = after == starts_.begin() ? std::string() : *(after - 1);
  auto found = by_start_.find(start);
  if (found == by_start_.end()) {
    info_.SetKijyun(tax_date);
    info_.GetData();
    found = by_start_.emplace(start, info_.Rates()).first;
  }
  return found->second;
}

}  // namespace lupin::demo
