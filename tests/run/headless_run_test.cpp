#include <gtest/gtest.h>
#include <unistd.h>

#include <nlohmann/json.hpp>

#include <fstream>
#include <sstream>

#include "common/text.h"
#include "run/preview_fixture.h"

namespace lupin::run {
namespace {

using testing::AddOrder;
using testing::Column;
using testing::Count;

class HeadlessRunTest : public testing::SchemaTest {
 protected:
  void SetUp() override {
    SchemaTest::SetUp();
    testing::AddReport(Db(), {.no = 18, .name = "佐川宅配伝票", .where = 1});
    testing::AddReport(Db(), {.no = 4, .name = "注文一覧表"});
    AddOrder(Db(), {.id = 1, .name = "a", .carrier = "佐川急便", .shipped = "2024/04/10"});
    AddOrder(Db(), {.id = 2, .name = "ｂ株式会社", .carrier = "佐川急便", .shipped = "2024/04/11"});
    AddOrder(Db(), {.id = 3, .name = "c", .carrier = "ヤマト運輸", .shipped = "2024/04/11"});
    AddOrder(Db(), {.id = 4, .name = "d", .carrier = "佐川急便", .shipped = "2024/05/01"});
    options = testing::QuietRun(Db(), folder, 18);
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

TEST_P(HeadlessRunTest, SettingsOfTheRunLeaveTheStoresAlone) {
  options.sql_only = true;
  options.date = Range{"2024-04-01", "2024/4/30"};
  options.settings = {{"ListSort", "DESC"}};
  ASSERT_EQ(Run(), kExitDone) << err.str();
  EXPECT_EQ(out.str(),
            "SELECT [CHUMON].* FROM [CHUMON] WHERE ([出荷日] BETWEEN '2024/04/01' AND '2024/04/30') "
            "ORDER BY [CHUMON].[ID] DESC\n")
      << "dates reach the form as YYYY/MM/DD";
  options.settings.clear();
  ASSERT_EQ(Run(), kExitDone);
  EXPECT_EQ(out.str().find("DESC"), std::string::npos) << "the setting was for the first run only";
  EXPECT_FALSE(std::filesystem::exists(folder.Path() / "settings" / "lupin.ini") &&
               testing::ReadBytes(folder.Path() / "settings" / "lupin.ini").find("DESC") != std::string::npos);
}

// The refusals of the payment list and of a missing database file are pinned by the command-line script.
TEST_P(HeadlessRunTest, RefusalsNameTheOptionTheValueAndWhatIsExpected) {
  struct Case {
    const char* what;
    void (*set)(RunOptions&);
    int code;
    const char* message;
  };
  const Case cases[] = {
      {"no date", [](RunOptions& o) { o.date = Range{"2024/02/30", "2024/03/01"}; }, kExitUsage,
       "--date の値 '2024/02/30:2024/03/01' の '2024/02/30' は日付ではありません。"},
      {"reversed", [](RunOptions& o) { o.date = Range{"2024/03/30", "2024/3/1"}; }, kExitUsage,
       "--date の範囲 '2024/03/30:2024/3/1' は終わり (2024/03/01) が始め (2024/03/30) より前です。"},
      {"id", [](RunOptions& o) { o.id = Range{"9", "x"}; }, kExitUsage, "--id の値 '9:x' の 'x' は番号ではありません。"},
      {"shop", [](RunOptions& o) { o.shop = "Z"; }, kExitUsage, "--shop の値 'Z' のショップはありません。"},
      {"report", [](RunOptions& o) { o.report = 77; }, kExitUsage, "18 (佐川宅配伝票)"},
      {"letters for a waybill", [](RunOptions& o) { o.denno = "abc"; }, kExitUsage,
       "--denno の値 'abc' は佐川急便の伝票番号ではありません。12 桁の数字"},
      {"empty list", [](RunOptions& o) { o.date = Range{"2030/01/01", "2030/01/31"}; }, kExitNothing,
       "該当するデータがありません。"},
  };
  const RunOptions base = options;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    options = base;
    c.set(options);
    EXPECT_EQ(Run(), c.code);
    EXPECT_NE(err.str().find(c.message), std::string::npos) << err.str();
    EXPECT_TRUE(out.str().empty() || c.code == kExitNothing) << out.str();
  }
  EXPECT_EQ(Count(Db(), "FROM [PRINTED]"), 0);
}

TEST_P(HeadlessRunTest, NoBookkeepingForAReportWithoutPages) {
  Db().Execute("UPDATE [CHUMON] SET [出荷伝票番号] = 'old'");
  options.date = Range{"2024/04/01", "2024/04/30"};
  options.denno = "1234-5678-9013";
  const std::string pdf = (folder.Path() / "slips.pdf").string();
  // Printed, previewed, or only booked: without pages nothing happens.
  const std::pair<PreviewOutputs, bool> runs[] = {
      {{.print = true, .print_pdf = pdf}, false}, {{.pdf = pdf}, false}, {{}, true}};
  for (const auto& [outputs, book] : runs) {
    options.outputs = outputs;
    options.book = book;
    testing::FakeRunner engine;
    engine.has_objects = false;
    err.str("");
    EXPECT_EQ(RunHeadless(options, out, err, &engine), kExitStopped);
    EXPECT_EQ(engine.runs, 0);
    EXPECT_NE(err.str().find("帳票が登録されていません。"), std::string::npos) << err.str();
    EXPECT_EQ(Count(Db(), "FROM [PRINTED]"), 0);
    EXPECT_EQ(Count(Db(), "FROM [CHUMON] WHERE [出荷伝票番号] <> 'old'"), 0);
    EXPECT_FALSE(std::filesystem::exists(pdf));
  }
}

TEST_P(HeadlessRunTest, ListIsATableByDisplayWidthWithItsCriteriaOrJsonWithNamedKeys) {
  options.quiet = false;
  options.date = Range{"2024/04/01", "2024/04/30"};
  options.uncheck = {"2"};
  ASSERT_EQ(Run(), kExitDone) << err.str();
  std::istringstream lines(out.str());
  std::string header, first, second;
  std::getline(lines, header);
  std::getline(lines, first);
  std::getline(lines, second);
  // "ｂ株式会社" is 9 columns wide: one half-width and four full-width characters.
  const auto column = [](const std::string& line, const std::string& text) {
    return text::ByteLen(line.substr(0, line.find(text)));
  };
  EXPECT_EQ(column(first, "2024/04/10"), column(second, "2024/04/11")) << out.str();
  EXPECT_EQ(first.substr(0, 3), "[x]");
  EXPECT_EQ(second.substr(0, 3), "[ ]");
  EXPECT_NE(out.str().find("条件: 出荷日 2024/04/01 〜 2024/04/30、配送業者 「佐川」を含む\n2 件 (チェック 1 件)\n"),
            std::string::npos)
      << out.str();

  options.json = true;
  ASSERT_EQ(Run(), kExitDone) << err.str();
  const auto list = nlohmann::json::parse(out.str());
  EXPECT_EQ(list["count"], 2);
  EXPECT_EQ(list["rows"][1]["id"], 2);
  EXPECT_EQ(list["rows"][1]["checked"], false);
  EXPECT_EQ(list["rows"][1]["name"], "ｂ株式会社");
  EXPECT_EQ(list["criteria"]["出荷日"], "2024/04/01 〜 2024/04/30");

  options.date = Range{"2030/01/01", "2030/01/01"};
  EXPECT_EQ(Run(), kExitNothing);
  EXPECT_EQ(nlohmann::json::parse(out.str())["rows"], nlohmann::json::array());
}

LUPIN_INSTANTIATE_ENGINES(HeadlessRunTest);

// Slips of the demo shop, where the engine has the report object.
class HeadlessWaybillRun : public testing::PreviewRunTest {};

TEST_P(HeadlessWaybillRun, BooksWithTheCheckDigitComputedAndWarnsWhereTheRulesSurprise) {
  Db().Execute("UPDATE [CHUMON] SET [出荷伝票番号] = '' WHERE [ID] > 1");
  Db().Execute("UPDATE [CHUMON] SET [出荷伝票番号] = '999' WHERE [ID] = 1");
  Db().Execute("UPDATE [CHUMON] SET [宅配業者] = CASE WHEN [ID] = 2 THEN '佐川急便' ELSE 'ヤマト運輸' END");
  options.report = 25;
  options.denno = "1234-5678-9019";
  options.book = true;
  ASSERT_EQ(Run(), kExitDone) << err.str();
  const std::string text = err.str();
  EXPECT_NE(text.find("1234-5678-9019 のチェックデジットは計算し直します: 1234-5678-9013 から付番します。"),
            std::string::npos) << text;
  EXPECT_NE(text.find("警告: 一覧に他の配送業者の受注が 1 件あります"), std::string::npos) << text;
  EXPECT_NE(text.find("警告: 伝票番号が既にある受注 1 件の番号を書き換えます。"), std::string::npos) << text;
  ASSERT_NE(text.find("台帳 5 件"), std::string::npos) << text;
  EXPECT_LT(text.find("警告:"), text.find("台帳 5 件")) << "the warnings come before the numbering";
  EXPECT_EQ(Column(Db(), "SELECT [出荷伝票番号] FROM [CHUMON] WHERE [ID] = 1", "出荷伝票番号"),
            std::vector<std::string>{"1234-5678-9013"});
}

TEST_P(HeadlessWaybillRun, OutputsThatCannotBeWrittenOrPrintedBookNothing) {
  std::filesystem::create_directories(File("locked"));
  std::filesystem::permissions(File("locked"), std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
  const bool root = ::access(File("locked").c_str(), W_OK) == 0;  // root writes anywhere
  struct Case {
    const char* what;
    PreviewOutputs outputs;
    std::string message;
  };
  const std::string missing = (File("missing") / "out.pdf").string();
  const std::string no_folder = "に書き込めません。フォルダ '" + File("missing").string() + "' がありません。";
  const Case cases[] = {
      {"unwritable folder", {.print = true, .print_pdf = (File("locked") / "slips.pdf").string()}, "に書き込む権限がありません。"},
      {"missing folder", {.print = true, .print_pdf = missing}, no_folder},
      {"preview into a missing folder", {.pdf = missing}, no_folder},
      {"dump into a missing folder", {.dump = missing}, no_folder},
      {"no such printer", {.print = true, .printer = "NoSuchQueue"}, "--print: "},
      {"no default printer", {.print = true}, "--print: "},
  };
  testing::UseCupsServer("127.0.0.1:9");
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    if (root && c.what == std::string("unwritable folder")) continue;
    options.outputs = c.outputs;
    EXPECT_EQ(Run(), kExitNotOpened);
    EXPECT_NE(err.str().find(c.message), std::string::npos) << err.str();
    EXPECT_EQ(Ledger(54), 0);
    EXPECT_EQ(Count(Db(), "FROM [WK_PRINT]"), 0) << "refused before the staging";
  }
  std::filesystem::permissions(File("locked"), std::filesystem::perms::owner_all);
}

TEST_P(HeadlessWaybillRun, PngRunWritesOnlyItsPagesAndClearsStaleTemporaries) {
  const auto pages = File("pages");
  std::filesystem::create_directories(pages);
  for (const char* name : {"page-0006.png", "page-0012.png", "notes.png"}) std::ofstream(pages / name) << "old";
  std::ofstream(File("pages.pdf.part-999999999-1")) << "left by a killed run";
  std::ofstream(File("pages.pdf.part-" + std::to_string(::getpid()) + "-77")) << "a live process's";
  options.outputs = {.pdf = File("pages.pdf").string(), .png_dir = pages.string()};
  ASSERT_EQ(Run(), kExitDone) << err.str();
  EXPECT_TRUE(std::filesystem::exists(pages / "page-0005.png"));
  EXPECT_FALSE(std::filesystem::exists(pages / "page-0006.png"));
  EXPECT_FALSE(std::filesystem::exists(pages / "page-0012.png"));
  EXPECT_TRUE(std::filesystem::exists(pages / "notes.png")) << "only page images of a run go";
  EXPECT_FALSE(std::filesystem::exists(File("pages.pdf.part-999999999-1")));
  EXPECT_TRUE(std::filesystem::exists(File("pages.pdf.part-" + std::to_string(::getpid()) + "-77")));
  EXPECT_NE(err.str().find("出力しました: " + File("pages.pdf").string() + "\n"), std::string::npos) << err.str();
  EXPECT_NE(err.str().find("出力しました: " + (pages / "page-0005.png").string() + "\n"), std::string::npos);
}

// The request run of report 92 once reached no report object and booked nothing by accident.
TEST_P(HeadlessWaybillRun, TheRequestOfReport92ListsTheCheckedOrdersAndBooksNothing) {
  const auto den_no_before = Column(Db(), "SELECT [出荷伝票番号] FROM [CHUMON] ORDER BY [ID]", "出荷伝票番号");
  options.report = 92;
  options.only = {"2", "4"};
  options.book = true;
  options.outputs.dump = File("request.json").string();
  options.outputs.print = true;
  options.outputs.print_pdf = File("request.pdf").string();
  ASSERT_EQ(Run(), kExitDone) << err.str();
  std::ifstream in(File("request.json"));
  const auto dump = nlohmann::json::parse(in);
  EXPECT_EQ(dump["report"], "rptWellNet");
  std::vector<std::string> ids;
  for (const auto& item : dump["pages"][0]["items"])
    if (item["name"] == "fldID") ids.push_back(item["text"]);
  EXPECT_EQ(ids, (std::vector<std::string>{"0000000002", "0000000004"}));
  EXPECT_EQ(Count(Db(), "FROM [PRINTED]"), 0);
  EXPECT_EQ(Column(Db(), "SELECT [出荷伝票番号] FROM [CHUMON] ORDER BY [ID]", "出荷伝票番号"), den_no_before);
  EXPECT_FALSE(std::filesystem::exists(File("wellnet.csv"))) << "the request run writes no file";
  EXPECT_EQ(testing::PdfInfo(File("request.pdf"), "Pages"), "1") << "the request is printed";

  options.only.clear();
  options.uncheck = {"1", "2", "3", "4", "5"};
  EXPECT_EQ(Run(), kExitNothing) << "nothing checked, nothing shown";
}

LUPIN_INSTANTIATE_ENGINES(HeadlessWaybillRun);

}  // namespace
}  // namespace lupin::run
