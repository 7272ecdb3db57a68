#include <gtest/gtest.h>

#include <sstream>

#include "run/headless_run.h"
#include "run/run_db_support.h"
#include "run/run_test_support.h"
#include "support/test_databases.h"

namespace lupin::run {
namespace {

using testing::AddOrder;
using testing::Column;
using testing::Count;

class HeadlessRunTest : public lupin::testing::EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    entry::CreateSchema(Db());
    testing::AddReport(Db(), {.no = 18, .name = "佐川宅配伝票", .where = 1});
    testing::AddReport(Db(), {.no = 4, .name = "注文一覧表"});
    AddOrder(Db(), {.id = 1, .name = "a", .carrier = "佐川急便", .shipped = "2024/04/10"});
    AddOrder(Db(), {.id = 2, .name = "b", .carrier = "佐川急便", .shipped = "2024/04/11"});
    AddOrder(Db(), {.id = 3, .name = "c", .carrier = "ヤマト運輸", .shipped = "2024/04/11"});
    AddOrder(Db(), {.id = 4, .name = "d", .carrier = "佐川急便", .shipped = "2024/05/01"});
    options.db_url = lupin::testing::UrlOf(Db());
    options.home = folder.Path().string();
    options.settings_dir = (folder.Path() / "settings").string();
    options.client_name = "PC01";
    options.report = 18;
    options.quiet = true;
  }
  int Run() {
    out.str("");
    err.str("");
    return RunHeadless(options, out, err);
  }
  testing::TempFolder folder;
  RunOptions options;
  std::ostringstream out, err;
};

TEST_P(HeadlessRunTest, PrintsTheStatementOfTheFormState) {
  options.sql_only = true;
  options.date = Range{"2024/04/01", "2024/04/30"};
  options.settings = {{"ListSort", "DESC"}};
  ASSERT_EQ(Run(), 0) << err.str();
  EXPECT_EQ(out.str(),
            "SELECT [CHUMON].* FROM [CHUMON] WHERE ([出荷日] BETWEEN '2024/04/01' AND '2024/04/30') "
            "ORDER BY [CHUMON].[ID] DESC\n");
  options.clear_criteria = true;
  options.date.reset();
  options.unprinted = true;
  options.settings.clear();
  ASSERT_EQ(Run(), 0);
  EXPECT_EQ(out.str(),
            "SELECT [CHUMON].* FROM [CHUMON] WHERE [ID] NOT IN (SELECT [ID] FROM [PRINTED] WHERE [REPORT_NO] = 18) "
            "ORDER BY [CHUMON].[ID] DESC\n")
      << "the setting written by the first run stays";
}

TEST_P(HeadlessRunTest, ADateThatIsNoDateStopsBeforeAnySql) {
  options.sql_only = true;
  options.date = Range{"2024/04/01", "2024/13/45"};
  EXPECT_EQ(Run(), 1);
  EXPECT_TRUE(out.str().empty());
  EXPECT_NE(err.str().find("日付を入力してください。"), std::string::npos);
}

TEST_P(HeadlessRunTest, BooksLedgerAndWaybillsForTheCheckedOrders) {
  options.date = Range{"2024/04/01", "2024/04/30"};
  options.uncheck = {"2"};
  options.denno = " 1234-5678-9019 ";
  options.book = true;
  ASSERT_EQ(Run(), 0) << err.str();
  EXPECT_EQ(Column(Db(), "SELECT [ID] FROM [WK_PRINT] WHERE [CLIENT_NAME] = 'PC01'", "ID"),
            std::vector<std::string>{"1"}) << "order 3 is Yamato's, order 4 out of range, order 2 unchecked";
  EXPECT_EQ(Count(Db(), "FROM [PRINTED] WHERE [REPORT_NO] = 18 AND [ID] = 1"), 1);
  EXPECT_EQ(Column(Db(), "SELECT [出荷伝票番号] FROM [CHUMON] WHERE [ID] = 1", "出荷伝票番号"),
            std::vector<std::string>{"1234-5678-9013"});

  options.no_redenno = true;
  options.denno = "999";
  ASSERT_EQ(Run(), 0);
  EXPECT_EQ(Column(Db(), "SELECT [出荷伝票番号] FROM [CHUMON] WHERE [ID] = 1", "出荷伝票番号"),
            std::vector<std::string>{"1234-5678-9013"}) << "a cleared 再度付番する numbers nothing";
}

// A runner that shows which object ran and counts the prints.
class RecordingRunner : public PreviewRunner {
 public:
  bool Run(entry::Context&, std::string_view object) override {
    ran = object;
    return true;
  }
  int RecordCount() const override { return 1; }
  bool Print() override { return ++prints, true; }
  int Pages() const override { return 1; }
  std::string ran;
  int prints = 0;
};

TEST_P(HeadlessRunTest, PagesOfReport92AreTheRequestForMaterialAndBookNothing) {
  testing::AddReport(Db(), {.no = 92, .name = "WELLNETコンペイ君"});
  options.report = 92;
  options.outputs.print = true;
  options.outputs.print_pdf = (folder.Path() / "siryo.pdf").string();
  RecordingRunner runner;
  out.str("");
  err.str("");
  ASSERT_EQ(RunHeadless(options, out, err, &runner), 0) << err.str();
  EXPECT_EQ(runner.ran, "rptWellNet");
  EXPECT_EQ(runner.prints, 1);
  EXPECT_EQ(Count(Db(), "FROM [PRINTED]"), 0);
  EXPECT_FALSE(std::filesystem::exists(folder.Path() / "wellnet.csv")) << "the request run writes no file";
}

TEST_P(HeadlessRunTest, OnlyChecksTheNamedRowsAndPrintsTheTable) {
  options.quiet = false;
  options.report = 4;
  options.only = {"2", "4"};
  ASSERT_EQ(Run(), 0) << err.str();
  EXPECT_EQ(Column(Db(), "SELECT [ID] FROM [WK_PRINT] ORDER BY [ID]", "ID"), (std::vector<std::string>{"2", "4"}));
  EXPECT_NE(out.str().find("[x]\t2\t"), std::string::npos) << out.str();
  EXPECT_NE(out.str().find("[ ]\t1\t"), std::string::npos) << out.str();
}

TEST_P(HeadlessRunTest, StopsWithAMessageWhenNothingIsFoundOrTheReportIsUnknown) {
  options.date = Range{"2030/01/01", "2030/01/31"};
  EXPECT_EQ(Run(), 1);
  EXPECT_NE(err.str().find("該当するデータがありません。"), std::string::npos);
  options.report = 77;
  EXPECT_EQ(Run(), 2);
}

LUPIN_INSTANTIATE_ENGINES(HeadlessRunTest);

}  // namespace
}  // namespace lupin::run
