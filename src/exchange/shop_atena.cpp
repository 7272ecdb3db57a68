#include "exchange/shop_atena.h"

#include "common/sql.h"

namespace lupin::exchange {

bool ShopAtena::Of(db::Connection& db, const std::string& shop_id) {
  const auto known = flags_.find(shop_id);
  if (known != flags_.end()) return known->second;
  auto rs = db.Open("SELECT [ATENA] FROM [SHOP] WHERE [SHOP_ID] = '" + sql::SqlQuote(shop_id) + "'");
  const bool atena = !rs.Eof() && rs["Atena"].Number() != 0;
  flags_.emplace(shop_id, atena);
  return atena;
}

}  // namespace lupin::exchange
