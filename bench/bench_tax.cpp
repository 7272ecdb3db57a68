// Order tax by rate over the demo data: clsCalcChumonT::Calc for 10,000 orders, on SQLite and
// on PostgreSQL (LUPIN_TEST_PG_URL; skipped when unset). One iteration is one pass over all orders.
// The counter round_trips_per_order is what a pass spends on the database per order; the third
// argument 1 runs as `tax --all` does (TAX and settings read once, each batch's orders in one read).
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "common/settings.h"
#include "db/connection.h"
#include "demo/demo_data.h"
#include "entry/schema.h"
#include "money/calc_chumon_t.h"

namespace {

// LUPIN_BENCH_TAX_ORDERS runs fewer (a Debug build counting round trips).
int Orders() {
  const char* text = std::getenv("LUPIN_BENCH_TAX_ORDERS");
  return text != nullptr && std::atoi(text) > 0 ? std::atoi(text) : 10000;
}

struct Database {
  std::unique_ptr<lupin::db::Connection> connection;
  std::vector<std::int32_t> ids;
  std::string schema;  // PostgreSQL: the schema to drop at the end
  std::filesystem::path file;
};

void Fill(Database& d) {
  lupin::entry::CreateSchema(*d.connection);
  lupin::demo::FillCatalogue(*d.connection);
  lupin::demo::FillDemoData(*d.connection, {.orders = Orders(), .seed = 7, .batch = 1000, .progress = {}});
  lupin::db::Recordset rs = d.connection->Open("SELECT [ID] FROM [CHUMON] ORDER BY [ID]");
  for (; !rs.Eof(); rs.MoveNext()) d.ids.push_back(static_cast<std::int32_t>(rs["ID"].Long()));
}

// Built on first use, so a filtered run prepares only the engine it measures.
std::unique_ptr<Database> sqlite_db;
std::unique_ptr<Database> postgres_db;

Database& Sqlite() {
  if (!sqlite_db) {
    sqlite_db = std::make_unique<Database>();
    sqlite_db->file =
        std::filesystem::temp_directory_path() / ("lupin_bench_tax_" + std::to_string(::getpid()) + ".db");
    std::filesystem::remove(sqlite_db->file);
    sqlite_db->connection = lupin::db::OpenConnection("sqlite:" + sqlite_db->file.string());
    Fill(*sqlite_db);
  }
  return *sqlite_db;
}

Database* Postgres() {
  const char* url = std::getenv("LUPIN_TEST_PG_URL");
  if (url == nullptr || *url == '\0') return nullptr;
  if (!postgres_db) {
    postgres_db = std::make_unique<Database>();
    postgres_db->connection = lupin::db::OpenConnection(url);
    postgres_db->schema = "bench_tax_" + std::to_string(::getpid());
    postgres_db->connection->Execute("CREATE SCHEMA " + postgres_db->schema);
    postgres_db->connection->Execute("SET search_path TO " + postgres_db->schema);
    Fill(*postgres_db);
  }
  return postgres_db.get();
}

void CalcAll(benchmark::State& state, Database& d) {
  // Settings stores that do not exist: TaxCheckDate takes its default.
  const auto folder = std::filesystem::temp_directory_path() / "lupin_bench_tax_settings";
  lupin::money::clsCalcChumonT calc(lupin::settings::Settings(lupin::settings::StorePaths::InFolder(folder)));
  // Second argument: the dialect. Dialect 1 writes its dates as #YYYY/MM/DD#, which the database
  // layer turns into the engine's literal; against dialect 0 this measures that translation.
  calc.SetDb(*d.connection, static_cast<int>(state.range(1)));
  const bool prefetch = state.range(2) != 0;
  if (prefetch) calc.PrepareRun();
  // First argument: orders per transaction, as `tax --all --batch` does; 0 runs Calc on its own.
  const auto batch = static_cast<std::size_t>(state.range(0));
  std::int64_t sum = 0;
  const auto trips = d.connection->RoundTrips();
  for (auto _ : state) {
    for (std::size_t first = 0; first < d.ids.size(); first += std::max<std::size_t>(batch, 1)) {
      std::optional<lupin::db::Transaction> transaction;
      if (batch > 0) transaction.emplace(*d.connection);
      const std::size_t last = std::min(d.ids.size(), first + std::max<std::size_t>(batch, 1)) - 1;
      // Without a batch, orders are read 500 at a time, as `tax --all --batch 0` does.
      if (prefetch && (batch > 0 || first % 500 == 0)) {
        calc.Prefetch(d.ids[first], d.ids[batch > 0 ? last : std::min(d.ids.size(), first + 500) - 1]);
      }
      for (std::size_t i = first; i < std::min(d.ids.size(), first + std::max<std::size_t>(batch, 1)); ++i) {
        calc.SetId(d.ids[i]);
        calc.Calc();
        sum += calc.Zeikin1() + calc.Zeikin2() + calc.Zeikin3();
      }
      if (transaction) transaction->Commit();
    }
  }
  benchmark::DoNotOptimize(sum);
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(d.ids.size()));
  state.counters["orders"] = static_cast<double>(d.ids.size());
  state.counters["round_trips_per_order"] = static_cast<double>(d.connection->RoundTrips() - trips) /
                                            static_cast<double>(state.iterations() * d.ids.size());
}

void BM_CalcSqlite(benchmark::State& state) { CalcAll(state, Sqlite()); }

void BM_CalcPostgres(benchmark::State& state) {
  Database* d = Postgres();
  if (d == nullptr) {
    state.SkipWithError("LUPIN_TEST_PG_URL が設定されていません");
    return;
  }
  CalcAll(state, *d);
}

BENCHMARK(BM_CalcSqlite)->ArgsProduct({{0, 500}, {0, 1}, {0, 1}})->Iterations(1)->Repetitions(5)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_CalcPostgres)->ArgsProduct({{0, 500}, {0, 1}, {0, 1}})->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  if (postgres_db) postgres_db->connection->Execute("DROP SCHEMA " + postgres_db->schema + " CASCADE");
  if (sqlite_db) {
    sqlite_db->connection.reset();
    std::filesystem::remove(sqlite_db->file);
  }
  return 0;
}
