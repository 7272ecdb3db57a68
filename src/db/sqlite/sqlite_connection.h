#pragma once
// SQLite: the embedded default. It takes [bracketed] names as written.
#include <memory>
#include <string>

#include "db/connection.h"

namespace lupin::db {

// path is a file name or ":memory:".
std::unique_ptr<Connection> OpenSqlite(const std::string& path);

}  // namespace lupin::db
