// The database floor the reports stand on: point SELECTs by ID through a Recordset, and a
// transaction of literal INSERTs, on SQLite (temporary file) and PostgreSQL (LUPIN_TEST_PG_URL).
#include <benchmark/benchmark.h>

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "db/connection.h"
#include "db/identifier_quotes.h"

namespace {

using namespace lupin;

constexpr int kRows = 10000;

struct Database {
  std::unique_ptr<db::Connection> connection;
  std::string sqlite_path;
  std::string schema;

  ~Database() {
    if (connection && !schema.empty()) {
      try {
        connection->Execute("DROP SCHEMA " + schema + " CASCADE");
      } catch (const db::DbError&) {
      }
    }
    connection.reset();
    std::error_code ignored;
    for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(sqlite_path + suffix, ignored);
  }
};

// Null when the engine is not available; the benchmark then reports why.
std::unique_ptr<Database> OpenFresh(db::Engine engine, std::string& why) {
  static int counter = 0;
  auto database = std::make_unique<Database>();
  const std::string stem = std::to_string(::getpid()) + "_" + std::to_string(++counter);
  if (engine == db::Engine::Sqlite) {
    database->sqlite_path = (std::filesystem::temp_directory_path() / ("bench_db_" + stem + ".sqlite")).string();
    database->connection = db::OpenConnection("sqlite:" + database->sqlite_path);
    return database;
  }
  const char* base = std::getenv("LUPIN_TEST_PG_URL");
  if (base == nullptr || *base == '\0') {
    why = "LUPIN_TEST_PG_URL is not set (scripts/pg-test-cluster start)";
    return nullptr;
  }
  database->schema = "bench_" + stem;
  database->connection = db::OpenConnection(base);
  database->connection->Execute("CREATE SCHEMA " + database->schema);
  database->connection->Execute("SET search_path = " + database->schema);
  return database;
}

void CreateOrders(db::Connection& db) {
  db.Execute(
      "CREATE TABLE [CHUMON] ([ID] INTEGER PRIMARY KEY, [受注日] VARCHAR(10), [出荷日] VARCHAR(10), "
      "[氏名] VARCHAR(40), [住所] VARCHAR(100), [電話番号] VARCHAR(20), [宅配業者] VARCHAR(20), "
      "[出荷伝票番号] VARCHAR(20), [商品代金] INTEGER, [送料] INTEGER, [消費税] INTEGER, [請求額] INTEGER)");
}

std::string InsertText(int id) {
  const std::string n = std::to_string(id);
  return "INSERT INTO [CHUMON] ([ID], [受注日], [出荷日], [氏名], [住所], [電話番号], [宅配業者], "
         "[出荷伝票番号], [商品代金], [送料], [消費税], [請求額]) VALUES (" +
         n + ", '2024/04/01', '2024/04/03', '山田 太郎" + n + "', '東京都千代田区丸の内1-" + n +
         "', '03-0000-" + n + "', 'ヤマト', NULL, " + std::to_string(1000 + id % 5000) + ", 800, 100, 1900)";
}

void PointSelect(benchmark::State& state, db::Engine engine) {
  std::string why;
  auto database = OpenFresh(engine, why);
  if (!database) {
    state.SkipWithError(why.c_str());
    return;
  }
  db::Connection& db = *database->connection;
  CreateOrders(db);
  db.BeginTrans();
  for (int id = 1; id <= kRows; ++id) db.Execute(InsertText(id));
  db.CommitTrans();

  int id = 0;
  std::int64_t total = 0;
  for (auto _ : state) {
    id = id % kRows + 1;
    db::Recordset rs = db.Open("SELECT * FROM [CHUMON] WHERE [ID] = " + std::to_string(id));
    total += rs["請求額"].Long();
  }
  benchmark::DoNotOptimize(total);
  state.SetItemsProcessed(state.iterations());
}

void InsertTransaction(benchmark::State& state, db::Engine engine) {
  std::string why;
  auto database = OpenFresh(engine, why);
  if (!database) {
    state.SkipWithError(why.c_str());
    return;
  }
  db::Connection& db = *database->connection;
  for (auto _ : state) {
    state.PauseTiming();
    db.Execute("DROP TABLE IF EXISTS [CHUMON]");
    CreateOrders(db);
    state.ResumeTiming();
    db.BeginTrans();
    for (int id = 1; id <= kRows; ++id) db.Execute(InsertText(id));
    db.CommitTrans();
  }
  state.SetItemsProcessed(state.iterations() * kRows);
}

// The rewrite every statement passes through, on a print-list statement with two dialect-1 dates:
// 0 as SQLite runs it (dates only), 1 as PostgreSQL does (brackets too).
void EngineText(benchmark::State& state) {
  const std::string sql =
      "SELECT [CHUMON].* FROM [CHUMON] WHERE ([出荷日] >= #2024/04/01#) AND ([出荷日] <= #2024/04/30#) AND [ID] "
      "NOT IN (SELECT [ID] FROM [PRINTED] WHERE [REPORT_NO] = 18) ORDER BY [CHUMON].[ID] ";
  const bool brackets = state.range(0) != 0;
  for (auto _ : state) benchmark::DoNotOptimize(db::EngineSqlText(sql, brackets));
}

BENCHMARK(EngineText)->Arg(0)->Arg(1)->Repetitions(5);
BENCHMARK_CAPTURE(PointSelect, Sqlite, db::Engine::Sqlite)->Iterations(kRows)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PointSelect, Postgres, db::Engine::Postgres)->Iterations(kRows)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(InsertTransaction, Sqlite, db::Engine::Sqlite)->Iterations(3)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(InsertTransaction, Postgres, db::Engine::Postgres)->Iterations(3)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
