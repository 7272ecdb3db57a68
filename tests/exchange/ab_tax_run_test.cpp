// The AB sales file over many checked orders: their tax comes from CHUMON_T, and is calculated
// where the row is missing, a batch of orders at a time rather than statements per order.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "exchange/ab_export.h"
#include "exchange_fixture.h"
#include "support/counting_connection.h"
#include "support/test_databases.h"

namespace lupin::exchange {
namespace {

using namespace lupin::exchange::testing;

class ABTaxRunTest : public lupin::testing::EngineTest {};

TEST_P(ABTaxRunTest, AThousandOrdersCostAFewStatements) {
  ExportEnv env(Db());
  Db().Execute("INSERT INTO [TAX]([FROM_DATE],[REDUCEDKBN],[RATE],[OLDRATE]) VALUES('2019/10/01',0,10,8)");
  Db().Execute("INSERT INTO [TAX]([FROM_DATE],[REDUCEDKBN],[RATE],[OLDRATE]) VALUES('2019/10/01',1,8,0)");
  constexpr int kOrders = 1000;
  std::vector<ListRow> rows;
  Db().BeginTrans();
  for (int id = 1; id <= kOrders; ++id) {
    const std::string price = std::to_string(1000 + id);
    AddOrder(Db(), id, {{"受注日", "2024/04/01"}, {"請求先氏名", "客"}, {"商品ID1", "A"}, {"商品名1", "茶"},
                        {"単価1", price}, {"注文数量1", "1"}});
    Db().Execute("INSERT INTO [CHUMON_D]([ID],[ITEM_NO],[ITEM_PRICE],[REDUCEDKBN],[ITEM_TAX]) VALUES(" +
                 std::to_string(id) + ",1," + price + "," + std::to_string(id % 2) + ",0)");
    rows.push_back({.id = id});
  }
  Db().CommitTrans();
  const common::Grid grid = MakeGrid(rows);
  lupin::testing::CountingConnection counting(Db());
  env.context.connection = &counting;
  env.context.dialect = 0;

  // First without CHUMON_T rows (each order calculated and written), then with them.
  const auto run = [&] {
    return lupin::testing::CostOf(counting, Db(), [&] {
      ABUriageExport writer;
      EXPECT_EQ(writer.Export(env.context, env.ui, grid, env.Out()), kExportDone) << writer.ErrorText();
      return ReadBytes(env.Out());
    });
  };
  const auto cold = run();
  EXPECT_EQ(Db().Open("SELECT COUNT(*) AS N FROM [CHUMON_T]")["N"].Long(), kOrders);
  const auto warm = run();
  EXPECT_EQ(cold.output, warm.output) << "a calculated tax is the one CHUMON_T then holds";
  EXPECT_NE(text::FromCp932(cold.output).find("\"消費税\",80,1,"), std::string::npos) << "order 1: 8 % of 1001";

  // Per batch of 500: the orders, their CHUMON_T rows, the orders to calculate.
  EXPECT_LE(cold.queries, 12);
  EXPECT_LE(warm.queries, 6);
  if (GetParam() == db::Engine::Postgres) {
    // The 2,000 rewrites travel 200 statements a send.
    EXPECT_LE(cold.round_trips, 25u);
    EXPECT_LE(warm.round_trips, 6u);
  }
}

LUPIN_INSTANTIATE_ENGINES(ABTaxRunTest);

}  // namespace
}  // namespace lupin::exchange
