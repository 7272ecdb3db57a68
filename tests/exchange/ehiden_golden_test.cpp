// The three generations' files, pinned byte for byte. LUPIN_UPDATE_GOLDEN=1 rewrites them; review
// every rewritten file before committing it.
#include <gtest/gtest.h>

#include "exchange_fixture.h"
#include "exchange/ehiden_export.h"
#include "support/test_databases.h"

namespace lupin::exchange {
namespace {

using namespace lupin::exchange::testing;

struct GoldenCase {
  const char* file;
  EhidenGeneration generation;
  bool setup_a;
};

constexpr GoldenCase kGoldenCases[] = {
    {"ehiden1_a.csv", EhidenGeneration::I, true},   {"ehiden2_a.csv", EhidenGeneration::II, true},
    {"ehiden3_a.csv", EhidenGeneration::III, true}, {"ehiden1_b.csv", EhidenGeneration::I, false},
    {"ehiden2_b.csv", EhidenGeneration::II, false}, {"ehiden3_b.csv", EhidenGeneration::III, false},
};

// The file the generation writes over the golden orders.
std::string ExportBytes(ExportEnv& env, const common::Grid& grid, const GoldenCase& c) {
  c.setup_a ? ApplySetupA(env.context) : ApplySetupB(env.context);
  EhidenCsvWriter writer(c.generation);
  const auto code = writer.Export(env.context, env.ui, grid, env.Out());
  EXPECT_EQ(code, kExportDone) << c.file << ": " << writer.ErrorText();
  return ReadBytes(env.Out());
}

// The engines agree on every value read, so both give the same bytes; SQLite writes the files.
class EhidenGolden : public lupin::testing::EngineTest {};

TEST_P(EhidenGolden, EveryGenerationAndSetupMatchesItsFile) {
  ExportEnv env(Db());
  const auto grid = MakeGrid(AddGoldenOrders(Db()));
  if (GetParam() == db::Engine::Postgres && UpdatingGolden()) GTEST_SKIP() << "golden files are written from SQLite";
  for (const auto& c : kGoldenCases) ExpectGolden(std::filesystem::path("ehiden") / c.file, ExportBytes(env, grid, c));
}

LUPIN_INSTANTIATE_ENGINES(EhidenGolden);

}  // namespace
}  // namespace lupin::exchange
