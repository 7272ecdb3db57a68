// 10,000 Yamato slips from the demo data: the selection form, the print list and the staging as
// the operator drives them, then the slips rendered to PDF. End to end and the rendering alone,
// with the resident memory sampled every 500 slips to show that it stays flat. The same staged
// orders then go through one slip of each other carrier family, rendering alone.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>

#include "bench_demo_home.h"
#include "catalogue/load_report_definition.h"
#include "engine/display.h"
#include "engine/render_pdf.h"
#include "entry/catalogue.h"
#include "entry/ui.h"
#include "reports/slips/slip_registration.h"

namespace {

using namespace lupin;

constexpr int kSlips = 10000;
constexpr int kReport = 25;

// The PDF renderer with the resident memory sampled as the pages arrive.
class SampledPdf : public engine::PageSink {
 public:
  explicit SampledPdf(const std::string& path) : pdf_(path) {}
  void Begin(const engine::DocumentInfo& info) override { pdf_.Begin(info); }
  void AddPage(const engine::Page& page) override {
    pdf_.AddPage(page);
    if (++pages_ % 500 == 0) {
      const long kb = bench::ResidentKb();
      // The first samples include the fonts and caches being set up.
      if (pages_ == 1000) low_kb = kb;
      high_kb = std::max(high_kb, kb);
    }
  }
  void End() override { pdf_.End(); }
  long low_kb = 0, high_kb = 0;

 private:
  engine::PdfRenderer pdf_;
  int pages_ = 0;
};

struct Fixture {
  bench::DemoHome home{"yamato", {.orders = kSlips, .seed = 11, .engine = db::Engine::Sqlite, .client = "BENCH"}};
  entry::RecordingUi ui;
  engine::ReportRegistry registry;

  Fixture() {
    // Every demo order goes by Yamato, so the print list keeps them all.
    home.db->Execute("UPDATE [CHUMON] SET [宅配業者] = 'ヤマト運輸'");
    // Date literals between quotes: the tax-rate lookups of the collect forms run on SQLite. The
    // selection form reads the dialect from the settings when it loads.
    home.context->settings.SaveSetting(0, "0", "ResouceMode");
    reports::RegisterSlipReports(registry);
  }

  int SelectAndStage() { return bench::SelectAndStage(*home.context, ui, kReport); }

  // The slips of the staged rows into a PDF, as the preview runs them. The pages.
  int Render(SampledPdf& sink, int report_no = kReport) {
    catalogue::LoadReportDefinition(*home.context, report_no);
    auto report = registry.Create(entry::CatalogueOf(report_no).object, *home.context);
    engine::ApplyReportSettings(*report, home.context->current);
    const auto result = report->Run(sink);
    return result.ok ? result.pages : 0;
  }

  std::string PdfPath() const { return (home.folder / "slips.pdf").string(); }
};

Fixture& Shared() {
  static Fixture fixture;
  return fixture;
}

// slips_per_s counts processor time, steady on a shared machine; wall_slips_per_s the clock.
void Report(benchmark::State& state, int slips, double wall_seconds, const SampledPdf& sink) {
  state.counters["slips"] = slips;
  state.counters["slips_per_s"] = benchmark::Counter(slips, benchmark::Counter::kIsIterationInvariantRate);
  state.counters["wall_slips_per_s"] = wall_seconds > 0 ? slips / wall_seconds : 0;
  state.counters["rss_mb"] = static_cast<double>(sink.high_kb) / 1024.0;
  state.counters["rss_growth_mb"] = static_cast<double>(sink.high_kb - sink.low_kb) / 1024.0;
}

void EndToEnd(benchmark::State& state) {
  Fixture& f = Shared();
  int slips = 0;
  std::unique_ptr<SampledPdf> sink;
  double wall = 0;
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    const int staged = f.SelectAndStage();
    sink = std::make_unique<SampledPdf>(f.PdfPath());
    slips = f.Render(*sink);
    wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    if (staged != kSlips || slips != kSlips) state.SkipWithError("not every order became a slip");
  }
  Report(state, slips, wall, *sink);
}

void RenderOnly(benchmark::State& state) {
  Fixture& f = Shared();
  if (f.SelectAndStage() != kSlips) {
    state.SkipWithError("staging failed");
    return;
  }
  int slips = 0;
  std::unique_ptr<SampledPdf> sink;
  double wall = 0;
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    sink = std::make_unique<SampledPdf>(f.PdfPath());
    slips = f.Render(*sink);
    wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    if (slips != kSlips) state.SkipWithError("not every order became a slip");
  }
  Report(state, slips, wall, *sink);
}

// One report per family: Sagawa, Nippon Express collect (a tax-rate lookup per slip), Yu-Pack
// collect 2010, Fukuyama collect and Seino collect.
void CarrierRenderOnly(benchmark::State& state) {
  Fixture& f = Shared();
  if (f.SelectAndStage() != kSlips) {
    state.SkipWithError("staging failed");
    return;
  }
  const int report_no = static_cast<int>(state.range(0));
  state.SetLabel(std::string(entry::CatalogueOf(report_no).object));
  int slips = 0;
  std::unique_ptr<SampledPdf> sink;
  double wall = 0;
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    sink = std::make_unique<SampledPdf>(f.PdfPath());
    slips = f.Render(*sink, report_no);
    wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    if (slips != kSlips) state.SkipWithError("not every order became a slip");
  }
  Report(state, slips, wall, *sink);
}

BENCHMARK(EndToEnd)->Unit(benchmark::kSecond)->Iterations(1)->Repetitions(5);
BENCHMARK(RenderOnly)->Unit(benchmark::kSecond)->Iterations(1)->Repetitions(5);
BENCHMARK(CarrierRenderOnly)->Arg(18)->Arg(17)->Arg(48)->Arg(32)->Arg(34)->Unit(benchmark::kSecond)->Iterations(1)->Repetitions(3);

}  // namespace

BENCHMARK_MAIN();
