// 10,000 delivery notes from the demo data, end to end: the selection form, the print list and the
// staging as the operator drives them, then the notes rendered to PDF; on SQLite and on PostgreSQL
// (LUPIN_TEST_PG_URL). Reports notes per second, the resident memory, and the statements sent per
// note, with the lookups the report keeps for the run counted apart, and the database round trips
// of the rendering. "cold" empties CHUMON_T before each run (not timed), so every reduced-rate
// order's tax is calculated and written; "warm" finds the rows an earlier run wrote.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "bench_demo_home.h"
#include "catalogue/load_report_definition.h"
#include "db/connection.h"
#include "engine/display.h"
#include "engine/render_pdf.h"
#include "entry/context.h"
#include "entry/ui.h"
#include "reports/documents/nouhin.h"

namespace {

using namespace lupin;

constexpr int kReport = 0;

// 10,000 unless LUPIN_BENCH_NOTES asks for another count (a quick look on a debug build).
int Notes() {
  const char* notes = std::getenv("LUPIN_BENCH_NOTES");
  return notes != nullptr && std::atoi(notes) > 0 ? std::atoi(notes) : 10000;
}
const int kNotes = Notes();

// The caller's connection with every statement counted.
class CountingConnection : public db::Connection {
 public:
  explicit CountingConnection(db::Connection& inner) : inner_(inner) {}
  long Execute(std::string_view sql) override { return ++statements, inner_.Execute(sql); }
  long ExecuteNow(std::string_view sql) override { return ++statements, inner_.ExecuteNow(sql); }
  db::Recordset Open(std::string_view sql) override { return ++statements, inner_.Open(sql); }
  void BeginTrans() override { inner_.BeginTrans(); }
  void CommitTrans() override { inner_.CommitTrans(); }
  void RollbackTrans() override { inner_.RollbackTrans(); }
  bool InTransaction() const override { return inner_.InTransaction(); }
  db::Engine GetEngine() const override { return inner_.GetEngine(); }
  long statements = 0;

 private:
  db::Connection& inner_;
};

class SampledPdf : public engine::PageSink {
 public:
  explicit SampledPdf(const std::string& path) : pdf_(path) {}
  void Begin(const engine::DocumentInfo& info) override { pdf_.Begin(info); }
  void AddPage(const engine::Page& page) override {
    pdf_.AddPage(page);
    if (++pages % 500 == 0) high_kb = std::max(high_kb, bench::ResidentKb());
  }
  void End() override {
    high_kb = std::max(high_kb, bench::ResidentKb());
    pdf_.End();
  }
  long high_kb = 0;
  int pages = 0;

 private:
  engine::PdfRenderer pdf_;
};

struct Fixture {
  bench::DemoHome home;
  entry::RecordingUi ui;
  engine::ReportRegistry registry;

  explicit Fixture(db::Engine engine) : home("nouhin", {.orders = kNotes, .seed = 11, .engine = engine, .client = "BENCH"}) {
    reports::RegisterNouhinReports(registry);
  }

  // The notes of the staged rows into a PDF, on a connection that counts the statements.
  engine::RunResult Render(SampledPdf& sink, CountingConnection& counting, reports::NouhinQueryCounts& counts) {
    entry::Context& context = *home.context;
    catalogue::LoadReportDefinition(context, kReport);
    db::Connection* own = context.connection;
    context.connection = &counting;
    context.dialect = 0;  // CAST(… AS VARCHAR(255)): the dialect both engines take
    auto report = registry.Create("rptNouhin", context);
    engine::ApplyReportSettings(*report, context.current);
    const auto result = report->Run(sink);
    counts = static_cast<reports::NouhinReport&>(*report).Counts();
    context.connection = own;
    return result;
  }
};

Fixture& Shared(db::Engine engine) {
  static Fixture sqlite(db::Engine::Sqlite);
  if (engine == db::Engine::Sqlite) return sqlite;
  static Fixture postgres(db::Engine::Postgres);
  return postgres;
}

void EndToEnd(benchmark::State& state, db::Engine engine, bool cold) {
  Fixture& f = Shared(engine);
  if (!f.home.Ready()) {
    state.SkipWithError(f.home.why.c_str());
    return;
  }
  int notes = 0, pages = 0;
  long statements = 0, high_kb = 0;
  std::uint64_t round_trips = 0;
  reports::NouhinQueryCounts counts;
  double wall = 0, render = 0;
  for (auto _ : state) {
    if (cold) {
      state.PauseTiming();
      f.home.db->Execute("DELETE FROM [CHUMON_T]");
      state.ResumeTiming();
    }
    const auto start = std::chrono::steady_clock::now();
    notes = bench::SelectAndStage(*f.home.context, f.ui, kReport);
    SampledPdf sink((f.home.folder / "notes.pdf").string());
    CountingConnection counting(*f.home.db);
    const auto trips = f.home.db->RoundTrips();
    const auto render_start = std::chrono::steady_clock::now();
    const auto result = f.Render(sink, counting, counts);
    render = std::chrono::duration<double>(std::chrono::steady_clock::now() - render_start).count();
    round_trips = f.home.db->RoundTrips() - trips;
    wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    if (!result.ok || notes != kNotes) state.SkipWithError(("run failed: " + result.fault.description).c_str());
    pages = sink.pages;
    statements = counting.statements;
    high_kb = sink.high_kb;
  }
  state.counters["notes"] = notes;
  state.counters["pages"] = pages;
  state.counters["notes_per_s"] = benchmark::Counter(notes, benchmark::Counter::kIsIterationInvariantRate);
  state.counters["wall_notes_per_s"] = wall > 0 ? notes / wall : 0;
  state.counters["rss_mb"] = static_cast<double>(high_kb) / 1024.0;
  state.counters["queries_per_note"] = notes > 0 ? static_cast<double>(statements) / notes : 0;
  state.counters["lookups_per_note"] = notes > 0 ? static_cast<double>(counts.Total()) / notes : 0;
  state.counters["page_marks"] = counts.page_marks;
  state.counters["units"] = counts.units;
  state.counters["tax_dates"] = counts.tax_dates;
  state.counters["reduced_flags"] = counts.reduced_flags;
  state.counters["summaries"] = counts.summaries;
  state.counters["round_trips_per_note"] = notes > 0 ? static_cast<double>(round_trips) / notes : 0;
  state.counters["render_ms_per_note"] = notes > 0 ? render * 1000 / notes : 0;
}

BENCHMARK_CAPTURE(EndToEnd, sqlite, db::Engine::Sqlite, false)->Unit(benchmark::kSecond)->Iterations(1)->Repetitions(3);
BENCHMARK_CAPTURE(EndToEnd, postgres, db::Engine::Postgres, false)->Unit(benchmark::kSecond)->Iterations(1)->Repetitions(3);
BENCHMARK_CAPTURE(EndToEnd, sqlite_cold, db::Engine::Sqlite, true)->Unit(benchmark::kSecond)->Iterations(1)->Repetitions(3);
BENCHMARK_CAPTURE(EndToEnd, postgres_cold, db::Engine::Postgres, true)->Unit(benchmark::kSecond)->Iterations(1)->Repetitions(3);

}  // namespace

BENCHMARK_MAIN();
