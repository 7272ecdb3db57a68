#include "exchange/checked_order_fetch.h"

#include <optional>

namespace lupin::exchange {
namespace {

// A text the statement reads as that whole number; anything else goes to the statement as it is.
std::optional<std::int64_t> WholeNumber(const std::string& text) {
  if (text.empty() || text.size() > 15) return std::nullopt;
  std::int64_t value = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') return std::nullopt;
    value = value * 10 + (c - '0');
  }
  return value;
}

}  // namespace

std::vector<std::int64_t> CheckedWholeNumberIds(const common::Grid& grid) {
  std::vector<std::int64_t> ids;
  for (int row = 1; row <= grid.MaxRows(); ++row) {
    if (grid.Text(row, 1) != "1") continue;
    if (const auto id = WholeNumber(grid.Text(row, 2))) ids.push_back(*id);
  }
  return ids;
}

void CheckedOrderFetch::ReadAhead(int from_row) {
  std::string ids;
  int count = 0;
  int row = from_row;
  for (; row <= grid_.MaxRows() && count < kBatch; ++row) {
    if (grid_.Text(row, 1) != "1") continue;
    const auto id = WholeNumber(grid_.Text(row, 2));
    if (!id) continue;
    if (count++ > 0) ids += ',';
    ids += std::to_string(*id);
  }
  read_to_ = row - 1;
  positions_.clear();
  batch_ = count == 0 ? db::Recordset() : db_.Open("SELECT * FROM CHUMON WHERE ID IN (" + ids + ")");
  std::size_t position = 0;
  for (batch_.MoveFirst(); !batch_.Eof(); batch_.MoveNext()) positions_.emplace(batch_["ID"].Long(), position++);
}

const db::Recordset* CheckedOrderFetch::Order(int row) {
  const std::string& id_text = grid_.Text(row, 2);
  const auto id = WholeNumber(id_text);
  if (!id) {
    single_ = db_.Open("SELECT * FROM CHUMON WHERE ID = " + id_text);
    return single_.Eof() ? nullptr : &single_;
  }
  if (row > read_to_) ReadAhead(row);
  const auto found = positions_.find(*id);
  if (found == positions_.end()) return nullptr;
  batch_.MoveFirst();
  for (std::size_t k = 0; k < found->second; ++k) batch_.MoveNext();
  return &batch_;
}

}  // namespace lupin::exchange
