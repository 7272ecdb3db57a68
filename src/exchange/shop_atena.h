#pragma once
// The shop's ATENA flag, which keeps the shop as the sender of a gift. Each shop is asked once per
// export: "SELECT [ATENA] FROM [SHOP] WHERE [SHOP_ID] = '" id "'"; no such shop reads as false.
#include <map>
#include <string>

#include "db/connection.h"

namespace lupin::exchange {

class ShopAtena {
 public:
  bool Of(db::Connection& db, const std::string& shop_id);
  void Clear() { flags_.clear(); }

 private:
  std::map<std::string, bool, std::less<>> flags_;
};

}  // namespace lupin::exchange
