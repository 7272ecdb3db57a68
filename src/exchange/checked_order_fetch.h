#pragma once
// The orders of the checked print-list rows. Each is the row of "SELECT * FROM CHUMON WHERE ID = "
// id; whole-number ids are read ahead in batches, so a long list is not one statement per order.
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "common/grid.h"
#include "db/connection.h"

namespace lupin::exchange {

// The whole-number ids of the checked rows, in grid order: the orders read ahead in batches.
std::vector<std::int64_t> CheckedWholeNumberIds(const common::Grid& grid);

class CheckedOrderFetch {
 public:
  CheckedOrderFetch(db::Connection& db, const common::Grid& grid) : db_(db), grid_(grid) {}

  // The order of a checked grid row, positioned on it; null when it no longer exists. Valid until
  // the next call. Throws db::DbError from the data layer.
  const db::Recordset* Order(int row);

  static constexpr int kBatch = 500;

 private:
  void ReadAhead(int from_row);

  db::Connection& db_;
  const common::Grid& grid_;
  db::Recordset batch_;
  std::unordered_map<std::int64_t, std::size_t> positions_;  // id → row of batch_
  int read_to_ = 0;                                           // last grid row the batch covers
  db::Recordset single_;
};

}  // namespace lupin::exchange
