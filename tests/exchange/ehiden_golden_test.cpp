// The three generations' files, pinned byte for byte. LUPIN_UPDATE_GOLDEN=1 rewrites them; review
// every rewritten file before committing it.
#include <gtest/gtest.h>

#include <cstdlib>

#include "common/text.h"
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

std::filesystem::path GoldenPath(const char* file) { return std::filesystem::path(LUPIN_GOLDEN_DIR) / "ehiden" / file; }

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
  const bool update = std::getenv("LUPIN_UPDATE_GOLDEN") && std::string(std::getenv("LUPIN_UPDATE_GOLDEN")) == "1";
  if (GetParam() == db::Engine::Postgres && update) GTEST_SKIP() << "golden files are written from SQLite";
  for (const auto& c : kGoldenCases) {
    const auto path = GoldenPath(c.file);
    const std::string actual = ExportBytes(env, grid, c);
    if (update) {
      std::filesystem::create_directories(path.parent_path());
      WriteBytes(path, actual);
      continue;
    }
    ASSERT_TRUE(std::filesystem::exists(path)) << path << " is missing; run once with LUPIN_UPDATE_GOLDEN=1";
    const std::string expected = ReadBytes(path);
    // The decoded comparison shows the differing lines; the byte comparison catches the rest.
    EXPECT_EQ(text::FromCp932(actual), text::FromCp932(expected)) << c.file;
    EXPECT_TRUE(expected == actual) << c.file;
  }
}

LUPIN_INSTANTIATE_ENGINES(EhidenGolden);

}  // namespace
}  // namespace lupin::exchange
