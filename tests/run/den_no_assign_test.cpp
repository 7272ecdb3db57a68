#include <gtest/gtest.h>

#include "run/den_no_assign.h"
#include "run/preview_form.h"
#include "run/run_db_support.h"
#include "run/run_test_support.h"
#include "run/select_form.h"
#include "support/test_databases.h"

namespace lupin::run {
namespace {

using testing::AddOrder;
using testing::Column;
using testing::Count;

class DenNoAssignTest : public lupin::testing::EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    entry::CreateSchema(Db());
    for (int id = 1; id <= 3; ++id) AddOrder(Db(), {.id = id, .name = "n", .den_no = "OLD" + std::to_string(id)});
  }
  void Stage(const std::string& client, std::initializer_list<int> ids) {
    for (const int id : ids) {
      Db().Execute("INSERT INTO [WK_PRINT]([ID],[CLIENT_NAME]) VALUES(" + std::to_string(id) + ",'" + client + "')");
    }
  }
  std::vector<std::string> Numbers() {
    return Column(Db(), "SELECT [出荷伝票番号] FROM [CHUMON] ORDER BY [ID]", "出荷伝票番号");
  }
};

TEST_P(DenNoAssignTest, NumbersTheStagedOrdersFromTheTypedStart) {
  Stage("PC01", {1, 2});
  Stage("PC02", {3});
  const auto result = AssignDenNo(Db(), "PC01", "1234-5678-9019", true, 2);
  EXPECT_EQ(result.outcome, DenNoOutcome::Assigned);
  EXPECT_EQ(result.numbered, 2);
  EXPECT_EQ(Numbers(), (std::vector<std::string>{"1234-5678-9013", "1234-5678-9024", "OLD3"}));
}

struct SilentCase {
  const char* name;
  std::string start;
  bool re_den_no;
  int count;
  DenNoOutcome outcome;
};

TEST_P(DenNoAssignTest, NothingIsNumberedWhenTheRunCannotComplete) {
  Stage("PC01", {1, 2});
  const SilentCase cases[] = {
      {"EmptyStart", "", true, 2, DenNoOutcome::NoStartNumber},
      {"ReDenNoCleared", "100", false, 2, DenNoOutcome::RolledBack},
      {"SeriesShorterThanTheRows", "100", true, 1, DenNoOutcome::RolledBack},
  };
  for (const auto& c : cases) {
    const auto result = AssignDenNo(Db(), "PC01", c.start, c.re_den_no, c.count);
    EXPECT_EQ(result.outcome, c.outcome) << c.name;
    EXPECT_EQ(Numbers(), (std::vector<std::string>{"OLD1", "OLD2", "OLD3"})) << c.name;
    EXPECT_FALSE(Db().InTransaction()) << c.name;
  }
}

// A report engine whose print dialog the user cancels.
struct CancelledPrint : testing::FakeRunner {
  CancelledPrint() { records = 2, print_succeeds = false; }
};

// The request for material runs another object over the same slips and books nothing.
TEST_P(DenNoAssignTest, LedgerAndNumbersSurviveACancelledPrintExceptForTheRequestForMaterial) {
  testing::AddReport(Db(), {.no = 18, .name = "佐川宅配伝票"});
  Stage("PC01", {1, 2});
  const struct {
    bool wellnet;
    const char* object;
    long booked;
    std::vector<std::string> numbers;
  } cases[] = {{true, "rptWellNet", 0, {"OLD1", "OLD2", "OLD3"}}, {false, "rptSagawa", 2, {"501", "512", "OLD3"}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.object);
    testing::TestContext env(&Db());
    testing::ListUi ui;
    SelectForm select(env.context, ui);
    select.txtDenNo.text = "500";
    select.chkReDenNo.value = 1;
    env.context.current.report_no = 18;
    CancelledPrint engine;
    PreviewForm preview(env.context, ui, select, engine, c.wellnet);
    ASSERT_TRUE(preview.S_DisplayReport());
    EXPECT_EQ(engine.ran, c.object);
    EXPECT_FALSE(preview.cmdPrint());
    EXPECT_EQ(Count(Db(), "FROM [PRINTED] WHERE [REPORT_NO] = 18"), c.booked);
    EXPECT_EQ(Numbers(), c.numbers);
    if (!c.wellnet) {
      EXPECT_EQ(engine.prints, 1);
      EXPECT_EQ(preview.caption, "印刷プレビュー  [佐川宅配伝票]");
    }
  }
}

TEST_P(DenNoAssignTest, NumbersWithoutObjectGetTheMessageButMailTextsStaySilent) {
  testing::TestContext env(&Db());
  testing::ListUi ui;
  SelectForm select(env.context, ui);
  CancelledPrint engine;
  for (const int report : {2, 24, 100, 9, 15}) {
    env.context.current.report_no = report;
    PreviewForm preview(env.context, ui, select, engine, false);
    EXPECT_FALSE(preview.S_DisplayReport()) << report;
  }
  ASSERT_EQ(ui.texts.size(), 3u);
  EXPECT_EQ(ui.texts[0], "帳票が登録されていません。");
  EXPECT_EQ(ui.styles[0], entry::kExclamation);
  EXPECT_TRUE(engine.ran.empty());
}

LUPIN_INSTANTIATE_ENGINES(DenNoAssignTest);

}  // namespace
}  // namespace lupin::run
