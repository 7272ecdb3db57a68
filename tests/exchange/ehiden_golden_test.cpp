// The three generations' files, pinned byte for byte. LUPIN_UPDATE_GOLDEN=1 rewrites them; review
// every rewritten file before committing it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "common/text.h"
#include "ehiden_fixture.h"
#include "ehiden_golden_orders.h"
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
  const auto code = writer.Export(env.context, grid, env.Out());
  EXPECT_EQ(code, kEhidenDone) << c.file << ": " << writer.ErrorText();
  return ReadBytes(env.Out());
}

// Shows the first differing line decoded, which a byte dump would hide.
std::string FirstDifference(const std::string& expected, const std::string& actual) {
  std::istringstream e(text::FromCp932(expected)), a(text::FromCp932(actual));
  std::string le, la;
  for (int line = 1;; ++line) {
    const bool more_e = static_cast<bool>(std::getline(e, le));
    const bool more_a = static_cast<bool>(std::getline(a, la));
    if (!more_e && !more_a) break;
    if (!more_e) le = "(end)";
    if (!more_a) la = "(end)";
    if (le != la) return "line " + std::to_string(line) + "\n expected: " + le + "\n   actual: " + la;
  }
  return "same lines, different bytes";
}

void ExpectGolden(const char* file, const std::string& actual) {
  const auto path = GoldenPath(file);
  if (const char* update = std::getenv("LUPIN_UPDATE_GOLDEN"); update && std::string(update) == "1") {
    std::filesystem::create_directories(path.parent_path());
    WriteBytes(path, actual);
    return;
  }
  ASSERT_TRUE(std::filesystem::exists(path)) << path << " is missing; run once with LUPIN_UPDATE_GOLDEN=1";
  const std::string expected = ReadBytes(path);
  EXPECT_TRUE(expected == actual) << file << ": " << FirstDifference(expected, actual);
}

TEST(EhidenGolden, EveryGenerationAndSetupMatchesItsFile) {
  auto db = lupin::testing::FreshDatabase(db::Engine::Sqlite);
  ExportEnv env(*db);
  const auto grid = MakeGrid(AddGoldenOrders(*db));
  for (const auto& c : kGoldenCases) ExpectGolden(c.file, ExportBytes(env, grid, c));
}

// The same orders on PostgreSQL give the same bytes: the engines agree on every value read.
TEST(EhidenGolden, PostgresAgreesWithTheSqliteFiles) {
  auto db = lupin::testing::FreshDatabase(db::Engine::Postgres);
  ExportEnv env(*db);
  const auto grid = MakeGrid(AddGoldenOrders(*db));
  for (const auto& c : {kGoldenCases[2], kGoldenCases[4]}) {
    if (std::getenv("LUPIN_UPDATE_GOLDEN")) GTEST_SKIP() << "golden files are written from SQLite";
    const std::string expected = ReadBytes(GoldenPath(c.file));
    const std::string actual = ExportBytes(env, grid, c);
    EXPECT_TRUE(expected == actual) << c.file << ": " << FirstDifference(expected, actual);
  }
}

}  // namespace
}  // namespace lupin::exchange
