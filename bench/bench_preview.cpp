// The picking list of 500 staged demo orders through the run command's engine runner on SQLite:
// the run alone, and with each output the command line offers.
#include <benchmark/benchmark.h>

#include <string>

#include "bench_demo_home.h"
#include "catalogue/load_report_definition.h"
#include "run/preview_runner_engine.h"

namespace {

using namespace lupin;

constexpr int kOrders = 500;

struct Fixture {
  Fixture() {
    home.db->Execute("INSERT INTO [WK_PRINT]([ID],[CLIENT_NAME]) SELECT [ID],'PC01' FROM [CHUMON]");
    catalogue::LoadReportDefinition(*home.context, 54);
  }
  bench::DemoHome home{"preview", {.orders = kOrders, .seed = 11, .engine = db::Engine::Sqlite, .client = "PC01"}};
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
    if (!runner.Run(*f.home.context, "rptPickingSyuDate") || (outputs.print && !runner.Print())) {
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
  outputs.pdf = (Shared().home.folder / "p.pdf").string();
  RunWith(state, outputs);
}

void BM_PreviewDump(benchmark::State& state) {
  run::PreviewOutputs outputs;
  outputs.dump = (Shared().home.folder / "p.json").string();
  RunWith(state, outputs);
}

// The print command's part after the bookkeeping: the kept pages rendered again into the file.
void BM_PrintToPdf(benchmark::State& state) {
  run::PreviewOutputs outputs;
  outputs.print = true;
  outputs.print_pdf = (Shared().home.folder / "printed.pdf").string();
  RunWith(state, outputs);
}

BENCHMARK(BM_PreviewLayoutOnly)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_PreviewPdf)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_PreviewDump)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_PrintToPdf)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
