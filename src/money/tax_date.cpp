#include "money/tax_date.h"

#include <array>

#include "common/sql.h"
#include "entry/context.h"

namespace lupin::money {

int TaxCheckDate(const settings::Settings& settings) {
  return vb::CInt(vb::Val(settings.GetSetting(0, "0", "TaxCheckDate")));
}

vb::DateSerial PickTaxDate(int tax_check_date, std::string_view order_date,
                           std::string_view planned_ship_date, std::string_view ship_date,
                           std::string_view bill_date) {
  if (tax_check_date == 0) {
    // The latest stage of the order that has a date wins.
    for (std::string_view candidate : std::array{bill_date, ship_date, planned_ship_date, order_date}) {
      if (const auto date = vb::CDate(candidate)) return *date;
    }
    return vb::kLowestDate;
  }
  if (const auto date = vb::CDate(order_date)) return *date;
  return vb::kLowestDate;
}

vb::DateSerial GetTaxDate(const settings::Settings& settings, std::string_view order_date,
                          std::string_view planned_ship_date, std::string_view ship_date,
                          std::string_view bill_date) {
  return PickTaxDate(TaxCheckDate(settings), order_date, planned_ship_date, ship_date, bill_date);
}

std::string TaxDateLiteral(int dialect, vb::DateSerial date) {
  const std::string delimiter = sql::DialectFragment(dialect, 1);
  return delimiter + vb::FormatDate(date, "YYYY/MM/DD") + delimiter;
}

vb::Currency GetNormalTaxRate(db::Connection& connection, int dialect, vb::DateSerial date) {
  const std::string statement = std::string("SELECT [RATE] FROM [TAX]") + " WHERE [FROM_DATE] <= " +
                                TaxDateLiteral(dialect, date) + " AND [REDUCEDKBN] = 0" +
                                " ORDER BY [FROM_DATE] DESC";
  db::Recordset rs = connection.Open(statement);
  if (rs.Eof()) return vb::Currency{};
  return vb::Currency::FromDouble(rs["RATE"].Number() / 100);
}

vb::Currency GetNormalTaxRate(const entry::Context& context, vb::DateSerial date) {
  return GetNormalTaxRate(context.Db(), context.dialect, date);
}

}  // namespace lupin::money
