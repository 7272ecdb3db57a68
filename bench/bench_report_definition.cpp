// Loading a report definition, as each pick in the selection form and each print does.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

#include "catalogue/load_report_definition.h"
#include "entry/schema.h"

namespace {

namespace fs = std::filesystem;

void BM_LoadReportDefinitionWithOverrides(benchmark::State& state) {
  const fs::path home = fs::temp_directory_path() / "lupin_bench_definition";
  fs::create_directories(home);
  std::ofstream(home / "REPORT.INI") << "[佐川宅配伝票]\nDEVICE_NAME=Office\nPAPER_SIZE=9\nMARGIN_LEFT=300\n";
  auto connection = lupin::db::OpenConnection("sqlite::memory:");
  lupin::entry::CreateSchema(*connection);
  connection->Execute(
      "INSERT INTO [REPORT] ([REPORT_NO], [REPORT_NAME], [DEVICE_NAME], [PAPER_SIZE], [FLD_LBL1], [FLD_TXT1]) "
      "VALUES (18, '佐川宅配伝票', 'Slip', 256, 'お届け時間', '午前中')");
  lupin::entry::Context context(connection.get(), lupin::settings::StorePaths::InFolder(home), home);
  for (auto _ : state) benchmark::DoNotOptimize(lupin::catalogue::LoadReportDefinition(context, 18));
  fs::remove_all(home);
}
BENCHMARK(BM_LoadReportDefinitionWithOverrides);

}  // namespace

BENCHMARK_MAIN();
