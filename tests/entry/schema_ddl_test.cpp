// DDL text per engine, and the schema on the real engines with the component's own statements.
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <utility>
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
// The statements are data (golden/schema_statements.sql), run in order.
TEST_P(SchemaOnEngine, RunsTheComponentsStatements) {
  CreateSchema(Db());
  std::ifstream file(std::string(LUPIN_GOLDEN_DIR) + "/schema_statements.sql");
  std::vector<std::pair<std::string, std::string>> blocks;  // tag, statement
  for (std::string line; std::getline(file, line);) {
    if (line.rfind("-- ", 0) == 0) {
      blocks.emplace_back(line.substr(3), "");
    } else if (!line.empty() && !blocks.empty()) {
      blocks.back().second += (blocks.back().second.empty() ? "" : " ") + line;
    }
  }
  ASSERT_GT(blocks.size(), 15u);
  for (const auto& [tag, sql] : blocks) {
    if (sql.empty()) continue;  // the file's heading
    SCOPED_TRACE(tag + ": " + sql.substr(0, 80));
    if (tag.rfind("rows ", 0) == 0) {
      db::Recordset rs;
      ASSERT_NO_THROW(rs = Db().Open(sql));
      EXPECT_EQ(rs.RecordCount(), std::stoul(tag.substr(5)));
    } else {
      EXPECT_NO_THROW(Db().Execute(sql));
    }
  }

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
