// The report engine: laying out long runs (memory must stay flat however many pages), the
// spooled "page N of M" run, format-file parsing and designer loading.
#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>

#include "engine/designer.h"
#include "engine/report.h"
#include "entry/context.h"
#include "demo/demo_data.h"
#include "entry/schema.h"
#include "layout/format_parser.h"
#include "reports/documents/picking.h"

namespace {

using namespace lupin;

long MaxRssKb() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

// Counts what it is given and keeps nothing, as a printer stream does.
class CountingSink : public engine::PageSink {
 public:
  void Begin(const engine::DocumentInfo&) override {}
  void AddPage(const engine::Page& page) override {
    ++pages;
    items += static_cast<long>(page.items.size());
  }
  void End() override {}
  long pages = 0, items = 0;
};

class TableReport : public engine::Report {
 public:
  TableReport(const char* designer, int rows) : engine::Report(engine::ParseDesigner("bench.json", designer)), rows_(rows) {
    Detail().Format = [this] {
      Detail().Controls().Item("lblName")->Caption = Fields().Value("Name").Text();
    };
  }

 protected:
  void ActiveReport_DataInitialize() override {
    std::vector<std::vector<db::Value>> rows;
    rows.reserve(static_cast<std::size_t>(rows_));
    for (int i = 0; i < rows_; ++i)
      rows.push_back({db::Value(i), db::Value("山田 太郎 " + std::to_string(i)), db::Value(1000 + i)});
    DataControl1.Recordset = db::Recordset({"ID", "Name", "Amount"}, std::move(rows));
  }

 private:
  int rows_;
};

const char* kList = R"({"report": "rptBenchList", "sections": [
  {"name": "PageHeader", "type": "PageHeader", "height": 600, "controls": [
    {"kind": "Label", "name": "lblTitle", "caption": "一覧", "width": 4000, "height": 400},
    {"kind": "TextField", "name": "fldPage", "summary": "page_number", "left": 9000, "width": 800, "height": 300}]},
  {"name": "Detail", "type": "Detail", "height": 300, "controls": [
    {"kind": "TextField", "name": "fldID", "data_field": "ID", "width": 1000, "height": 300},
    {"kind": "Label", "name": "lblName", "left": 1000, "width": 4000, "height": 300},
    {"kind": "TextField", "name": "fldAmount", "data_field": "Amount", "output_format": "#,##0", "left": 5000, "width": 1500, "height": 300}]}]})";

// One form a page, with a page count: every page goes through the spool file.
const char* kForms = R"({"report": "rptBenchForms", "sections": [
  {"name": "Detail", "type": "Detail", "height": 14000, "new_page": "after", "controls": [
    {"kind": "TextField", "name": "fldID", "data_field": "ID", "width": 1000, "height": 300},
    {"kind": "Label", "name": "lblName", "left": 1000, "width": 4000, "height": 300},
    {"kind": "TextField", "name": "fldAmount", "data_field": "Amount", "output_format": "#,##0", "left": 5000, "width": 1500, "height": 300},
    {"kind": "TextField", "name": "fldPageNumber", "summary": "page_number", "top": 13000, "width": 800, "height": 300},
    {"kind": "TextField", "name": "fldPageCount", "summary": "page_count", "left": 900, "top": 13000, "width": 800, "height": 300}]}]})";

void RunReport(benchmark::State& state, const char* designer) {
  const int rows = static_cast<int>(state.range(0));
  const long rss_before = MaxRssKb();
  long pages = 0;
  for (auto _ : state) {
    TableReport report(designer, rows);
    CountingSink sink;
    const auto result = report.Run(sink);
    if (!result.ok) state.SkipWithError(result.fault.description.c_str());
    pages = sink.pages;
    benchmark::DoNotOptimize(sink.items);
  }
  state.counters["pages"] = static_cast<double>(pages);
  state.counters["records/s"] = benchmark::Counter(static_cast<double>(rows), benchmark::Counter::kIsIterationInvariantRate);
  state.counters["maxrss_growth_kb"] = static_cast<double>(MaxRssKb() - rss_before);
}

void BM_FlowingList(benchmark::State& state) { RunReport(state, kList); }
BENCHMARK(BM_FlowingList)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_FormsWithPageCount(benchmark::State& state) { RunReport(state, kForms); }
BENCHMARK(BM_FormsWithPageCount)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_FormatParse(benchmark::State& state) {
  std::string text = "<name=ベンチ>\r\n<section=Detail>\r\n";
  for (int i = 0; i < state.range(0); ++i)
    text += "<field=lblItem" + std::to_string(i) + "><title>品目</title><visible>1</visible><fontsize>10</fontsize>"
            "<left>" + std::to_string(i % 180) + ".5</left><top>20</top><width>30</width><alignment>1</alignment></field>\r\n";
  text += "</section>\r\n";
  for (auto _ : state) {
    layout::clsRptFmtParser parser;
    std::vector<layout::clsRptFmtRow> rows;
    benchmark::DoNotOptimize(parser.ParseText(text, rows));
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(BM_FormatParse)->Arg(50)->Arg(500);

void BM_LoadDesigner(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(engine::LoadDesigner("rptPickingSyuDate"));
}
BENCHMARK(BM_LoadDesigner)->Unit(benchmark::kMicrosecond);

// The picking list over staged demo orders on SQLite: two queries a page besides the run's own.
void BM_PickingList(benchmark::State& state) {
  const auto folder = std::filesystem::temp_directory_path() / ("lupin_bench_picking_" + std::to_string(::getpid()));
  std::filesystem::create_directories(folder);
  {
    auto connection = db::OpenConnection("sqlite:" + (folder / "bench.db").string());
    entry::CreateSchema(*connection);
    demo::DemoOptions options;
    options.orders = static_cast<int>(state.range(0));
    demo::FillDemoData(*connection, options);
    connection->Execute("INSERT INTO [WK_PRINT]([ID],[CLIENT_NAME]) SELECT [ID], 'BENCH' FROM [CHUMON]");
    entry::Context context(connection.get(), settings::StorePaths::InFolder(folder), folder);
    context.login.client_name = "BENCH";
    context.current.report_no = 54;
    const long rss_before = MaxRssKb();
    long pages = 0;
    for (auto _ : state) {
      reports::rptPickingSyuDate report(context);
      CountingSink sink;
      const auto result = report.Run(sink);
      if (!result.ok) state.SkipWithError(result.fault.description.c_str());
      pages = sink.pages;
    }
    state.counters["pages"] = static_cast<double>(pages);
    state.counters["pages/s"] = benchmark::Counter(static_cast<double>(pages), benchmark::Counter::kIsIterationInvariantRate);
    state.counters["maxrss_growth_kb"] = static_cast<double>(MaxRssKb() - rss_before);
  }
  std::filesystem::remove_all(folder);
}
BENCHMARK(BM_PickingList)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace

BENCHMARK_MAIN();
