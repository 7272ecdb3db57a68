#pragma once
// The statements quote names as [name]; PostgreSQL wants "name", and folds unquoted names to lower
// case, so a bracketed name becomes a double-quoted one with its ASCII letters lowered.
#include <string>
#include <string_view>

namespace lupin::db {

// Rewrites [name] outside string literals ('...' with '' escapes), double-quoted names and
// comments, which pass through unchanged.
std::string BracketsToDoubleQuotes(std::string_view sql);

}  // namespace lupin::db
