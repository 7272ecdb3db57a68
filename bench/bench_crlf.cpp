// Measuring and line-breaking the demo addresses in the recipient box of the Yamato slip, as a
// slip does for every address it prints.
#include <benchmark/benchmark.h>

#include <set>
#include <string>
#include <vector>

#include "db/connection.h"
#include "engine/measure.h"
#include "demo/demo_data.h"
#include "entry/schema.h"
#include "reports/slips/insert_crlf.h"

namespace {

const std::vector<std::string>& DemoAddresses() {
  static const std::vector<std::string> addresses = [] {
    auto connection = lupin::db::OpenConnection("sqlite::memory:");
    lupin::entry::CreateSchema(*connection);
    lupin::demo::DemoOptions options;
    options.orders = 2000;
    lupin::demo::FillDemoData(*connection, options);
    std::set<std::string> seen;
    std::vector<std::string> out;
    for (const char* sql : {"SELECT [住所] FROM [CHUMON]", "SELECT [贈答先住所] FROM [CHUMON]", "SELECT [住所] FROM [CUSTOMER]"}) {
      for (auto rs = connection->Open(sql); !rs.Eof(); rs.MoveNext()) {
        std::string address = rs.Field(0).Text();
        if (!address.empty() && seen.insert(address).second) out.push_back(std::move(address));
      }
    }
    return out;
  }();
  return addresses;
}

lupin::engine::FontSpec AddressFont() {
  lupin::engine::FontSpec font;
  font.name = "ＭＳ 明朝";
  font.size = 11.5;
  return font;
}

constexpr int kAddressBoxTwips = 3405;

// cache_limit 0: every address is shaped anew, as on a run of slips with distinct recipients.
void FitAndBreak(benchmark::State& state, std::size_t cache_limit) {
  const auto& addresses = DemoAddresses();
  lupin::engine::PangoTextMeasurer measurer(cache_limit);
  const lupin::engine::FontSpec font = AddressFont();
  lupin::reports::InsertCrLf crlf;
  crlf.LineBytes = crlf.FitLineBytes(measurer, font, kAddressBoxTwips, "warm up the font");
  std::size_t i = 0;
  std::size_t lines = 0;
  for (auto _ : state) {
    const std::string& address = addresses[i];
    crlf.LineBytes = crlf.FitLineBytes(measurer, font, kAddressBoxTwips, address);
    const std::string broken = crlf.InsertCrLfAddress(address);
    lines += broken.size();
    benchmark::DoNotOptimize(broken);
    if (++i == addresses.size()) i = 0;
  }
  state.SetItemsProcessed(state.iterations());
  state.counters["addresses"] = static_cast<double>(addresses.size());
  benchmark::DoNotOptimize(lines);
}

void BM_FitLineBytesAndInsertCrLfAddress(benchmark::State& state) { FitAndBreak(state, 0); }
BENCHMARK(BM_FitLineBytesAndInsertCrLfAddress)->Repetitions(5)->ReportAggregatesOnly(true);

void BM_FitLineBytesAndInsertCrLfAddressCached(benchmark::State& state) { FitAndBreak(state, 100000); }
BENCHMARK(BM_FitLineBytesAndInsertCrLfAddressCached)->Repetitions(5)->ReportAggregatesOnly(true);

void BM_InsertCrLfAddress(benchmark::State& state) {
  const auto& addresses = DemoAddresses();
  lupin::reports::InsertCrLf crlf;
  crlf.LineBytes = 28;  // the recipient box in 11.5 points
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(crlf.InsertCrLfAddress(addresses[i]));
    if (++i == addresses.size()) i = 0;
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_InsertCrLfAddress)->Repetitions(5)->ReportAggregatesOnly(true);

}  // namespace

BENCHMARK_MAIN();
