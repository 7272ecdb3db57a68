// The desktop on the offscreen platform over a demo database on SQLite: from Show to a usable
// selection window, a print list of 10,000 orders on screen, and the preview of a 1,000-page
// picking list (time to the first page on screen, the whole run, and turning a page).
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>

#include <cstdlib>
#include <string>

#include "bench_demo_home.h"
#include "catalogue/load_report_definition.h"
#include "run/print_form.h"
#include "ui/desktop_session.h"
#include "ui/preview_window.h"
#include "ui/print_window.h"
#include "ui/select_window.h"

namespace {

using namespace lupin;

QApplication& App() {
  static int argc = 1;
  static char name[] = "bench_ui";
  static char* argv[] = {name, nullptr};
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  static QApplication* application = new QApplication(argc, argv);
  return *application;
}

struct Shop : bench::DemoHome {
  explicit Shop(int orders) : DemoHome("ui", {.orders = orders, .seed = 3, .engine = db::Engine::Sqlite, .client = "PC01"}) {}
};

void BM_ShowToUsableSelectionWindow(benchmark::State& state) {
  App();
  Shop shop(100);
  for (auto _ : state) {
    ui::DesktopSession session(*shop.context, "", "");
    session.Show();
    QApplication::processEvents();
    benchmark::DoNotOptimize(session.Select().cboList->count());
    state.PauseTiming();
    session.Select().close();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_ShowToUsableSelectionWindow)->Unit(benchmark::kMillisecond);

void BM_PrintListOf10000Rows(benchmark::State& state) {
  App();
  static Shop shop(10000);
  for (auto _ : state) {
    ui::DesktopSession session(*shop.context, "", "");
    catalogue::LoadReportDefinition(*shop.context, 4);
    session.SelectModel().SQL = "SELECT [CHUMON].* FROM [CHUMON] ORDER BY [CHUMON].[ID] ";
    run::PrintForm model(*shop.context, session, session.SelectModel());
    model.Form_Activate();
    ui::PrintWindow window(session, model, nullptr);
    window.Refresh();
    window.show();
    QApplication::processEvents();
    state.counters["rows"] = window.sprList->model()->rowCount();
  }
}
BENCHMARK(BM_PrintListOf10000Rows)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_PreviewOf1000Pages(benchmark::State& state) {
  App();
  static Shop shop(1000);
  shop.db->Execute("DELETE FROM [WK_PRINT]");
  shop.db->Execute("INSERT INTO [WK_PRINT]([ID],[CLIENT_NAME]) SELECT [ID],'PC01' FROM [CHUMON]");
  catalogue::LoadReportDefinition(*shop.context, 54);
  double first = 0, whole = 0, turn = 0;
  int runs = 0;
  for (auto _ : state) {
    ui::DesktopSession session(*shop.context, "", "");
    ui::PreviewWindow window(session, false, nullptr);
    window.show();
    window.Display();
    state.PauseTiming();
    first += static_cast<double>(window.first_page_ms);
    whole += static_cast<double>(window.last_page_ms);
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < 20; ++i) window.cmdNextPage();
    turn += static_cast<double>(clock.nsecsElapsed()) / 20e6;
    ++runs;
    state.counters["pages"] = window.Paging().Count();
    state.ResumeTiming();
  }
  state.counters["first_page_ms"] = first / runs;
  state.counters["whole_run_ms"] = whole / runs;
  state.counters["page_turn_ms"] = turn / runs;
}
BENCHMARK(BM_PreviewOf1000Pages)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(3);

}  // namespace

BENCHMARK_MAIN();
