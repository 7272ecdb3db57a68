#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "run/file_report_dispatch.h"
#include "run/print_form.h"
#include "run/run_db_support.h"
#include "run/run_test_support.h"
#include "run/select_form.h"
#include "support/test_databases.h"

namespace lupin::run {
namespace {

using testing::AddOrder;
using testing::Count;

TEST(PrintButtonCaption, FollowsTheOutputOfTheReport) {
  const struct {
    int report;
    const char* caption;
  } cases[] = {{89, "CSV出力"},    {99, "CSV出力"},  {100, "ﾌﾟﾚﾋﾞｭｰ"}, {101, "出力"},
               {102, "CSV出力"}, {103, "ﾌﾟﾚﾋﾞｭｰ"}, {104, "CSV出力"},  {18, "ﾌﾟﾚﾋﾞｭｰ"}};
  for (const auto& c : cases) EXPECT_EQ(PrintButtonCaption(c.report), c.caption) << c.report;
}

class PrintFormTest : public testing::SchemaTest {
 protected:
  void SetUp() override {
    SchemaTest::SetUp();
    env = std::make_unique<testing::TestContext>(&Db());
    select = std::make_unique<SelectForm>(env->context, ui);
    select->SQL = "SELECT [CHUMON].* FROM [CHUMON] ORDER BY [CHUMON].[ID] ";
    auto& def = env->context.current;
    def.report_no = 18;
    def.date_label = "出荷日";
    def.date_field = "出荷日";
  }
  PrintForm& Open() {
    form = std::make_unique<PrintForm>(env->context, ui, *select);
    form->ledger_date = [] { return std::string("20240401"); };
    form->Form_Activate();
    return *form;
  }
  std::vector<std::string> Ids() {
    std::vector<std::string> ids;
    for (int row = 1; row <= form->sprList.MaxRows(); ++row) ids.push_back(form->sprList.Text(row, kColId));
    return ids;
  }
  std::unique_ptr<testing::TestContext> env;
  testing::ListUi ui;
  std::unique_ptr<SelectForm> select;
  std::unique_ptr<PrintForm> form;
};

TEST_P(PrintFormTest, CarrierFilterAppliesOnlyWithoutTheIdCriterion) {
  AddOrder(Db(), {.id = 1, .name = "a", .carrier = "佐川急便"});
  AddOrder(Db(), {.id = 2, .name = "b", .carrier = "ヤマト運輸"});
  AddOrder(Db(), {.id = 3, .name = "c", .carrier = ""});
  select->NoCarrierFilter = 1;
  Open();
  EXPECT_EQ(Ids(), std::vector<std::string>{"1"});
  select->NoCarrierFilter = 0;
  Open();
  EXPECT_EQ(Ids(), (std::vector<std::string>{"1", "2", "3"}));
}

TEST_P(PrintFormTest, DedupeDropsTheSecondOrderOfAPersonOnLabelsOnly) {
  AddOrder(Db(), {.id = 1, .name = "山田", .tel = "0311112222"});
  AddOrder(Db(), {.id = 2, .name = "山田", .tel = "0311112222"});
  AddOrder(Db(), {.id = 3, .name = "山田", .tel = "0399999999"});
  AddOrder(Db(), {.id = 4, .name = ""});
  AddOrder(Db(), {.id = 5, .name = ""});
  auto& def = env->context.current;
  def.report_no = 22;
  def.lbl_rpt = 12;
  select->dedupe = 1;
  Open();
  EXPECT_EQ(Ids(), (std::vector<std::string>{"1", "3", "4", "5"}));
  def.lbl_rpt = 0;
  Open();
  EXPECT_EQ(Ids().size(), 5u) << "dedupe needs a label report";
}

TEST_P(PrintFormTest, CollectReportsShowTaxAndTheStampFlagFromThirtyThousandNet) {
  AddOrder(Db(), {.id = 1, .name = "a", .carrier = "佐川", .amount = 33000});
  AddOrder(Db(), {.id = 2, .name = "b", .carrier = "佐川", .amount = 32999});
  AddOrder(Db(), {.id = 3, .name = "c", .carrier = "佐川", .amount = 30000});
  Db().Execute("INSERT INTO [CHUMON_T]([ID],[ZEIRATE1ZEI],[ZEIRATE2ZEI],[ZEIRATE3ZEI]) VALUES(1,2000,800,200)");
  Db().Execute("INSERT INTO [CHUMON_T]([ID],[ZEIRATE1ZEI],[ZEIRATE2ZEI],[ZEIRATE3ZEI]) VALUES(2,3000,0,0)");
  env->context.current.report_no = 19;
  auto& f = Open();
  EXPECT_FALSE(f.sprList.ColHidden(kColTax));
  EXPECT_FALSE(f.sprList.ColHidden(kColStamp));
  const struct {
    int row;
    double tax;
    bool stamp;
  } expected[] = {{1, 3000, true}, {2, 3000, false}, {3, 0, true}};
  for (const auto& e : expected) {
    EXPECT_DOUBLE_EQ(f.sprList.Value(e.row, kColTax), e.tax) << e.row;
    EXPECT_EQ(f.sprList.Value(e.row, kColStamp) != 0, e.stamp) << e.row;
  }
  EXPECT_DOUBLE_EQ(f.OrderTaxTotal(99), 0);
}

TEST_P(PrintFormTest, AnEmptyListSaysSoAndLeavesStagingAlone) {
  Db().Execute("INSERT INTO [WK_PRINT]([ID],[CLIENT_NAME]) VALUES(5,'PC01')");
  auto& f = Open();
  EXPECT_TRUE(f.unloaded);
  ASSERT_EQ(ui.texts.size(), 1u);
  EXPECT_EQ(ui.texts[0], "該当するデータがありません。");
  EXPECT_EQ(ui.captions[0], "印刷一覧");
  EXPECT_EQ(Count(Db(), "FROM [WK_PRINT]"), 1);
}

TEST_P(PrintFormTest, PageReportStagesAndOpensThePreview) {
  AddOrder(Db(), {.id = 1, .name = "a", .carrier = "佐川"});
  AddOrder(Db(), {.id = 2, .name = "b", .carrier = "佐川"});
  auto& f = Open();
  f.cmdAllEject();
  EXPECT_EQ(f.cmdPrint(), PrintOutcome::NothingChecked);
  EXPECT_EQ(ui.texts.back(), "印刷するデータを選択して下さい。");
  f.cmdAllSelect();
  f.sprList.SetChecked(1, false);
  EXPECT_EQ(f.cmdPrint(), PrintOutcome::Preview);
  EXPECT_EQ(ui.shown.back(), "frmPreview");
  EXPECT_EQ(testing::Column(Db(), "SELECT [ID] FROM [WK_PRINT] WHERE [CLIENT_NAME] = 'PC01'", "ID"),
            std::vector<std::string>{"2"});
}

// A writer that records what it was given and answers with a fixed result.
class FakeWriter : public exchange::FileWriter {
 public:
  FakeWriter(exchange::FileResult result, std::string* path) : result_(std::move(result)), path_(path) {}
  exchange::FileResult Write(entry::Context&, entry::Ui&, const common::Grid& grid, const std::filesystem::path& path) override {
    *path_ = path.string() + "|" + std::to_string(grid.CheckedCount());
    return result_;
  }

 private:
  exchange::FileResult result_;
  std::string* path_;
};

TEST_P(PrintFormTest, FileReportsBookOnlyAfterTheWriterSucceeded) {
  AddOrder(Db(), {.id = 1, .name = "a", .carrier = "佐川"});
  AddOrder(Db(), {.id = 2, .name = "b", .carrier = "佐川"});
  env->context.current.report_no = 96;
  env->context.settings.SaveSetting(0, "/tmp/out.csv", "EHidenPath");
  std::string seen;
  auto& f = Open();
  EXPECT_EQ(f.cmdPrintButton.caption, "CSV出力");
  EXPECT_TRUE(f.cmdPathButton.visible);

  f.writer_for = [&](std::int32_t) {
    return std::make_unique<FakeWriter>(exchange::FileResult{2, "出荷データファイルに書込みできませんでした。"}, &seen);
  };
  EXPECT_EQ(f.cmdPrint(), PrintOutcome::Failed);
  EXPECT_EQ(ui.texts.back(), "出荷データファイルに書込みできませんでした。");
  EXPECT_EQ(Count(Db(), "FROM [PRINTED]"), 0);

  f.writer_for = [&](std::int32_t) { return std::make_unique<FakeWriter>(exchange::FileResult{}, &seen); };
  EXPECT_EQ(f.cmdPrint(), PrintOutcome::FileWritten);
  EXPECT_EQ(seen, "/tmp/out.csv|2");
  EXPECT_EQ(ui.texts.back(), "2件出力しました。");
  EXPECT_EQ(Count(Db(), "FROM [PRINTED] WHERE [REPORT_NO] = 91"), 2);
  EXPECT_EQ(Count(Db(), "FROM [WK_PRINT]"), 0) << "a file report stages nothing";

  f.writer_for = [](std::int32_t) { return std::unique_ptr<exchange::FileWriter>(); };
  EXPECT_EQ(f.cmdPrint(), PrintOutcome::Failed);
  EXPECT_EQ(ui.texts.back(), MissingWriterMessage(96));
}

TEST_P(PrintFormTest, DeferredPaymentFilesNeedAPathFirst) {
  AddOrder(Db(), {.id = 1, .name = "a"});
  env->context.current.report_no = 93;
  std::string seen;
  auto& f = Open();
  f.writer_for = [&](std::int32_t) { return std::make_unique<FakeWriter>(exchange::FileResult{}, &seen); };
  EXPECT_EQ(f.cmdPrint(), PrintOutcome::Failed);
  EXPECT_EQ(ui.texts.back(), "出力先を指定して下さい。");
  EXPECT_TRUE(seen.empty());
  EXPECT_EQ(Count(Db(), "FROM [PRINTED]"), 0);
}

TEST_P(PrintFormTest, CustomerReportsFillTheCustomerGrid) {
  Db().Execute("INSERT INTO [CUSTOMER]([顧客NO],[顧客会社名],[顧客名],[住所],[TEL番号],[郵便番号]) "
               "VALUES(42,'社','客','東京都','03-1','150-0001')");
  env->context.current.report_no = 23;
  // Any table name switches to customers, as it switches the query builder.
  env->context.current.other_tbl_name = "KOKYAKU";
  select->SQL = "SELECT * FROM [CUSTOMER] ORDER BY [郵便番号],[顧客NO]";
  auto& f = Open();
  EXPECT_TRUE(f.sprCustomer.Visible());
  EXPECT_FALSE(f.sprList.Visible());
  ASSERT_EQ(f.sprCustomer.MaxRows(), 1);
  EXPECT_EQ(f.sprCustomer.Text(1, kCusNo), "42");
  EXPECT_EQ(f.sprCustomer.Text(1, kCusZip), "1500001");
  EXPECT_TRUE(f.sprCustomer.Checked(1));
  EXPECT_EQ(f.cmdPrint(), PrintOutcome::Preview);
  auto staged = Db().Open("SELECT [SEK_GAKU] FROM [WK_PRINT]");
  ASSERT_FALSE(staged.Eof());
  EXPECT_EQ(staged["SEK_GAKU"].Long(), 42);
}

LUPIN_INSTANTIATE_ENGINES(PrintFormTest);

}  // namespace
}  // namespace lupin::run
