// 10,000 delivery notes from the demo data, end to end: the selection form, the print list and the
// staging as the operator drives them, then the notes rendered to PDF; on SQLite and on PostgreSQL
// (LUPIN_TEST_PG_URL). Reports notes per second, the resident memory, and the statements sent per
// note, with the lookups the report keeps for the run counted apart.
#include <benchmark/benchmark.h>

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>

#include "catalogue/load_report_definition.h"
#include "db/connection.h"
#include "engine/display.h"
#include "engine/render_pdf.h"
#include "entry/context.h"
#include "demo/demo_data.h"
#include "entry/schema.h"
#include "entry/ui.h"
#include "reports/documents/nouhin.h"
#include "run/print_form.h"
#include "run/select_form.h"

namespace {

using namespace lupin;

constexpr int kNotes = 10000;
constexpr int kReport = 0;

long ResidentKb() {
  std::ifstream statm("/proc/self/statm");
  long pages = 0, resident = 0;
  statm >> pages >> resident;
  return resident * (::sysconf(_SC_PAGESIZE) / 1024);
}

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
    if (++pages % 500 == 0) high_kb = std::max(high_kb, ResidentKb());
  }
  void End() override { pdf_.End(); }
  long high_kb = 0;
  int pages = 0;

 private:
  engine::PdfRenderer pdf_;
};

struct Fixture {
  std::filesystem::path folder;
  std::unique_ptr<db::Connection> db;
  std::unique_ptr<entry::Context> context;
  entry::RecordingUi ui;
  engine::ReportRegistry registry;
  std::string error;

  explicit Fixture(db::Engine engine) {
    folder = std::filesystem::temp_directory_path() / ("lupin_bench_nouhin_" + std::to_string(std::random_device{}()));
    std::filesystem::create_directories(folder / "settings");
    if (engine == db::Engine::Sqlite) {
      db = db::OpenConnection("sqlite:" + (folder / "bench.db").string());
    } else {
      const char* url = std::getenv("LUPIN_TEST_PG_URL");
      if (url == nullptr || *url == '\0') {
        error = "LUPIN_TEST_PG_URL is not set (scripts/pg-test-cluster start)";
        return;
      }
      db = db::OpenConnection(url);
      const std::string schema = "bench_nouhin_" + std::to_string(::getpid());
      db->Execute("DROP SCHEMA IF EXISTS " + schema + " CASCADE");
      db->Execute("CREATE SCHEMA " + schema);
      db->Execute("SET search_path = " + schema);
    }
    entry::CreateSchema(*db);
    demo::FillCatalogue(*db);
    demo::DemoOptions demo;
    demo.orders = kNotes;
    demo.seed = 11;
    demo::FillDemoData(*db, demo);
    context = std::make_unique<entry::Context>(db.get(), settings::StorePaths::InFolder(folder / "settings"), folder);
    context->login.client_name = "BENCH";
    reports::RegisterNouhinReports(registry);
  }
  ~Fixture() {
    db.reset();
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }

  int SelectAndStage() {
    run::SelectForm form(*context, ui);
    form.Form_Load();
    form.Form_Activate();
    for (int i = 0; i < form.cboList.ListCount(); ++i) {
      if (form.cboList.item_data[static_cast<std::size_t>(i)] == kReport) form.cboList.list_index = i;
    }
    form.cboList_Click();
    for (auto& box : form.chkChumonOption) box.value = 0;
    if (form.cmdSelect() == run::SelectOutcome::Stopped) return 0;
    run::PrintForm print(*context, ui, form);
    if (!print.Form_Activate()) return 0;
    if (print.cmdPrint() != run::PrintOutcome::Preview) return 0;
    return print.staged_rows;
  }

  // The notes of the staged rows into a PDF, on a connection that counts the statements.
  engine::RunResult Render(SampledPdf& sink, CountingConnection& counting, reports::NouhinQueryCounts& counts) {
    catalogue::LoadReportDefinition(*context, kReport);
    db::Connection* own = context->connection;
    context->connection = &counting;
    context->dialect = 0;  // CAST(… AS VARCHAR(255)): the dialect both engines take
    auto report = registry.Create("rptNouhin", *context);
    engine::ApplyReportSettings(*report, context->current);
    const auto result = report->Run(sink);
    counts = static_cast<reports::NouhinReport&>(*report).Counts();
    context->connection = own;
    return result;
  }
};

Fixture& Shared(db::Engine engine) {
  static Fixture sqlite(db::Engine::Sqlite);
  if (engine == db::Engine::Sqlite) return sqlite;
  static Fixture postgres(db::Engine::Postgres);
  return postgres;
}

void EndToEnd(benchmark::State& state, db::Engine engine) {
  Fixture& f = Shared(engine);
  if (!f.error.empty()) {
    state.SkipWithError(f.error.c_str());
    return;
  }
  int notes = 0, pages = 0;
  long statements = 0, high_kb = 0;
  reports::NouhinQueryCounts counts;
  double wall = 0;
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    notes = f.SelectAndStage();
    SampledPdf sink((f.folder / "notes.pdf").string());
    CountingConnection counting(*f.db);
    const auto result = f.Render(sink, counting, counts);
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
}

BENCHMARK_CAPTURE(EndToEnd, sqlite, db::Engine::Sqlite)->Unit(benchmark::kSecond)->Iterations(1)->Repetitions(3);
BENCHMARK_CAPTURE(EndToEnd, postgres, db::Engine::Postgres)->Unit(benchmark::kSecond)->Iterations(1)->Repetitions(3);

}  // namespace

BENCHMARK_MAIN();
