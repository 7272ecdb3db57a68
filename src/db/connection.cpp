#include "db/connection.h"

#include "db/postgres/postgres_connection.h"
#include "db/sqlite/sqlite_connection.h"

namespace lupin::db {

std::unique_ptr<Connection> OpenConnection(std::string_view url) {
  if (url.starts_with("sqlite:")) return OpenSqlite(std::string(url.substr(7)));
  if (url.starts_with("postgresql://") || url.starts_with("postgres://")) return OpenPostgres(std::string(url));
  throw DbError("接続文字列が正しくありません: " + std::string(url));
}

}  // namespace lupin::db
