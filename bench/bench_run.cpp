// The print list of 10,000 orders of a collect report (one CHUMON_T query per row) and the
// staging of 10,000 checked rows, on SQLite and on PostgreSQL (LUPIN_TEST_PG_URL).
#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <string>

#include "bench_demo_home.h"
#include "entry/ui.h"
#include "run/print_form.h"
#include "run/select_form.h"
#include "run/staging.h"

namespace {

using namespace lupin;

constexpr int kOrders = 10000;

// The demo shop on that engine, made once for every repetition; null when PostgreSQL is asked
// for and not configured.
bench::DemoHome* Prepare(db::Engine engine) {
  static std::map<db::Engine, std::unique_ptr<bench::DemoHome>> homes;
  auto& home = homes[engine];
  if (!home) home = std::make_unique<bench::DemoHome>("run", bench::DemoHomeOptions{.orders = kOrders, .seed = 7, .engine = engine, .client = "BENCH"});
  return home->Ready() ? home.get() : nullptr;
}

// A print form over every order for report 19, a collect slip.
struct ListRun {
  explicit ListRun(bench::DemoHome& home) : context(*home.context), select(context, ui) {
    context.current.report_no = 19;
    context.current.date_field = "出荷日";
    select.SQL = "SELECT [CHUMON].* FROM [CHUMON] ORDER BY [CHUMON].[ID] ";
    select.NoCarrierFilter = 0;
  }
  entry::Context& context;
  entry::RecordingUi ui;
  run::SelectForm select;
};

void PrintList(benchmark::State& state, db::Engine engine) {
  bench::DemoHome* f = Prepare(engine);
  if (!f) {
    state.SkipWithError("LUPIN_TEST_PG_URL is not set");
    return;
  }
  ListRun run(*f);
  int rows = 0;
  for (auto _ : state) {
    run::PrintForm form(run.context, run.ui, run.select);
    form.LoadList();
    rows = form.sprList.MaxRows();
    benchmark::DoNotOptimize(rows);
  }
  state.counters["rows"] = rows;
}

void Staging(benchmark::State& state, db::Engine engine) {
  bench::DemoHome* f = Prepare(engine);
  if (!f) {
    state.SkipWithError("LUPIN_TEST_PG_URL is not set");
    return;
  }
  ListRun run(*f);
  run::PrintForm form(run.context, run.ui, run.select);
  form.LoadList();
  int rows = 0;
  for (auto _ : state) {
    const auto result = run::StageRows(*f->db, "BENCH", form.sprList, false, 19);
    if (!result.ok) state.SkipWithError(result.error.c_str());
    rows = result.rows;
  }
  state.counters["rows"] = rows;
}

BENCHMARK_CAPTURE(PrintList, sqlite, db::Engine::Sqlite)->Unit(benchmark::kMillisecond)->Repetitions(5);
BENCHMARK_CAPTURE(PrintList, postgres, db::Engine::Postgres)->Unit(benchmark::kMillisecond)->Repetitions(5);
BENCHMARK_CAPTURE(Staging, sqlite, db::Engine::Sqlite)->Unit(benchmark::kMillisecond)->Repetitions(5);
BENCHMARK_CAPTURE(Staging, postgres, db::Engine::Postgres)->Unit(benchmark::kMillisecond)->Repetitions(5);

}  // namespace

BENCHMARK_MAIN();
