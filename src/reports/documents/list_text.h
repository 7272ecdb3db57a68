#pragma once
// Texts the lists and summaries share: quantities, dates of the run and of a row.
#include <string>
#include <string_view>

namespace lupin::reports {

// A quantity as the lists print it: whole numbers "#,##0", otherwise as many decimals (one or
// two) as the value needs.
std::string QuantityText(double quantity);

// A quantity held as text (the item list's column): no "." gives "#,##0", one decimal place
// "#,##0.0", two or more "#,##0.00".
std::string QuantityTextOfText(std::string_view text);

// A date typed in one of the short forms ("240603", "24/06/03", "20240603", "2024/06/03") as
// "YYYY/MM/DD"; two-digit years take the present century. Other lengths come back unchanged.
std::string NormalizeDateText(std::string_view text, int present_year);

// A date text of the order tables in "YYYY/MM/DD"; what is not a date stays as it stands.
std::string DateOfRow(std::string_view text);

// A money column "#,##0", Null or empty as "0".
std::string MoneyText(double value);

}  // namespace lupin::reports
