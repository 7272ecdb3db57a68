// e-飛伝Ⅲ export of 10,000 demo orders on SQLite (one iteration is one whole export, the file
// included), and the Shift-JIS conversion and write of the file's text on its own.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "common/files.h"
#include "common/grid.h"
#include "common/text.h"
#include "db/connection.h"
#include "entry/context.h"
#include "demo/demo_data.h"
#include "entry/schema.h"
#include "exchange/ehiden_export.h"

namespace {

constexpr int kOrders = 10000;

struct Fixture {
  std::filesystem::path dir;
  std::unique_ptr<lupin::db::Connection> db;
  std::unique_ptr<lupin::entry::Context> context;
  lupin::common::Grid grid{0, 16};
  std::string text;  // the export's UTF-8 text, for the conversion benchmark

  Fixture() {
    dir = std::filesystem::temp_directory_path() / ("lupin_bench_ehiden_" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir / "settings");
    db = lupin::db::OpenConnection("sqlite:" + (dir / "orders.db").string());
    lupin::entry::CreateSchema(*db);
    lupin::demo::FillCatalogue(*db);
    lupin::demo::FillDemoData(*db, {.orders = kOrders, .seed = 11, .batch = 1000, .progress = {}});
    context = std::make_unique<lupin::entry::Context>(
        db.get(), lupin::settings::StorePaths::InFolder(dir / "settings"), dir);
    context->current.fld_txt = {"ルパン商店", "100-0001", "03-1111-2222", "", "東京都千代田区千代田１－１"};
    // The print list as the run fills it, every row checked. The demo data leaves a few recipients
    // without a telephone, which would (rightly) stop the export; the list leaves them out.
    grid.SetCaption(4, "氏名");
    const std::string exportable =
        " WHERE (TRIM(COALESCE([贈答先氏名],'')) = '' AND TRIM(COALESCE([電話番号],'')) <> '')"
        " OR (TRIM(COALESCE([贈答先氏名],'')) <> '' AND TRIM(COALESCE([贈答先電話番号],'')) <> ''"
        " AND TRIM(COALESCE([贈答先住所],'')) <> '')";
    for (auto rs = db->Open("SELECT [ID],[会社名],[氏名],[請求額] FROM [CHUMON]" + exportable + " ORDER BY [ID]");
         !rs.Eof(); rs.MoveNext()) {
      const int row = grid.AddRow();
      grid.SetChecked(row, true);
      grid.SetText(row, 2, rs["ID"].Text());
      grid.SetText(row, 3, rs["会社名"].Text());
      grid.SetText(row, 4, rs["氏名"].Text());
      grid.SetText(row, 11, rs["請求額"].Text());
      grid.SetText(row, 12, "0");
    }
    lupin::entry::RecordingUi ui;
    lupin::exchange::modEhiden3Csv writer;
    if (writer.Export(*context, ui, grid, dir / "ehiden_s.csv") == 0) {
      std::ifstream in(dir / "ehiden_s.csv", std::ios::binary);
      text = lupin::text::FromCp932(std::string(std::istreambuf_iterator<char>(in), {}));
    }
  }
  ~Fixture() {
    std::error_code ignored;
    std::filesystem::remove_all(dir, ignored);
  }
};

Fixture& Get() {
  static Fixture fixture;
  return fixture;
}

void BM_Ehiden3Export_Sqlite(benchmark::State& state) {
  Fixture& f = Get();
  lupin::exchange::modEhiden3Csv writer;
  lupin::entry::RecordingUi ui;
  for (auto _ : state) {
    const auto code = writer.Export(*f.context, ui, f.grid, f.dir / "ehiden_s.csv");
    if (code != 0) {
      state.SkipWithError(writer.ErrorText().c_str());
      return;
    }
  }
  state.SetItemsProcessed(state.iterations() * f.grid.MaxRows());
  state.counters["orders"] = f.grid.MaxRows();
  state.counters["file_bytes"] = static_cast<double>(std::filesystem::file_size(f.dir / "ehiden_s.csv"));
}
BENCHMARK(BM_Ehiden3Export_Sqlite)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);

// Bytes processed are the CP932 bytes of the file.
void BM_Ehiden3Cp932Convert(benchmark::State& state) {
  Fixture& f = Get();
  std::size_t bytes = 0;
  for (auto _ : state) {
    auto sjis = lupin::text::ToCp932(f.text);
    bytes = sjis.bytes.size();
    benchmark::DoNotOptimize(sjis);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}
BENCHMARK(BM_Ehiden3Cp932Convert)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);

void BM_Ehiden3Cp932ConvertAndWrite(benchmark::State& state) {
  Fixture& f = Get();
  std::size_t bytes = 0;
  for (auto _ : state) {
    auto sjis = lupin::text::ToCp932(f.text);
    bytes = sjis.bytes.size();
    if (!lupin::files::ReplaceFileAtomically(f.dir / "cp932.csv", sjis.bytes)) state.SkipWithError("write failed");
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}
BENCHMARK(BM_Ehiden3Cp932ConvertAndWrite)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);

}  // namespace

BENCHMARK_MAIN();
