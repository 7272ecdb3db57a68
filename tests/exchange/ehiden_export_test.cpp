// The export flow: a bad row ends the export with its code and message and leaves the old file;
// path, empty selection, write and database failures.
#include <gtest/gtest.h>

#include "exchange_fixture.h"
#include "exchange/ehiden_export.h"
#include "support/test_databases.h"

namespace lupin::exchange {
namespace {

using namespace lupin::exchange::testing;

constexpr EhidenGeneration kGenerations[] = {EhidenGeneration::I, EhidenGeneration::II, EhidenGeneration::III};
const std::string kOldFile = "old file\r\n";

const Fields kGood = {{"住所", "東京都中央区銀座１－１"}, {"電話番号", "03-1111-1111"}, {"郵便番号", "104-0061"}};

struct FailureCase {
  const char* what;
  Fields order;
  std::string grid_name;
  int code;
  std::string message;
};

class EhidenRowFailure : public lupin::testing::EngineTest {};

TEST_P(EhidenRowFailure, EndsTheExportAndKeepsTheOldFile) {
  ExportEnv env(Db());
  AddOrder(Db(), 201, kGood);
  const FailureCase cases[] = {
      {"gift address empty though the orderer has one",
       {{"住所", "東京都"}, {"電話番号", "03"}, {"贈答先氏名", "佐藤"}, {"贈答先電話番号", "06"}}, "山田", 5,
       "ID : 202 の住所が設定されていません。"},
      {"name only full-width blanks", {{"住所", "東京都"}, {"電話番号", "03"}}, "　", 3,
       "ID : 202 の氏名を入力して下さい。"},
      {"telephone only a line break", {{"住所", "東京都"}, {"電話番号", "\r\n"}}, "山田", 5,
       "ID : 202 の電話番号が設定されていません。"},
      {"address is checked before the name", {{"電話番号", "03"}}, "", 5, "ID : 202 の住所が設定されていません。"},
  };
  for (const auto& c : cases) {
    Db().Execute("DELETE FROM [CHUMON] WHERE [ID] = 202");
    AddOrder(Db(), 202, c.order);
    // The good order comes first, so its line was already built when the bad one stops the export.
    const auto grid = MakeGrid({{true, 201, "", "鈴木", "", ""}, {true, 202, "", c.grid_name, "", ""}});
    for (const auto generation : kGenerations) {
      WriteBytes(env.Out(), kOldFile);
      EhidenCsvWriter writer(generation);
      EXPECT_EQ(writer.Export(env.context, env.ui, grid, env.Out()), c.code) << c.what;
      EXPECT_EQ(writer.ErrorText(), c.message) << c.what;
      EXPECT_EQ(ReadBytes(env.Out()), kOldFile) << c.what;
      const auto result = writer.Write(env.context, env.ui, grid, env.Out());
      EXPECT_EQ(result.code, c.code) << c.what;
      EXPECT_EQ(result.message, c.message) << c.what;
    }
  }
}

LUPIN_INSTANTIATE_ENGINES(EhidenRowFailure);

class EhidenExportFlow : public ::testing::Test {
 protected:
  void SetUp() override {
    db_ = lupin::testing::FreshDatabase(db::Engine::Sqlite);
    env_ = std::make_unique<ExportEnv>(*db_);
    AddOrder(*db_, 201, kGood);
  }
  std::unique_ptr<db::Connection> db_;
  std::unique_ptr<ExportEnv> env_;
};

TEST_F(EhidenExportFlow, NameCaptionComesFromTheGridOrDefaultsToName) {
  AddOrder(*db_, 202, {{"住所", "東京都"}, {"電話番号", "03"}});
  const struct {
    std::string caption, message;
  } cases[] = {{"お名前", "ID : 202 のお名前を入力して下さい。"}, {"", "ID : 202 の名前を入力して下さい。"}};
  for (const auto& c : cases) {
    EhidenCsvWriter writer(EhidenGeneration::III);
    const auto grid = MakeGrid({{true, 202, "", "", "", ""}}, c.caption);
    EXPECT_EQ(writer.Export(env_->context, env_->ui, grid, env_->Out()), kEhidenNameMissing);
    EXPECT_EQ(writer.ErrorText(), c.message);
  }
}

// The messages without a path are pinned with every writer's; an unwritable target names the generation.
TEST_F(EhidenExportFlow, WriteFailuresNameTheGeneration) {
  const auto grid = MakeGrid({{true, 201, "", "鈴木", "", ""}});
  const std::pair<EhidenGeneration, std::string> cases[] = {
      {EhidenGeneration::I, "ｅ飛伝データファイルに書込みできませんでした。"},
      {EhidenGeneration::II, "ｅ飛伝Ⅱデータファイルに書込みできませんでした。"},
      {EhidenGeneration::III, "ｅ飛伝Ⅲデータファイルに書込みできませんでした。"},
  };
  for (const auto& [generation, not_written] : cases) {
    EhidenCsvWriter writer(generation);
    EXPECT_EQ(writer.Export(env_->context, env_->ui, grid, env_->dir.Path() / "no_such_folder" / "e.csv"), kExportNotWritten);
    EXPECT_EQ(writer.ErrorText(), not_written);
    // Success leaves the last text on the writer; Write's result carries none.
    EXPECT_EQ(writer.Export(env_->context, env_->ui, grid, env_->Out()), kExportDone);
    EXPECT_EQ(writer.ErrorText(), not_written);
    EXPECT_EQ(writer.Write(env_->context, env_->ui, grid, env_->Out()).message, "");
  }
}

TEST_F(EhidenExportFlow, DatabaseErrorEndsTheExportWithItsDescription) {
  WriteBytes(env_->Out(), kOldFile);
  common::Grid grid = MakeGrid({{true, 201, "", "鈴木", "", ""}, {true, 0, "", "壊れた行", "", ""}});
  grid.SetText(2, 2, "1 OR");  // an id the statement cannot take
  EhidenCsvWriter writer(EhidenGeneration::II);
  EXPECT_EQ(writer.Export(env_->context, env_->ui, grid, env_->Out()), kExportDataError);
  EXPECT_FALSE(writer.ErrorText().empty());
  EXPECT_EQ(ReadBytes(env_->Out()), kOldFile);
}

}  // namespace
}  // namespace lupin::exchange
