#pragma once
// Statements are written in the dialect the workstation is set to: names in [brackets], and in
// dialect 1 dates as #YYYY/MM/DD#. Neither engine reads the date form, and PostgreSQL does not read
// brackets either (it wants "name", and folds unquoted names to lower case), so the database layer
// turns both into the engine's own text before a statement runs.
#include <string>
#include <string_view>

namespace lupin::db {

// Rewrites, outside string literals ('...' with '' escapes), double-quoted names and comments:
//   #YYYY/MM/DD# → 'YYYY/MM/DD' (dates are text in these tables, compared as text, which is what the
//   '...' dialects compare too); with brackets set, also [Name] → "name".
// A '#' that does not open such a literal (no closing '#' on the line, a blank next to it, a quote
// inside) passes through unchanged.
std::string EngineSqlText(std::string_view sql, bool brackets);

// Whether EngineSqlText without brackets would change anything: the one scan SQLite needs, and
// only when the text holds a '#' at all.
inline bool HasDateHash(std::string_view sql) { return sql.find('#') != std::string_view::npos; }

}  // namespace lupin::db
