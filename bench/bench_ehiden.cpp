// The carrier and payment files over 10,000 demo orders: each writer's whole export (file included)
// on SQLite, the B2 file also on PostgreSQL (LUPIN_TEST_PG_URL), and the Shift-JIS conversion and
// write of the e-飛伝Ⅲ text on its own.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <string>

#include "bench_demo_home.h"
#include "common/files.h"
#include "common/grid.h"
#include "common/text.h"
#include "entry/catalogue.h"
#include "entry/ui.h"
#include "exchange/ehiden_export.h"
#include "exchange/file_writer.h"

namespace {

constexpr int kOrders = 10000;
using lupin::db::Engine;

struct Fixture {
  lupin::bench::DemoHome home;
  lupin::common::Grid grid{0, 16};

  explicit Fixture(Engine engine) : home("files", {.orders = kOrders, .seed = 11, .engine = engine, .client = "BENCH"}) {
    if (!home.Ready()) return;
    auto& db = home.db;
    // Every order an Amazon order with a carrier, so no file stops at a row it rightly refuses.
    db->Execute("UPDATE [CHUMON] SET [電子決済受付No] = 'AMZ-' || CAST([ID] AS VARCHAR(12))");
    db->Execute("UPDATE [CHUMON] SET [宅配業者] = 'ヤマト運輸' WHERE COALESCE([宅配業者],'') = ''");
    db->Execute("UPDATE [CHUMON] SET [出荷伝票番号] = '1234-5678-9012' WHERE COALESCE([出荷伝票番号],'') = ''");
    auto& context = home.context;
    context->current.fld_txt = {"ルパン商店", "100-0001", "03-1111-2222", "0312345678,01,02", "東京都千代田区千代田１－１"};
    context->current.report_name = "ベンチマーク";
    context->dialect = 0;
    // The print list as the run fills it, every row checked. The demo data leaves a few recipients
    // without a telephone, postcode or item, which would (rightly) stop the carrier files; the list
    // leaves them out.
    grid.SetCaption(4, "氏名");
    grid.SetCaption(7, "出荷日");
    const std::string exportable =
        " WHERE ((TRIM(COALESCE([贈答先氏名],'')) = '' AND TRIM(COALESCE([電話番号],'')) <> ''"
        " AND TRIM(COALESCE([郵便番号],'')) <> '')"
        " OR (TRIM(COALESCE([贈答先氏名],'')) <> '' AND TRIM(COALESCE([贈答先電話番号],'')) <> ''"
        " AND TRIM(COALESCE([贈答先住所],'')) <> '' AND TRIM(COALESCE([贈答先郵便番号],'')) <> ''"
        // The customer sends a gift, so the Yamato files need the customer's own values too.
        " AND TRIM(COALESCE([電話番号],'')) <> '' AND TRIM(COALESCE([郵便番号],'')) <> ''"
        " AND TRIM(COALESCE([住所],'')) <> ''))"
        " AND TRIM(COALESCE([商品名1],'')) <> ''";
    for (auto rs = db->Open("SELECT [ID],[会社名],[氏名],[請求額],[商品ID1] FROM [CHUMON]" + exportable + " ORDER BY [ID]");
         !rs.Eof(); rs.MoveNext()) {
      const int row = grid.AddRow();
      grid.SetChecked(row, true);
      grid.SetText(row, 2, rs["ID"].Text());
      grid.SetText(row, 3, rs["会社名"].Text());
      grid.SetText(row, 4, rs["氏名"].Text());
      grid.SetText(row, 7, "2024/04/10");
      grid.SetText(row, 10, rs["商品ID1"].Text());
      grid.SetText(row, 11, rs["請求額"].Text());
      grid.SetText(row, 12, "0");
    }
  }
};

Fixture& Get(Engine engine) {
  static std::map<Engine, std::unique_ptr<Fixture>> fixtures;
  auto& fixture = fixtures[engine];
  if (!fixture) fixture = std::make_unique<Fixture>(engine);
  return *fixture;
}

// One iteration is one whole export of the report's file.
void BM_FileExport(benchmark::State& state, int report_no, Engine engine) {
  Fixture& f = Get(engine);
  if (!f.home.Ready()) {
    state.SkipWithError(f.home.why.c_str());
    return;
  }
  const auto writer = lupin::exchange::MakeFileWriter(lupin::entry::CatalogueOf(report_no).object);
  lupin::entry::RecordingUi ui;
  const auto out = f.home.folder / ("report_" + std::to_string(report_no) + ".csv");
  // Once before timing: the AB sales file computes the missing CHUMON_T rows on its first run.
  if (const auto first = writer->Write(*f.home.context, ui, f.grid, out); first.code != 0) {
    state.SkipWithError(first.message.c_str());
    return;
  }
  for (auto _ : state) {
    const auto result = writer->Write(*f.home.context, ui, f.grid, out);
    if (result.code != 0) {
      state.SkipWithError(result.message.c_str());
      return;
    }
  }
  state.SetItemsProcessed(state.iterations() * f.grid.MaxRows());
  state.counters["orders"] = f.grid.MaxRows();
  state.counters["file_bytes"] = static_cast<double>(std::filesystem::file_size(out));
}

#define LUPIN_FILE_BENCH(name, report, engine)                                                      \
  BENCHMARK_CAPTURE(BM_FileExport, name, report, engine)->Unit(benchmark::kMillisecond)->Repetitions(5) \
      ->ReportAggregatesOnly(true)

LUPIN_FILE_BENCH(Ehiden_91_Sqlite, 91, Engine::Sqlite);
LUPIN_FILE_BENCH(Ehiden2_96_Sqlite, 96, Engine::Sqlite);
LUPIN_FILE_BENCH(Ehiden3_104_Sqlite, 104, Engine::Sqlite);
LUPIN_FILE_BENCH(ICats_90_Sqlite, 90, Engine::Sqlite);
LUPIN_FILE_BENCH(B2_97_Sqlite, 97, Engine::Sqlite);
LUPIN_FILE_BENCH(B2_97_Postgres, 97, Engine::Postgres);
LUPIN_FILE_BENCH(Yupack_95_Sqlite, 95, Engine::Sqlite);
LUPIN_FILE_BENCH(YupackV4_89_Sqlite, 89, Engine::Sqlite);
LUPIN_FILE_BENCH(YupackR_102_Sqlite, 102, Engine::Sqlite);
LUPIN_FILE_BENCH(NPUriage_93_Sqlite, 93, Engine::Sqlite);
LUPIN_FILE_BENCH(NPSyukka_94_Sqlite, 94, Engine::Sqlite);
LUPIN_FILE_BENCH(ABUriage_98_Sqlite, 98, Engine::Sqlite);
LUPIN_FILE_BENCH(ABSyukka_99_Sqlite, 99, Engine::Sqlite);
LUPIN_FILE_BENCH(WellNet_92_Sqlite, 92, Engine::Sqlite);
LUPIN_FILE_BENCH(Amazon_101_Sqlite, 101, Engine::Sqlite);

// Bytes processed are the CP932 bytes of the e-飛伝Ⅲ file.
void BM_Ehiden3Cp932ConvertAndWrite(benchmark::State& state) {
  Fixture& f = Get(Engine::Sqlite);
  lupin::entry::RecordingUi ui;
  lupin::exchange::modEhiden3Csv writer;
  if (writer.Export(*f.home.context, ui, f.grid, f.home.folder / "ehiden_s.csv") != 0) {
    state.SkipWithError(writer.ErrorText().c_str());
    return;
  }
  std::ifstream in(f.home.folder / "ehiden_s.csv", std::ios::binary);
  const std::string text = lupin::text::FromCp932(std::string(std::istreambuf_iterator<char>(in), {}));
  std::size_t bytes = 0;
  for (auto _ : state) {
    auto sjis = lupin::text::ToCp932(text);
    bytes = sjis.bytes.size();
    if (!lupin::files::ReplaceFileAtomically(f.home.folder / "cp932.csv", sjis.bytes)) state.SkipWithError("write failed");
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}
BENCHMARK(BM_Ehiden3Cp932ConvertAndWrite)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);

}  // namespace

BENCHMARK_MAIN();
