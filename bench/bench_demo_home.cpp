#include "bench_demo_home.h"

#include <sys/resource.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <random>

#include "demo/demo_data.h"
#include "entry/schema.h"
#include "run/print_form.h"
#include "run/select_form.h"

namespace lupin::bench {

DemoHome::DemoHome(std::string_view name, const DemoHomeOptions& options) {
  const std::string tag = std::string(name) + "_" + std::to_string(::getpid()) + "_" +
                          std::to_string(std::random_device{}() % 100000);
  folder = std::filesystem::temp_directory_path() / ("lupin_bench_" + tag);
  std::filesystem::create_directories(folder / "settings");
  if (options.engine == db::Engine::Sqlite) {
    db = db::OpenConnection("sqlite:" + (folder / "bench.db").string());
  } else {
    const char* url = std::getenv("LUPIN_TEST_PG_URL");
    if (url == nullptr || *url == '\0') {
      why = "LUPIN_TEST_PG_URL is not set (scripts/pg-test-cluster start)";
      return;
    }
    db = db::OpenConnection(url);
    schema_ = "bench_" + tag;
    db->Execute("CREATE SCHEMA " + schema_);
    db->Execute("SET search_path = " + schema_);
  }
  entry::CreateSchema(*db);
  demo::FillCatalogue(*db);
  demo::DemoOptions demo;
  demo.orders = options.orders;
  demo.seed = options.seed;
  demo::FillDemoData(*db, demo);
  context = std::make_unique<entry::Context>(db.get(), settings::StorePaths::InFolder(folder / "settings"), folder);
  context->login.client_name = options.client;
}

DemoHome::~DemoHome() {
  context.reset();
  if (db && !schema_.empty()) {
    try {
      db->Execute("DROP SCHEMA " + schema_ + " CASCADE");
    } catch (...) {  // a benchmark's leftover schema is not worth a crash at exit
    }
  }
  db.reset();
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
}

int SelectAndStage(entry::Context& context, entry::Ui& ui, int report_no) {
  run::SelectForm form(context, ui);
  form.Form_Load();
  form.Form_Activate();
  for (int i = 0; i < form.cboList.ListCount(); ++i) {
    if (form.cboList.item_data[static_cast<std::size_t>(i)] == report_no) form.cboList.list_index = i;
  }
  form.cboList_Click();
  for (auto& box : form.chkChumonOption) box.value = 0;
  if (form.cmdSelect() == run::SelectOutcome::Stopped) return 0;
  run::PrintForm print(context, ui, form);
  if (!print.Form_Activate()) return 0;
  if (print.cmdPrint() != run::PrintOutcome::Preview) return 0;
  return print.staged_rows;
}

long ResidentKb() {
  std::ifstream statm("/proc/self/statm");
  long pages = 0, resident = 0;
  statm >> pages >> resident;
  return resident * (::sysconf(_SC_PAGESIZE) / 1024);
}

long PeakResidentKb() {
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

}  // namespace lupin::bench
