// The picking list of 500 staged demo orders through the run command's engine runner on SQLite:
// the run alone, and with each output the command line offers.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <random>
#include <string>

#include "catalogue/load_report_definition.h"
#include "db/connection.h"
#include "entry/context.h"
#include "demo/demo_data.h"
#include "entry/schema.h"
#include "run/preview_runner_engine.h"

namespace {

using namespace lupin;

constexpr int kOrders = 500;

struct Fixture {
  Fixture() : folder(std::filesystem::temp_directory_path() / ("lupin_bench_preview_" + std::to_string(std::random_device{}()))) {
    std::filesystem::create_directories(folder);
    db = db::OpenConnection("sqlite:" + (folder / "bench.db").string());
    entry::CreateSchema(*db);
    demo::FillCatalogue(*db);
    demo::DemoOptions demo;
    demo.orders = kOrders;
    demo.seed = 11;
    demo::FillDemoData(*db, demo);
    db->Execute("INSERT INTO [WK_PRINT]([ID],[CLIENT_NAME]) SELECT [ID],'PC01' FROM [CHUMON]");
    context = std::make_unique<entry::Context>(db.get(), settings::StorePaths::InFolder(folder), folder);
    context->login.client_name = "PC01";
    catalogue::LoadReportDefinition(*context, 54);
  }
  ~Fixture() {
    context.reset();
    db.reset();
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }
  std::filesystem::path folder;
  std::unique_ptr<db::Connection> db;
  std::unique_ptr<entry::Context> context;
};

Fixture& Shared() {
  static Fixture fixture;
  return fixture;
}

void RunWith(benchmark::State& state, const run::PreviewOutputs& outputs) {
  Fixture& f = Shared();
  int pages = 0;
  for (auto _ : state) {
    run::EnginePreviewRunner runner(run::ReportObjects(), outputs);
    if (!runner.Run(*f.context, "rptPickingSyuDate") || !runner.Print()) {
      state.SkipWithError(runner.Message().c_str());
      return;
    }
    pages = runner.Pages();
  }
  state.counters["pages"] = pages;
  state.counters["pages/s"] = benchmark::Counter(static_cast<double>(pages) * static_cast<double>(state.iterations()),
                                                  benchmark::Counter::kIsRate);
}

void BM_PreviewLayoutOnly(benchmark::State& state) { RunWith(state, {}); }

void BM_PreviewPdf(benchmark::State& state) {
  run::PreviewOutputs outputs;
  outputs.pdf = (Shared().folder / "p.pdf").string();
  RunWith(state, outputs);
}

void BM_PreviewDump(benchmark::State& state) {
  run::PreviewOutputs outputs;
  outputs.dump = (Shared().folder / "p.json").string();
  RunWith(state, outputs);
}

// The print command's part after the bookkeeping: the kept pages rendered again into the file.
void BM_PrintToPdf(benchmark::State& state) {
  run::PreviewOutputs outputs;
  outputs.print = true;
  outputs.print_pdf = (Shared().folder / "printed.pdf").string();
  RunWith(state, outputs);
}

BENCHMARK(BM_PreviewLayoutOnly)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_PreviewPdf)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_PreviewDump)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_PrintToPdf)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
