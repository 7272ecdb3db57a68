// Settings reads and writes as the forms do them: one key at a time, straight from the files.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "common/settings.h"
#include "common/sql.h"

namespace {

namespace fs = std::filesystem;

// A user file of a workstation that has used the package for a while: comments, a few sections,
// about fifty keys.
fs::path MakeStores() {
  const fs::path folder = fs::temp_directory_path() / "lupin_bench_settings";
  fs::create_directories(folder);
  std::ofstream(folder / "machine.ini") << "[LupinOrder6]\nDBPath=/srv/lupin/lupin.db\nRFormatPath=/srv/format\n";
  std::ofstream user(folder / "lupin.ini");
  user << "; LupinOrder6 user settings\n[Window]\n";
  for (int i = 0; i < 20; ++i) user << "Pos" << i << "=" << i * 10 << "\n";
  user << "\n[LupinOrder6]\n";
  for (int i = 0; i < 30; ++i) user << "Key" << i << "=value number " << i << "\n";
  user << "Tax=0.1\nICatsPath=/home/u/出力/icats.csv\n";
  return folder;
}

void BM_GetSettingUserFile(benchmark::State& state) {
  const lupin::settings::Settings settings(lupin::settings::StorePaths::InFolder(MakeStores()));
  for (auto _ : state) benchmark::DoNotOptimize(settings.GetSetting(8, "0.05"));
}
BENCHMARK(BM_GetSettingUserFile);

void BM_GetSettingByNameFallsToMachine(benchmark::State& state) {
  const lupin::settings::Settings settings(lupin::settings::StorePaths::InFolder(MakeStores()));
  for (auto _ : state) benchmark::DoNotOptimize(settings.GetSetting(0, "", "RFormatPath"));
}
BENCHMARK(BM_GetSettingByNameFallsToMachine);

void BM_SaveSettingUserFile(benchmark::State& state) {
  lupin::settings::Settings settings(lupin::settings::StorePaths::InFolder(MakeStores()));
  int i = 0;
  for (auto _ : state) settings.SaveSetting(0, std::to_string(++i), "YupackPath");
}
BENCHMARK(BM_SaveSettingUserFile);

void BM_DialectFieldAndQuote(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(lupin::sql::DialectField(1, 5, "出荷伝票番号"));
    benchmark::DoNotOptimize(lupin::sql::SqlQuote("O'Neil's 店"));
  }
}
BENCHMARK(BM_DialectFieldAndQuote);

}  // namespace

BENCHMARK_MAIN();
