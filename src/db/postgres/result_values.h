#pragma once
// The text form of a PostgreSQL result field, typed by the column's type.
#include <string_view>

#include "db/value.h"

namespace lupin::db {

using Oid = unsigned int;

Value ValueOfField(Oid type, std::string_view text);

}  // namespace lupin::db
