#include "entry/context.h"

namespace lupin::entry {

db::Connection& Context::Db() const {
  if (connection == nullptr) throw db::DbError("データベースに接続されていません。");
  return *connection;
}

}  // namespace lupin::entry
