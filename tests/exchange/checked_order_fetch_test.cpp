// Reading the orders of the print list ahead in batches gives each row the order that its own
// statement would have given.
#include <gtest/gtest.h>

#include "exchange_fixture.h"
#include "entry/schema.h"
#include "exchange/checked_order_fetch.h"
#include "support/test_databases.h"

namespace lupin::exchange {
namespace {

using namespace lupin::exchange::testing;

class CheckedOrderFetchTest : public lupin::testing::EngineTest {};

TEST_P(CheckedOrderFetchTest, EveryRowGetsItsOwnOrderAcrossBatches) {
  entry::CreateSchema(Db());
  const int orders = CheckedOrderFetch::kBatch * 2 + 7;
  Db().BeginTrans();
  // Every third id has no order.
  for (int id = 1; id <= orders; ++id)
    if (id % 3 != 0) AddOrder(Db(), id, {{"氏名", "客" + std::to_string(id)}});
  Db().CommitTrans();

  // Reversed, some unchecked, the same order twice, one gone.
  std::vector<ListRow> rows;
  for (int id = orders; id >= 1; --id) rows.push_back({.checked = id % 7 != 0, .id = id});
  rows.insert(rows.end(), {{.id = 5}, {.id = 4000}});
  common::Grid grid = MakeGrid(rows);
  const int leading_zero = grid.AddRow();
  grid.SetChecked(leading_zero, true);
  grid.SetText(leading_zero, 2, "0010");

  CheckedOrderFetch fetch(Db(), grid);
  int found = 0;
  for (int row = 1; row <= grid.MaxRows(); ++row) {
    if (!grid.Checked(row)) continue;
    const int id = std::stoi(grid.Text(row, 2));
    const db::Recordset* order = fetch.Order(row);
    const bool exists = id <= orders && id % 3 != 0;
    ASSERT_EQ(order != nullptr, exists) << "row " << row << " id " << id;
    if (!order) continue;
    ++found;
    EXPECT_EQ((*order)["ID"].Long(), id);
    EXPECT_EQ((*order)["氏名"].Text(), "客" + std::to_string(id));
  }
  EXPECT_GT(found, CheckedOrderFetch::kBatch);
}

TEST_P(CheckedOrderFetchTest, AnIdThatIsNoNumberGoesToTheStatementAsItIs) {
  entry::CreateSchema(Db());
  AddOrder(Db(), 12, {{"氏名", "客"}});
  common::Grid grid = MakeGrid({{.id = 12}, {.id = 0}});
  grid.SetText(2, 2, "12 AND 1 = 1");
  CheckedOrderFetch fetch(Db(), grid);
  EXPECT_NE(fetch.Order(1), nullptr);
  const db::Recordset* order = fetch.Order(2);
  ASSERT_NE(order, nullptr);
  EXPECT_EQ((*order)["ID"].Long(), 12);
  grid.SetText(2, 2, "");
  EXPECT_THROW(fetch.Order(2), db::DbError);
}

LUPIN_INSTANTIATE_ENGINES(CheckedOrderFetchTest);

}  // namespace
}  // namespace lupin::exchange
