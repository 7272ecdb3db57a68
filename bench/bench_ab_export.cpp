// The AB sales file (report 98) over demo orders, on SQLite and on PostgreSQL (LUPIN_TEST_PG_URL):
// "cold" empties CHUMON_T before each export, so every order's tax is calculated and written;
// "warm" finds every row. Counters: the database round trips and the time per order.
// LUPIN_BENCH_ORDERS sets the number of orders (1,000 unless set).
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>

#include "bench_demo_home.h"
#include "common/grid.h"
#include "entry/catalogue.h"
#include "entry/ui.h"
#include "exchange/file_writer.h"

namespace {

using lupin::db::Engine;

int Orders() {
  const char* text = std::getenv("LUPIN_BENCH_ORDERS");
  return text != nullptr && std::atoi(text) > 0 ? std::atoi(text) : 1000;
}

constexpr int kABUriage = 98;

struct Fixture {
  lupin::bench::DemoHome home;
  lupin::common::Grid grid{0, 16};

  explicit Fixture(Engine engine) : home("ab", {.orders = Orders(), .seed = 11, .engine = engine, .client = "BENCH"}) {
    if (!home.Ready()) return;
    home.context->dialect = 0;
    // The print list as the run fills it, every order checked.
    for (auto rs = home.db->Open("SELECT [ID] FROM [CHUMON] ORDER BY [ID]"); !rs.Eof(); rs.MoveNext()) {
      const int row = grid.AddRow();
      grid.SetChecked(row, true);
      grid.SetText(row, 2, rs["ID"].Text());
    }
  }
};

Fixture& Get(Engine engine) {
  static std::map<Engine, std::unique_ptr<Fixture>> fixtures;
  auto& fixture = fixtures[engine];
  if (!fixture) fixture = std::make_unique<Fixture>(engine);
  return *fixture;
}

// One iteration is one whole export; the emptying of CHUMON_T is not timed.
void BM_ABUriage(benchmark::State& state, Engine engine, bool cold) {
  Fixture& f = Get(engine);
  if (!f.home.Ready()) {
    state.SkipWithError(f.home.why.c_str());
    return;
  }
  const auto writer = lupin::exchange::MakeFileWriter(lupin::entry::CatalogueOf(kABUriage).object);
  lupin::entry::RecordingUi ui;
  const auto out = f.home.folder / "ab_uriage.csv";
  if (!cold) writer->Write(*f.home.context, ui, f.grid, out);  // fills CHUMON_T
  std::uint64_t trips = 0;
  double seconds = 0;
  for (auto _ : state) {
    state.PauseTiming();
    if (cold) f.home.db->Execute("DELETE FROM [CHUMON_T]");
    const auto before = f.home.db->RoundTrips();
    const auto start = std::chrono::steady_clock::now();
    state.ResumeTiming();
    const auto result = writer->Write(*f.home.context, ui, f.grid, out);
    seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    trips += f.home.db->RoundTrips() - before;
    if (result.code != 0) {
      state.SkipWithError(result.message.c_str());
      return;
    }
  }
  const double orders = static_cast<double>(state.iterations()) * f.grid.MaxRows();
  state.counters["orders"] = f.grid.MaxRows();
  state.counters["round_trips"] = static_cast<double>(trips) / static_cast<double>(state.iterations());
  state.counters["round_trips_per_order"] = static_cast<double>(trips) / orders;
  state.counters["ms_per_order"] = seconds * 1000 / orders;
}

BENCHMARK_CAPTURE(BM_ABUriage, sqlite_cold, Engine::Sqlite, true)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_ABUriage, sqlite_warm, Engine::Sqlite, false)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_ABUriage, postgres_cold, Engine::Postgres, true)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_ABUriage, postgres_warm, Engine::Postgres, false)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
