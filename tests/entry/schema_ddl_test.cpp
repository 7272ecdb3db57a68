// DDL text per engine, and the schema on the real engines with the component's own statements.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "entry/schema.h"
#include "support/test_databases.h"

namespace lupin::entry {
namespace {

using db::Engine;

TEST(SchemaDdl, NamesAndTypesPerEngine) {
  struct Case {
    Engine engine;
    const char* table;
    const char* expected;  // a fragment of the CREATE TABLE text
  };
  const Case cases[] = {
      {Engine::Sqlite, "PRINTED", "[UPDATE] INTEGER"},
      {Engine::Postgres, "PRINTED", "\"update\" INTEGER"},
      {Engine::Postgres, "PRINTED", "\"cnt\" INTEGER DEFAULT 1"},
      {Engine::Sqlite, "CHUMON", "[請求額] NUMERIC"},
      {Engine::Postgres, "CHUMON", "\"請求額\" NUMERIC(19,4)"},
      {Engine::Postgres, "CHUMON", "\"電子決済受付no\" TEXT"},
      {Engine::Postgres, "CHUMON", "\"返信（出荷）\" TEXT, \"返信(出荷)\" TEXT"},
      {Engine::Postgres, "CHUMON", "PRIMARY KEY (\"id\")"},
      {Engine::Sqlite, "CHUMON_D", "PRIMARY KEY ([ID], [ITEM_NO])"},
      {Engine::Postgres, "REPORT", "\"where\" INTEGER DEFAULT 0"},
      {Engine::Postgres, "CUSTOMER", "\"検索用tel番号\" TEXT"},
      {Engine::Postgres, "WK_URIAGE", "\"repeat_rate\" DOUBLE PRECISION"},
  };
  for (const auto& c : cases) {
    const TableDef* table = FindTable(c.table);
    ASSERT_NE(table, nullptr) << c.table;
    const std::string sql = CreateTableSql(*table, c.engine);
    EXPECT_NE(sql.find(c.expected), std::string::npos) << c.expected << "\nin: " << sql.substr(0, 300);
    EXPECT_EQ(sql.rfind("CREATE TABLE IF NOT EXISTS ", 0), 0u);
  }
}

TEST(SchemaDdl, IndexesKeyTheWorkTablesByWorkstation) {
  for (const auto& table : SchemaTables()) {
    if (table.name.rfind("WK_", 0) != 0 || table.name == "WK_ITEMLIST") continue;
    const auto statements = CreateIndexSql(table, Engine::Sqlite);
    ASSERT_FALSE(statements.empty()) << table.name;
    EXPECT_NE(statements.front().find("([CLIENT_NAME]"), std::string::npos) << statements.front();
  }
  const auto printed = CreateIndexSql(*FindTable("PRINTED"), Engine::Postgres);
  ASSERT_EQ(printed.size(), 1u);
  EXPECT_EQ(printed[0], "CREATE UNIQUE INDEX IF NOT EXISTS \"ix_printed_1\" ON \"printed\" (\"report_no\", \"id\")");
}

class SchemaOnEngine : public lupin::testing::EngineTest {};

TEST_P(SchemaOnEngine, CreatesEveryTableWithEveryColumnAndCanRunTwice) {
  CreateSchema(Db());
  EXPECT_NO_THROW(CreateSchema(Db()));
  for (const auto& table : SchemaTables()) {
    const auto rs = Db().Open("SELECT * FROM [" + table.name + "]");
    EXPECT_EQ(rs.FieldCount(), table.columns.size()) << table.name;
    for (const auto& column : table.columns) EXPECT_TRUE(rs.HasField(column.name)) << table.name << "." << column.name;
  }
}

// Statements as the component writes them must run: bare names must be unambiguous, unbracketed
// names must fold to the same columns, and column defaults must serve the inserts that omit them.
TEST_P(SchemaOnEngine, RunsTheComponentsStatements) {
  CreateSchema(Db());
  const char* setup[] = {
      "INSERT INTO [SHOP]([SHOP_ID],[ATENA],[TAX_RATE],[SHIPPING_TAXKBN],[HANDLING_TAXKBN],[TAX_CALKBN]) "
      "VALUES('S1',1,10,0,0,0)",
      "INSERT INTO [CHUMON]([ID],[ショップID],[氏名],[顧客番号],[顧客NO],[出荷日],[受注日],[請求額],[注文数量1]) "
      "VALUES(1,'S1','山田 太郎',7,7,'2024/05/01','2024/04/28',1100,2)",
      "INSERT INTO [CHUMON_D]([ID],[ITEM_NO],[ITEM_ID],[ITEM_PRICE],[REDUCEDKBN],[TAXRATE]) VALUES(1,1,'A-1',1000,1,8)",
      "INSERT INTO [CUSTOMER]([顧客NO],[顧客名],[郵便番号]) VALUES(7,'山田 太郎','100-0001')",
      "INSERT INTO WK_PRINT([ID], [SIMEI], [ORD_DATE], [DATE], [BIKO1], [BIKO2], [BIKO3], [ITEM_ID1], [SEK_GAKU], "
      "[EMAIL], [TEL],[YUBIN],[COMPANY],[CLIENT_NAME],[TAX],[INSHI])VALUES(1,'山田 太郎','2024/04/28','2024/05/01',"
      "'','','','A-1',7,'','','','','PC1',100,0)",
  };
  for (const char* sql : setup) Db().Execute(sql);

  struct Query {
    const char* what;
    const char* sql;
    std::size_t rows;
  };
  const Query queries[] = {
      {"slip", "SELECT [CHUMON].*,[WK_PRINT].[COMPANY],[WK_PRINT].[SIMEI], [WK_PRINT].[ORD_DATE], [WK_PRINT].[DATE], "
               "[WK_PRINT].[BIKO1], [WK_PRINT].[BIKO2], [WK_PRINT].[ITEM_ID1], [WK_PRINT].[SEK_GAKU] FROM [CHUMON], "
               "[WK_PRINT] WHERE [CHUMON].[ID] = [WK_PRINT].[ID] AND [WK_PRINT].[CLIENT_NAME] = 'PC1'", 1},
      {"delivery note", "SELECT [CHUMON].[ID], [氏名], [出荷日], [ショップID], [SHIPPING_TAXKBN],[HANDLING_TAXKBN],"
                        "[TAX_RATE], 1 as ord , [受注日],[出荷予定日] , [INVOICE_NAME],[INVOICE_NO] From [CHUMON], "
                        "[SHOP] WHERE [CHUMON].[ショップID] = [SHOP].[SHOP_ID] ", 1},
      {"list", "SELECT [CHUMON].[氏名], [商品代金], [CHUMON_D].[ITEM_NO], [CHUMON_D].[ITEM_TAX], [WK_PRINT].* "
               "FROM (CHUMON LEFT JOIN CHUMON_D ON CHUMON.ID = CHUMON_D.ID) INNER JOIN WK_PRINT ON CHUMON.ID = "
               "WK_PRINT.ID WHERE [WK_PRINT].[CLIENT_NAME] = 'PC1'", 1},
      {"picking", "SELECT [WK_PRINT].*, [CHUMON].[ID] as [ID],[顧客NO],[受注方法],[顧客番号],[会社名],[所属],[氏名],"
                  "[氏名カナ],[郵便番号],[住所],[電話番号],[メールアドレス],[受注日],[支払方法],[電子決済受付No],[意見],"
                  "[返信（出荷）],[メモ],[商品ID1],[単価1],[のし],[ショップID] FROM [CHUMON], [WK_PRINT] "
                  "WHERE [CHUMON].[ID] = [WK_PRINT].[ID]", 1},
      {"customer labels", "SELECT [CUSTOMER].*, [WK_PRINT].* FROM [CUSTOMER], [WK_PRINT] WHERE "
                          "[CUSTOMER].[顧客NO] = [WK_PRINT].[SEK_GAKU] AND [WK_PRINT].[CLIENT_NAME] = 'PC1' "
                          "ORDER BY [ID]", 1},
      {"customers by item", "SELECT * FROM [CUSTOMER] WHERE [顧客NO]  IN (SELECT DISTINCT CUSTOMER.顧客NO FROM "
                            "(CHUMON_D INNER JOIN CHUMON ON CHUMON_D.ID = CHUMON.ID) INNER JOIN CUSTOMER ON "
                            "CHUMON.顧客番号 = CUSTOMER.顧客NO WHERE [CHUMON_D].[ITEM_ID] >= 'A') "
                            "ORDER BY [郵便番号],[顧客NO]", 1},
      {"item list", "SELECT [ITEM_ID],[ITEM_MEI],[ITEM_TANKA],[ITEM_QTY],[ITEM_PRICE] FROM [CHUMON_D], [CHUMON] "
                    "WHERE [CHUMON_D].[Id] = [CHUMON].[Id] AND [出荷日] >= '2024/01/01'", 1},
      {"sales", "SELECT COUNT(*) as CNT,SUM([注文数量1]) as QTY1,SUM([注文数量20]) as QTY20,SUM([請求額]) as KINGAKU "
                "FROM [CHUMON] WHERE [出荷日] >= '2024/01/01'", 1},
      {"repeat", "SELECT [顧客NO],[出荷日],[ID] FROM [CHUMON] WHERE [出荷日] >= '2024/01/01' AND [顧客NO] <> 0", 1},
      {"reduced lines", "SELECT [ITEM_NO],[REDUCEDKBN],[TAXRATE] FROM [CHUMON_D] WHERE [ID] = 1", 1},
  };
  for (const auto& q : queries) {
    SCOPED_TRACE(q.what);
    db::Recordset rs;
    ASSERT_NO_THROW(rs = Db().Open(q.sql));
    EXPECT_EQ(rs.RecordCount(), q.rows);
  }

  const char* writes[] = {
      "INSERT INTO [PRINTED]([REPORT_NO],[UPDATE],[ID])VALUES(0,20240501,1)",
      "UPDATE [PRINTED] SET [CNT] = [CNT] + 1,[UPDATE] = 20240502 WHERE [REPORT_NO] = 0 AND [ID] = 1",
      "INSERT INTO [SEIKYU_S] VALUES(1,1)",
      "INSERT INTO WK_ITEMLIST([ITEM_ID],[ITEM_MEI],[ITEM_TANKA],[ITEM_QTY],[ITEM_TOTAL])VALUES('A-1','茶',0,0,1000)",
      "INSERT INTO [WK_URIAGE](CLIENT_NAME,TARGET_DATE,ORDERQTY,TANKA,QTY,KINGAKU,REPEAT_RATE)VALUES('PC1',"
      "'2024/05/01',0,0,0,0,0)",
      "DELETE FROM WK_SEIKYU WHERE [CLIENT_NAME] = 'PC1'",
      "UPDATE [CHUMON] SET [出荷伝票番号] = '123456789012' WHERE [ID] = 1",
  };
  for (const char* sql : writes) EXPECT_NO_THROW(Db().Execute(sql)) << sql;

  // A first print counts one, the update made it two.
  auto printed = Db().Open("SELECT [CNT],[UPDATE] FROM [PRINTED] WHERE [REPORT_NO] = 0 AND [ID] = 1");
  ASSERT_FALSE(printed.Eof());
  EXPECT_EQ(printed["CNT"].Long(), 2);
  EXPECT_EQ(printed["UPDATE"].Long(), 20240502);
  auto billing = Db().Open("SELECT [注文番号],[請求NO] FROM [SEIKYU_S]");
  ASSERT_FALSE(billing.Eof());
  EXPECT_EQ(billing["請求NO"].Long(), 1);
}

LUPIN_INSTANTIATE_ENGINES(SchemaOnEngine);

}  // namespace
}  // namespace lupin::entry
