#pragma once
// Which date decides an order's tax rate, and the normal rate of a date.
#include <string>
#include <string_view>

#include "common/currency.h"
#include "common/settings.h"
#include "common/vb.h"
#include "db/connection.h"

namespace lupin::entry {
struct Context;
}

namespace lupin::money {

// The setting TaxCheckDate (default "0") as a 16-bit whole number.
int TaxCheckDate(const settings::Settings& settings);

// With mode 0 the first valid date of 請求日, 出荷日, 出荷予定日, 受注日 decides; with any other mode
// only 受注日 counts. No valid date gives vb::kLowestDate.
vb::DateSerial PickTaxDate(int tax_check_date, std::string_view order_date,
                           std::string_view planned_ship_date, std::string_view ship_date,
                           std::string_view bill_date);
// PickTaxDate with the mode read from the TaxCheckDate setting.
vb::DateSerial GetTaxDate(const settings::Settings& settings, std::string_view order_date,
                          std::string_view planned_ship_date, std::string_view ship_date,
                          std::string_view bill_date);

// A date as an SQL literal: "YYYY/MM/DD" between the dialect's date delimiters.
std::string TaxDateLiteral(int dialect, vb::DateSerial date);

// The newest normal rate (REDUCEDKBN 0) starting on or before `date`, as a fraction (0.1); no
// such row gives 0. Database errors go to the caller.
vb::Currency GetNormalTaxRate(db::Connection& connection, int dialect, vb::DateSerial date);
// The same on the context's connection and dialect.
vb::Currency GetNormalTaxRate(const entry::Context& context, vb::DateSerial date);

}  // namespace lupin::money
