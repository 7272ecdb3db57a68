#include <gtest/gtest.h>

#include <thread>

#include "common/grid.h"
#include "run/den_no_assign.h"
#include "run/ledger.h"
#include "run/print_form.h"
#include "run/run_db_support.h"
#include "run/staging.h"
#include "support/test_databases.h"

namespace lupin::run {
namespace {

constexpr int kRounds = 25;
constexpr int kRowsPerRound = 40;

// One workstation printing in rounds on its own connection. Returns the faults it saw.
std::vector<std::string> Workstation(const std::string& url, const std::string& client, int first_id) {
  std::vector<std::string> faults;
  auto db = db::OpenConnection(url);
  for (int round = 0; round < kRounds; ++round) {
    // Each round checks a different subset, so stale rows of an earlier round would show.
    common::Grid grid(0, kListColumns);
    std::vector<std::string> expected;
    for (int k = 0; k < kRowsPerRound; ++k) {
      const int row = grid.AddRow();
      const std::string id = std::to_string(first_id + k);
      grid.SetText(row, kColId, id);
      grid.SetText(row, kColName, client);
      const bool checked = (k + round) % 3 != 0;
      grid.SetChecked(row, checked);
      if (checked) expected.push_back(id);
    }
    const auto staged = StageRows(*db, client, grid, false, 18);
    if (!staged.ok) faults.push_back(client + " staging: " + staged.error);
    const auto ledger = WritePreviewLedger(*db, client, 18, false, "20240401");
    if (!ledger.ok) faults.push_back(client + " ledger: " + ledger.error);
    const auto numbers = AssignDenNo(*db, client, std::to_string(first_id) + "0", true, static_cast<int>(expected.size()));
    if (numbers.outcome != DenNoOutcome::Assigned) faults.push_back(client + " waybills: " + numbers.error);

    std::vector<std::string> seen;
    for (auto rs = db->Open("SELECT [ID],[SIMEI] FROM [WK_PRINT] WHERE [CLIENT_NAME] = '" + client + "' ORDER BY [ID]");
         !rs.Eof(); rs.MoveNext()) {
      seen.push_back(rs["ID"].Text());
      if (rs["SIMEI"].Text() != client) faults.push_back(client + " sees a row of " + rs["SIMEI"].Text());
    }
    if (seen != expected) faults.push_back(client + " round " + std::to_string(round) + ": staged rows differ");
  }
  return faults;
}

class ConcurrencyTest : public lupin::testing::EngineTest {};

TEST_P(ConcurrencyTest, TwoWorkstationsNeverTouchEachOthersRows) {
  entry::CreateSchema(Db());
  for (const int first : {1000, 2000}) {
    for (int k = 0; k < kRowsPerRound; ++k) testing::AddOrder(Db(), {.id = first + k, .name = "x"});
  }
  const std::string url = lupin::testing::UrlOf(Db());
  std::vector<std::string> faults_a, faults_b;
  std::thread a([&] { faults_a = Workstation(url, "PC-A", 1000); });
  std::thread b([&] { faults_b = Workstation(url, "PC-B", 2000); });
  a.join();
  b.join();
  EXPECT_TRUE(faults_a.empty()) << faults_a.front();
  EXPECT_TRUE(faults_b.empty()) << faults_b.front();
  // Every order of a workstation was booked under its own id range and nothing else.
  EXPECT_EQ(testing::Count(Db(), "FROM [PRINTED] WHERE [REPORT_NO] = 18"), 2 * kRowsPerRound);
  // The last round numbered each workstation's checked orders from its own start number.
  auto rs = Db().Open("SELECT [出荷伝票番号] FROM [CHUMON] WHERE [ID] = 2001");
  ASSERT_FALSE(rs.Eof());
  EXPECT_EQ(rs["出荷伝票番号"].Text().substr(0, 3), "200");
}

INSTANTIATE_TEST_SUITE_P(Postgres, ConcurrencyTest, ::testing::Values(db::Engine::Postgres),
                         lupin::testing::EngineName);

}  // namespace
}  // namespace lupin::run
