// Demo data generation: 100,000 orders with their lines and customers into an empty database, on
// SQLite and on PostgreSQL (LUPIN_TEST_PG_URL; skipped when unset). One iteration is one fill.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "db/connection.h"
#include "demo/demo_data.h"
#include "entry/schema.h"

namespace {

constexpr int kOrders = 100000;

void FillOnce(benchmark::State& state, lupin::db::Connection& connection) {
  lupin::entry::CreateSchema(connection);
  state.ResumeTiming();
  const auto summary = lupin::demo::FillDemoData(connection, {.orders = kOrders, .seed = 1, .batch = 1000, .progress = {}});
  state.PauseTiming();
  state.counters["lines"] = summary.order_lines;
}

void BM_DemoSqlite(benchmark::State& state) {
  int round = 0;
  for (auto _ : state) {
    state.PauseTiming();
    const auto file = std::filesystem::temp_directory_path() /
                      ("lupin_bench_demo_" + std::to_string(::getpid()) + "_" + std::to_string(round++) + ".db");
    std::filesystem::remove(file);
    {
      auto connection = lupin::db::OpenConnection("sqlite:" + file.string());
      FillOnce(state, *connection);
    }
    std::filesystem::remove(file);
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * kOrders);
}

void BM_DemoPostgres(benchmark::State& state) {
  const char* url = std::getenv("LUPIN_TEST_PG_URL");
  if (url == nullptr || *url == '\0') {
    state.SkipWithError("LUPIN_TEST_PG_URL が設定されていません");
    return;
  }
  int round = 0;
  for (auto _ : state) {
    state.PauseTiming();
    auto connection = lupin::db::OpenConnection(url);
    const std::string schema = "bench_demo_" + std::to_string(::getpid()) + "_" + std::to_string(round++);
    connection->Execute("CREATE SCHEMA " + schema);
    connection->Execute("SET search_path TO " + schema);
    FillOnce(state, *connection);
    connection->Execute("DROP SCHEMA " + schema + " CASCADE");
    state.ResumeTiming();
  }
  state.SetItemsProcessed(state.iterations() * kOrders);
}

BENCHMARK(BM_DemoSqlite)->Iterations(1)->Repetitions(5)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_DemoPostgres)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
