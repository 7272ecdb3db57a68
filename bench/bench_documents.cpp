// The business documents at volume: the shipment list (5) over 10,000 orders with 50,000 lines,
// the monthly sales summary (46) over three years of demo orders with the statements its repeat
// rate costs, and 1,000 sheets of address labels with their barcodes. Each renders to PDF.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <string>

#include "bench_demo_home.h"
#include "catalogue/load_report_definition.h"
#include "engine/display.h"
#include "engine/render_pdf.h"
#include "entry/catalogue.h"
#include "reports/documents/sales_summary.h"
#include "run/preview_runner_engine.h"

namespace {

using namespace lupin;

constexpr int kListOrders = 10000;
constexpr int kLinesPerOrder = 5;
constexpr int kLabelSheets = 1000;

struct Database : bench::DemoHome {
  engine::ReportRegistry registry = run::ReportObjects();

  Database(const char* name, int orders, std::uint64_t seed)
      : DemoHome(name, {.orders = orders, .seed = seed, .engine = db::Engine::Sqlite, .client = "BENCH"}) {}

  // The report of that number into a PDF; its pages, or 0 on a fault.
  int Render(std::int32_t report_no) {
    catalogue::LoadReportDefinition(*context, report_no);
    auto report = registry.Create(entry::CatalogueOf(report_no).object, *context);
    engine::ApplyReportSettings(*report, context->current);
    engine::PdfRenderer pdf((folder / "out.pdf").string());
    const auto result = report->Run(pdf);
    return result.ok ? result.pages : 0;
  }

  void Stage(const std::string& select_ids) {
    db->Execute("DELETE FROM [WK_PRINT]");
    db->Execute("INSERT INTO [WK_PRINT]([ID],[SIMEI],[ORD_DATE],[COMPANY],[YUBIN],[TEL],[CLIENT_NAME]) SELECT [ID],[氏名],"
                "[受注日],[会社名],[郵便番号],[電話番号],'BENCH' FROM [CHUMON] WHERE [ID] IN (" + select_ids + ")");
  }
};

// 10,000 orders of five shipped lines each over a year of shipping days, all staged.
Database& ShipmentData() {
  // 200 demo orders for the shops, payment methods and people.
  static Database data("list", 200, 1);
  static bool filled = false;
  if (!filled) {
    filled = true;
    auto& db = *data.db;
    db.BeginTrans();
    for (int i = 0; i < kListOrders; ++i) {
      const int id = 100000 + i;
      const int day = i * 365 / kListOrders;
      char date[11];
      std::snprintf(date, sizeof date, "2024/%02d/%02d", day / 31 % 12 + 1, day % 28 + 1);
      const char* methods[] = {"代金引換", "銀行振込", "クレジットカード", "コンビニ後払い"};
      db.Execute("INSERT INTO [CHUMON]([ID],[顧客番号],[受注日],[出荷日],[氏名],[会社名],[所属],[郵便番号],[住所],[電話番号],"
                 "[メールアドレス],[支払方法],[送料],[決済手数料],[消費税],[ポイント利用],[請求額],[入金額],[ショップ名],[ショップID]) "
                 "VALUES(" + std::to_string(id) + "," + std::to_string(i % 3000) + ",'" + date + "','" + date +
                 "','山田 太郎" + std::to_string(i) + "','株式会社見本','営業部','100-0001','東京都千代田区千代田1-1','03-1234-5678',"
                 "'taro@example.jp','" + methods[i % 4] + "',800,330,500,0,12630,0,'見本ショップ','S1')");
      for (int n = 1; n <= kLinesPerOrder; ++n)
        db.Execute("INSERT INTO [CHUMON_D]([ID],[ITEM_NO],[ITEM_ID],[ITEM_MEI],[ITEM_TANKA],[ITEM_GENKA],[ITEM_PRICE],[ITEM_QTY],"
                   "[ITEM_TAX],[ITEM_SYUKKA],[ITEM_SYUDATE]) VALUES(" + std::to_string(id) + "," + std::to_string(n) +
                   ",'A-" + std::to_string(n) + "','緑茶 極上 100g',2200,1100,2200,1,1,1,'" + date + "')");
    }
    db.CommitTrans();
    data.Stage("SELECT [ID] FROM [CHUMON] WHERE [ID] >= 100000");
  }
  return data;
}

void ShipmentList(benchmark::State& state) {
  Database& data = ShipmentData();
  int pages = 0;
  double wall = 0;
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    pages = data.Render(5);
    wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    if (pages == 0) state.SkipWithError("the list failed");
  }
  state.counters["pages"] = pages;
  state.counters["pages_per_s"] = benchmark::Counter(pages, benchmark::Counter::kIsIterationInvariantRate);
  state.counters["wall_pages_per_s"] = wall > 0 ? pages / wall : 0;
  state.counters["peak_rss_mb"] = static_cast<double>(bench::PeakResidentKb()) / 1024.0;
}

// The demo shop of 12,000 orders (one a label); the summary takes 2022 to 2024 of it.
Database& DemoData() {
  static Database data("demo", kLabelSheets * 12, 7);
  return data;
}

void MonthlySummary(benchmark::State& state) {
  Database& data = DemoData();
  data.context->run.sales_summary.date_from = "2022/01/01";
  data.context->run.sales_summary.date_to = "2024/12/31";
  catalogue::LoadReportDefinition(*data.context, 46);
  long queries = 0, repeat_queries = 0;
  for (auto _ : state) {
    reports::rptUriage report(*data.context);
    engine::ApplyReportSettings(report, data.context->current);
    engine::PdfRenderer pdf((data.folder / "summary.pdf").string());
    if (!report.Run(pdf).ok) state.SkipWithError("the summary failed");
    queries = report.BuildQueries();
    repeat_queries = report.RepeatQueries();
  }
  auto orders = data.db->Open("SELECT COUNT(*) AS CNT FROM [CHUMON] WHERE [出荷日] >= '2022/01/01' AND [出荷日] <= '2024/12/31'");
  state.counters["orders"] = orders["CNT"].Number();
  state.counters["statements"] = static_cast<double>(queries);
  state.counters["repeat_statements"] = static_cast<double>(repeat_queries);
}

void LabelSheets(benchmark::State& state) {
  Database& data = DemoData();
  data.Stage("SELECT [ID] FROM [CHUMON] ORDER BY [ID] LIMIT " + std::to_string(kLabelSheets * 12));
  data.context->run = {};
  int pages = 0;
  double wall = 0;
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    pages = data.Render(22);
    wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  }
  if (pages != kLabelSheets) state.SkipWithError("not one sheet per twelve orders");
  state.counters["sheets"] = pages;
  state.counters["sheets_per_s"] = benchmark::Counter(pages, benchmark::Counter::kIsIterationInvariantRate);
  state.counters["wall_sheets_per_s"] = wall > 0 ? pages / wall : 0;
  state.counters["peak_rss_mb"] = static_cast<double>(bench::PeakResidentKb()) / 1024.0;
}

BENCHMARK(ShipmentList)->Unit(benchmark::kSecond)->Iterations(1)->Repetitions(3);
BENCHMARK(MonthlySummary)->Unit(benchmark::kSecond)->Iterations(1)->Repetitions(3);
BENCHMARK(LabelSheets)->Unit(benchmark::kSecond)->Iterations(1)->Repetitions(3);

}  // namespace

BENCHMARK_MAIN();
