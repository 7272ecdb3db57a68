// The export flow of the three generations: the name caption, write and database failures. (A bad
// row ends the export as it ends every writer's: the rows are in exchange_validation_test.cpp.)
#include <gtest/gtest.h>

#include "exchange_fixture.h"
#include "exchange/ehiden_export.h"
#include "support/test_databases.h"

namespace lupin::exchange {
namespace {

using namespace lupin::exchange::testing;

const std::string kOldFile = "old file\r\n";

const Fields kGood = {{"住所", "東京都中央区銀座１－１"}, {"電話番号", "03-1111-1111"}, {"郵便番号", "104-0061"}};

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
