#pragma once
// PostgreSQL for several workstations on one server, through libpq.
#include <memory>
#include <string>

#include "db/connection.h"

namespace lupin::db {

// conninfo is a libpq URL ("postgresql://user@host:port/db?options=...") or key=value string.
std::unique_ptr<Connection> OpenPostgres(const std::string& conninfo);

}  // namespace lupin::db
