// The print list of 10,000 orders of a collect report (one CHUMON_T query per row) and the
// staging of 10,000 checked rows, on SQLite and on PostgreSQL (LUPIN_TEST_PG_URL).
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <random>
#include <string>

#include "db/connection.h"
#include "entry/context.h"
#include "demo/demo_data.h"
#include "entry/schema.h"
#include "entry/ui.h"
#include "run/print_form.h"
#include "run/select_form.h"
#include "run/staging.h"

namespace {

using namespace lupin;

constexpr int kOrders = 10000;

struct Fixture {
  std::filesystem::path folder;
  std::unique_ptr<db::Connection> db;
  std::string schema;  // PostgreSQL only

  ~Fixture() {
    if (db && !schema.empty()) {
      try { db->Execute("DROP SCHEMA " + schema + " CASCADE"); } catch (...) {}
    }
    db.reset();
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }
};

std::unique_ptr<Fixture> Prepare(db::Engine engine) {
  auto f = std::make_unique<Fixture>();
  f->folder = std::filesystem::temp_directory_path() / ("lupin_bench_run_" + std::to_string(std::random_device{}()));
  std::filesystem::create_directories(f->folder / "settings");
  if (engine == db::Engine::Sqlite) {
    f->db = db::OpenConnection("sqlite:" + (f->folder / "bench.db").string());
  } else {
    const char* url = std::getenv("LUPIN_TEST_PG_URL");
    if (url == nullptr) return nullptr;
    f->db = db::OpenConnection(url);
    f->schema = "bench_run_" + std::to_string(std::random_device{}() % 1000000);
    f->db->Execute("CREATE SCHEMA " + f->schema);
    f->db->Execute("SET search_path TO " + f->schema);
  }
  entry::CreateSchema(*f->db);
  demo::FillCatalogue(*f->db);
  demo::FillDemoData(*f->db, {.orders = kOrders, .seed = 7, .batch = 1000, .progress = {}});
  return f;
}

// A print form over every order for report 19, a collect slip.
struct ListRun {
  explicit ListRun(Fixture& f)
      : context(f.db.get(), settings::StorePaths::InFolder(f.folder / "settings"), f.folder),
        select(context, ui) {
    context.login.client_name = "BENCH";
    context.current.report_no = 19;
    context.current.date_field = "出荷日";
    select.SQL = "SELECT [CHUMON].* FROM [CHUMON] ORDER BY [CHUMON].[ID] ";
    select.NoCarrierFilter = 0;
  }
  entry::Context context;
  entry::RecordingUi ui;
  run::SelectForm select;
};

void PrintList(benchmark::State& state, db::Engine engine) {
  auto f = Prepare(engine);
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
  auto f = Prepare(engine);
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
