#pragma once
// The mail-merge language of the free texts printed on documents:
//   <@name|argument|…@>                 the field of the current row, formatted
//   <?IF left op right?>body<?ENDIF?>    the body when the condition holds, else nothing
// with op one of == != > >= < <= & |, and right in single quotes for a text comparison.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/recordset.h"

namespace lupin::desktop {

// Resolves the conditions, then the fields, from the current row of row. On an unknown field or
// a value that cannot be formatted the text keeps the state it had reached and the work ends;
// nothing is reported, as free texts must never stop a print.
void ExpandTemplate(std::string& text, const db::Recordset& row);

// The text of a field value through the arguments of its marker: "DATE" then day offsets and
// date formats, or number formats for a numeric value. Nothing when a date leaves the calendar.
std::optional<std::string> FormatField(std::string_view value, const std::vector<std::string>& parts);

// The condition of a block head: left is a field name or a literal; right in single quotes
// compares texts, otherwise the leading numbers of both sides.
bool ConditionHolds(std::string_view left, std::string_view op, std::string_view right, const db::Recordset& row);

}  // namespace lupin::desktop
