// Each validation message of the Yamato, Amazon and e-飛伝 files, the path and nothing-to-write rules
// of every writer: a failure names the order, and the old file stays as it was.
#include <gtest/gtest.h>

#include "common/text.h"
#include "exchange_fixture.h"
#include "run/file_report_dispatch.h"
#include "support/test_databases.h"

namespace lupin::exchange {
namespace {

using namespace lupin::exchange::testing;

const std::string kOldFile = "old file\r\n";

// An order every writer takes as it is.
const Fields kGood = {{"住所", "東京都中央区銀座１－１"}, {"電話番号", "03-1111-1111"}, {"郵便番号", "104-0061"},
                      {"氏名", "鈴木"}, {"ショップ名", "ルパン"}, {"ショップ電話番号", "03-0000-0000"},
                      {"ショップ郵便番号", "100-0001"}, {"ショップ住所", "東京都千代田区１－１"},
                      {"商品名1", "茶"}, {"宅配業者", "ヤマト運輸"}, {"電子決済受付No", "503-1"},
                      {"支払方法", "銀行振込"}};

Fields Changed(Fields base, const Fields& changes) {
  for (const auto& [name, value] : changes) {
    bool found = false;
    for (auto& field : base)
      if (field.first == name) field.second = value, found = true;
    if (!found) base.emplace_back(name, value);
  }
  return base;
}

struct FailureCase {
  int report_no;
  const char* what;
  Fields changes;
  ListRow row;
  int code;
  std::string message;
};

class ExchangeRowFailure : public lupin::testing::EngineTest {};

TEST_P(ExchangeRowFailure, EndsTheExportAndKeepsTheOldFile) {
  ExportEnv env(Db());
  AddOrder(Db(), 501, kGood);
  const ListRow good{true, 502, "", "鈴木", "1000", "90", "2024/04/10", "A-1"};
  const auto with = [&](auto change) {
    ListRow row = good;
    change(row);
    return row;
  };
  const FailureCase cases[] = {
      {97, "no ship date", {}, with([](ListRow& r) { r.ship_date = ""; }), 3, "ID : 502 の出荷日を入力して下さい。"},
      {97, "ship date no date", {}, with([](ListRow& r) { r.ship_date = "2026/13/01"; }), 4,
       "ID : 502 の出荷日を正しく入力して下さい。"},
      {97, "telephone", {{"電話番号", "\r\n"}}, good, 3, "ID : 502 の電話番号が設定されていません。"},
      {97, "postcode", {{"郵便番号", "-"}}, good, 5, "ID : 502 の郵便番号が設定されていません。"},
      {97, "address", {{"住所", "　"}}, good, 5, "ID : 502 の住所が設定されていません。"},
      {97, "name", {}, with([](ListRow& r) { r.name = " "; }), 3, "ID : 502 の氏名を入力してください。"},
      {97, "shop telephone", {{"ショップ電話番号", ""}}, good, 5, "ID : 502 のショップ電話番号が設定されていません。"},
      {97, "shop postcode", {{"ショップ郵便番号", ""}}, good, 5, "ID : 502 のショップ郵便番号が設定されていません。"},
      {97, "shop address", {{"ショップ住所", ""}}, good, 5, "ID : 502 のショップ住所が設定されていません。"},
      {97, "shop name", {{"ショップ名", ""}}, good, 5, "ID : 502 のショップ名が設定されていません。"},
      {97, "item", {{"商品名1", ""}}, good, 5, "ID : 502 の商品名1が設定されていません。"},
      {97, "amount to collect", {{"支払方法", "代引き"}}, with([](ListRow& r) { r.amount = " "; }), 3,
       "ID : 502 の請求額を入力して下さい。"},
      {97, "tax to collect", {{"支払方法", "代金引換"}}, with([](ListRow& r) { r.tax = ""; }), 5,
       "ID : 502 の消費税が設定されていません。"},
      {97, "payment number", {{"支払方法", "クロネコwebコレクト"}, {"電子決済受付No", ""}}, good, 5,
       "ID : 502 のペイメント申込受付番号が設定されていません。"},
      {90, "I-CATS: ship date", {}, with([](ListRow& r) { r.ship_date = "x"; }), 4,
       "ID : 502 の出荷日を正しく入力して下さい。"},
      {90, "I-CATS: gift name", {{"贈答先氏名", "　"}}, with([](ListRow& r) { r.name = ""; }), 3,
       "ID : 502 の氏名を入力してください。"},
      {101, "Amazon: order number", {{"電子決済受付No", ""}}, good, 3, "ID : 502 の注文番号を入力して下さい。"},
      {101, "Amazon: ship date", {}, with([](ListRow& r) { r.ship_date = ""; }), 3,
       "ID : 502 の出荷日を入力して下さい。"},
      {101, "Amazon: ship date no date", {}, with([](ListRow& r) { r.ship_date = "2026/02/30"; }), 4,
       "ID : 502 の出荷日を正しく入力して下さい。"},
      {101, "Amazon: carrier", {{"宅配業者", ""}}, good, 3, "ID : 502 の宅配業者を入力して下さい。"},
      {101, "Amazon: tracking of cash on delivery", {{"支払方法", "代引き"}, {"出荷伝票番号", "-"}}, good, 3,
       "ID : 502 の出荷伝票番号を入力して下さい。"},
      // The three e-飛伝 generations share their checks; each case runs on another one.
      {91, "e-飛伝: gift address empty though the orderer has one", {{"贈答先氏名", "佐藤"}, {"贈答先電話番号", "06"}},
       good, 5, "ID : 502 の住所が設定されていません。"},
      {96, "e-飛伝Ⅱ: name only full-width blanks", {}, with([](ListRow& r) { r.name = "　"; }), 3,
       "ID : 502 の氏名を入力して下さい。"},
      {104, "e-飛伝Ⅲ: telephone only a line break", {{"電話番号", "\r\n"}}, good, 5,
       "ID : 502 の電話番号が設定されていません。"},
      {91, "e-飛伝: address is checked before the name", {{"住所", ""}}, with([](ListRow& r) { r.name = ""; }), 5,
       "ID : 502 の住所が設定されていません。"},
  };
  for (const auto& c : cases) {
    Db().Execute("DELETE FROM [CHUMON] WHERE [ID] = 502");
    AddOrder(Db(), 502, Changed(kGood, c.changes));
    // The good order comes first, so its line was already built when the bad one stops the export.
    const auto grid = MakeGrid({{true, 501, "", "鈴木", "1000", "90", "2024/04/10", "A-1"}, c.row});
    WriteBytes(env.Out(), kOldFile);
    const auto result = run::FileWriterFor(c.report_no)->Write(env.context, env.ui, grid, env.Out());
    EXPECT_EQ(result.code, c.code) << c.what;
    EXPECT_EQ(result.message, c.message) << c.what;
    EXPECT_EQ(ReadBytes(env.Out()), kOldFile) << c.what;
  }
}

LUPIN_INSTANTIATE_ENGINES(ExchangeRowFailure);

class ExchangeFlow : public ::testing::Test {
 protected:
  void SetUp() override {
    db_ = lupin::testing::FreshDatabase(db::Engine::Sqlite);
    env_ = std::make_unique<ExportEnv>(*db_);
    AddOrder(*db_, 501, kGood);
  }
  std::unique_ptr<db::Connection> db_;
  std::unique_ptr<ExportEnv> env_;
};

TEST_F(ExchangeFlow, NoPathMessagesAndWhatAnEmptySelectionLeaves) {
  const struct {
    int report_no;
    std::string no_path;
    bool head_alone;  // the file is replaced even when no order is written
  } cases[] = {
      {90, "出荷データ出力先が設定されていません。", false}, {97, "出荷データ出力先が設定されていません。", false},
      {95, "出荷データ出力先が設定されていません。", true},  {89, "出荷データ出力先が設定されていません。", true},
      {102, "出荷データ出力先が設定されていません。", true}, {101, "出荷データ出力先が設定されていません。", false},
      {93, "ファイルを開く事が出来ません", true},             {94, "ファイルを開く事が出来ません", true},
      {98, "ファイルを開く事が出来ません", true},             {99, "ファイルを開く事が出来ません", true},
      {92, "出力先が設定されていません。", true},
      // The three e-飛伝 generations by their numbers; the third writes its header line alone.
      {91, "ｅ飛伝データ出力先が設定されていません。", false},  {96, "ｅ飛伝Ⅱデータ出力先が設定されていません。", false},
      {104, "ｅ飛伝Ⅲデータ出力先が設定されていません。", true},
  };
  // Unchecked, and checked but gone.
  const auto grid = MakeGrid({{false, 501, "", "鈴木", "1", "0", "2024/04/10"}, {true, 999, "", "無し"}});
  for (const auto& c : cases) {
    const auto writer = run::FileWriterFor(c.report_no);
    ASSERT_NE(writer, nullptr) << c.report_no;
    const auto no_path = writer->Write(env_->context, env_->ui, grid, "");
    EXPECT_EQ(no_path.code, 1) << c.report_no;
    EXPECT_EQ(no_path.message, c.no_path) << c.report_no;
    WriteBytes(env_->Out(), kOldFile);
    EXPECT_EQ(writer->Write(env_->context, env_->ui, grid, env_->Out()).code, 0) << c.report_no;
    EXPECT_EQ(ReadBytes(env_->Out()) != kOldFile, c.head_alone) << c.report_no;
    const auto unwritable = writer->Write(env_->context, env_->ui, grid, env_->dir.Path() / "no_such" / "x.csv");
    EXPECT_EQ(unwritable.code, c.head_alone ? 2 : 0) << c.report_no;
  }
}

TEST_F(ExchangeFlow, ICatsPadsAShortPostcodeAfterSayingSoAndGoesOn) {
  AddOrder(*db_, 502, Changed(kGood, {{"郵便番号", "123"}, {"ショップ郵便番号", "12-34"}}));
  const auto grid = MakeGrid({{true, 502, "", "鈴木", "1", "0", "2024/04/10"}});
  ASSERT_EQ(run::FileWriterFor(90)->Write(env_->context, env_->ui, grid, env_->Out()).code, 0);
  EXPECT_EQ(env_->ui.count, 2);
  EXPECT_EQ(env_->ui.last_text, "ID : 502 のの依頼主の郵便番号が7桁未満です。左0埋めします。");
  const std::string file = ReadBytes(env_->Out());
  EXPECT_NE(file.find("\"0000123\""), std::string::npos);
  EXPECT_NE(file.find("\"0001234\""), std::string::npos);
}

TEST_F(ExchangeFlow, TheSecondServicesSalesFileFillsChumonT) {
  db_->Execute("INSERT INTO [TAX]([FROM_DATE],[REDUCEDKBN],[RATE],[OLDRATE]) VALUES('2019/10/01',0,10,8)");
  db_->Execute("INSERT INTO [TAX]([FROM_DATE],[REDUCEDKBN],[RATE],[OLDRATE]) VALUES('2019/10/01',1,8,0)");
  AddOrder(*db_, 502, Changed(kGood, {{"受注日", "2024/04/01"}, {"商品ID1", "A"}, {"単価1", "1000"}, {"注文数量1", "1"}}));
  db_->Execute("INSERT INTO [CHUMON_D]([ID],[ITEM_NO],[ITEM_PRICE],[REDUCEDKBN],[ITEM_TAX]) VALUES(502,1,1000,1,0)");
  env_->context.dialect = 0;
  const auto grid = MakeGrid({{true, 502, "", "鈴木"}});
  ASSERT_EQ(run::FileWriterFor(98)->Write(env_->context, env_->ui, grid, env_->Out()).code, 0);
  auto rs = db_->Open("SELECT [ZEIRATE2ZEI] FROM [CHUMON_T] WHERE [ID] = 502");
  ASSERT_FALSE(rs.Eof());
  EXPECT_EQ(rs["ZEIRATE2ZEI"].Long(), 80);
  EXPECT_NE(text::FromCp932(ReadBytes(env_->Out())).find("\"消費税\",80,1,"), std::string::npos);
}

}  // namespace
}  // namespace lupin::exchange
