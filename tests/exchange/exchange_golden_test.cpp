// Every writer but e-飛伝 over the shared orders, pinned byte for byte under tests/golden/<writer>/,
// each reached through the print run's dispatch. LUPIN_UPDATE_GOLDEN=1 rewrites the files; review
// every rewritten file before committing it.
#include <gtest/gtest.h>

#include "exchange_fixture.h"
#include "run/file_report_dispatch.h"
#include "support/test_databases.h"

namespace lupin::exchange {
namespace {

using namespace lupin::exchange::testing;

struct GoldenCase {
  const char* file;  // under tests/golden
  int report_no;
  bool setup_a;
};

constexpr GoldenCase kGoldenCases[] = {
    {"b2/b2_a.csv", 97, true},           {"b2/b2_b.csv", 97, false},
    {"icats/icats_a.csv", 90, true},     {"icats/icats_b.csv", 90, false},
    {"yupack/yupack.csv", 95, true},     {"yupack/yupack_v4.csv", 89, true},
    {"yupack/yupack_r.csv", 102, true},  {"np/npuriage.csv", 93, true},
    {"np/npsyukka.csv", 94, true},       {"ab/aburiage.csv", 98, true},
    {"ab/absyukka.csv", 99, true},       {"wellnet/wellnet_a.csv", 92, true},
    {"wellnet/wellnet_b.csv", 92, false}, {"amazon/ShippingConfirm.txt", 101, true},
};

// A: the report's free texts with carrier codes, siteid.txt, a 30-day payment term. B: no free
// text (the shop's values), an item name from hinmei.txt, no siteid.txt, no payment limit.
void ApplyExchangeSetup(entry::Context& context, bool a) {
  if (a) {
    context.current.fld_txt = {"ルパン商店　出荷センター", "100-0001", "03-1111-2222", "0312345678,01,02",
                               "東京都千代田区千代田１－１ルパンビル３階"};
    context.default_item_name.clear();
    WriteBytes(context.home / "siteid.txt", "A,site-a\r\nAB,site-ab\r\nB,site-b\r\n");
    context.settings.SaveSetting(0, "30", "WellNetKigenDays");
  } else {
    context.current.fld_txt = {"", "", "", "", ""};
    context.default_item_name = "衣料品・雑貨";
    std::filesystem::remove(context.home / "siteid.txt");
    context.settings.SaveSetting(0, "99", "WellNetKigenDays");
  }
  context.current.report_name = "出荷データ";
  // The tax lookups of the AB sales file use date literals that both engines take in dialect 0.
  context.dialect = 0;
}

class ExchangeGolden : public lupin::testing::EngineTest {};

TEST_P(ExchangeGolden, EveryWriterMatchesItsFile) {
  ExportEnv env(Db());
  const auto grid = MakeGrid(AddExchangeOrders(Db()));
  if (GetParam() == db::Engine::Postgres && UpdatingGolden()) GTEST_SKIP() << "golden files are written from SQLite";
  for (const auto& c : kGoldenCases) {
    ApplyExchangeSetup(env.context, c.setup_a);
    const auto out = env.dir.Path() / std::filesystem::path(c.file).filename();
    const auto writer = run::FileWriterFor(c.report_no);
    ASSERT_NE(writer, nullptr) << c.report_no;
    const auto result = writer->Write(env.context, env.ui, grid, out);
    ASSERT_EQ(result.code, 0) << c.file << ": " << result.message;
    ExpectGolden(c.file, ReadBytes(out));
  }
}

LUPIN_INSTANTIATE_ENGINES(ExchangeGolden);

}  // namespace
}  // namespace lupin::exchange
