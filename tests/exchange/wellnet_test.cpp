// WellNet: the request file's limits and payment term, and the receipts reader with its quotes,
// short lines and zero receipt dates.
#include <gtest/gtest.h>

#include "common/text.h"
#include "exchange/wellnet.h"
#include "exchange_fixture.h"
#include "support/test_databases.h"

namespace lupin::exchange {
namespace {

using namespace lupin::exchange::testing;

TEST(WellNetReceipts, QuotedCommasShortLinesAndZeroReceiptDates) {
  const std::string file =
      "\"顧客コード\",\"顧客番号\",\"郵便番号\",\"住所\",\"氏名\",\"支払期限\",\"金額\",\"収納日\",\"収納時刻\",\"処理日\",\"区分\"\r\n"
      "\"1\",\"0000000301\",\"1638001\",\"東京都新宿区, 都庁\",\"山田\",\"20240501\",\"6290\",\"20240420\",\"1230\",\"20240421\",\"01\"\r\n"
      "2,0000000302,2200012,横浜,鈴木,20240502,12800,0,0,0,01\r\n"  // no receipt date
      "3,0000000303,short\r\n"                                          // too short
      "4,0000000304,2500631,箱根,寿限無,20240504,8800,20240422,0930\n"  // nine fields, LF only
      "5,\"a,b\r\n"                                                       // one quote: every comma splits
      "\"6\",\"0000000306\",\"1\",\"\",\"x\",\"0\",\"1\",\"20240423\",\"1\",\"2\",\"03\",\"extra\"";
  entry::RecordingUi ui;
  clsWellNet wellnet;
  wellnet.ui = &ui;
  wellnet.ReadReceipts(file);
  ASSERT_EQ(wellnet.InputRowCount(), 3);
  const auto& first = wellnet.InputRow(1);
  EXPECT_EQ(first.id, "0000000301");
  EXPECT_EQ(first.Jusyo, "東京都新宿区, 都庁");
  EXPECT_EQ(first.Gaku, 6290);
  EXPECT_EQ(first.NyuYmd, 20240420);
  EXPECT_EQ(first.SyoriYmd, 20240421);
  EXPECT_EQ(first.Kbn, "01");
  EXPECT_EQ(wellnet.InputRow(2).NyuTime, 930);
  EXPECT_EQ(wellnet.InputRow(2).Kbn, "");
  EXPECT_EQ(wellnet.InputRow(3).Kbn, "03");
  ASSERT_EQ(wellnet.SkippedLines().size(), 3u);
  EXPECT_EQ(wellnet.SkippedLines()[0].line, 3);
  EXPECT_EQ(wellnet.SkippedLines()[2].line, 6);
  EXPECT_EQ(ui.count, 3);
  EXPECT_EQ(ui.last_caption, "取込エラー");
  EXPECT_EQ(ui.last_text, "6件目に収納日が格納されていません。\r\nスキップします。");

  // Without DisplayMsg the same lines are skipped in silence; a first line without "顧客" is data.
  entry::RecordingUi quiet;
  wellnet.ui = &quiet;
  wellnet.DisplayMsg = false;
  wellnet.ReadReceipts("9,0000000309,1,a,b,0,1,20240401,1,2\r\n9,x\r\n");
  EXPECT_EQ(wellnet.InputRowCount(), 1);
  EXPECT_EQ(wellnet.SkippedLines().size(), 1u);
  EXPECT_EQ(quiet.count, 0);
}

// An amount beyond a whole number is a fault of the file, reported with nothing read.
TEST(WellNetReceipts, FileWithANumberTooLargeGivesAnErrorAndNoRows) {
  lupin::testing::TempFolder dir{"lupin_wellnet_"};
  clsWellNet wellnet;
  wellnet.DisplayMsg = false;
  wellnet.fileName = dir.Path() / "receipts.csv";
  WriteBytes(wellnet.fileName, text::ToCp932("1,0000000301,1638001,新宿,山田,20240501,6290,20240420,1230,20240421,01\r\n"
                                             "2,0000000302,2200012,横浜,鈴木,20240502,99999999999,20240420,0,0,01\r\n"
                                             "3,0000000303,short\r\n")
                                    .bytes);
  EXPECT_NE(wellnet.InputFile(), 0);
  EXPECT_EQ(wellnet.ErrorMsg, "オーバーフローしました。");
  EXPECT_EQ(wellnet.InputRowCount(), 0);
  EXPECT_TRUE(wellnet.SkippedLines().empty());
}

TEST(WellNetReceipts, SplitsByQuotesOnlyWithTwoOfThem) {
  EXPECT_EQ(SplitWellNetLine("\"a,b\",c"), (std::vector<std::string>{"a,b", "c"}));
  EXPECT_EQ(SplitWellNetLine("a\"b,c"), (std::vector<std::string>{"a\"b", "c"}));
  EXPECT_EQ(SplitWellNetLine(""), (std::vector<std::string>{""}));
}

TEST(WellNetRequest, LimitsTermAndFallbacks) {
  auto db = lupin::testing::FreshDatabase(db::Engine::Sqlite);
  ExportEnv env(*db);
  AddOrder(*db, 7, {{"請求先会社名", ""}, {"請求先氏名", std::string(31, 'n')}, {"請求先郵便番号", "123-4567"},
                    {"請求先住所", "東京都\r\n" + std::string(70, 'a')}, {"請求額", "1200"}, {"請求日", "2026/01/15"}});
  AddOrder(*db, 8, {{"請求先会社名", "株式会社ルパン"}, {"請求先氏名", "山田"}, {"請求日", ""}});
  clsWellNet wellnet;
  wellnet.Database = db.get();
  wellnet.fileName = env.Out();
  wellnet.id = {7, 8, 9};
  const struct {
    int days;
    std::string limit;
  } terms[] = {{30, "20260214"}, {99, ""}, {0, ""}};
  for (const auto& t : terms) {
    wellnet.KigenDays = t.days;
    ASSERT_EQ(wellnet.OutputFile(), 0) << wellnet.ErrorMsg;
    EXPECT_EQ(text::FromCp932(ReadBytes(env.Out())),
              "\"顧客コード\",\"郵便番号\",\"住所\",\"氏名\",\"支払期限\",\"金額\",\"識別ID\",\"通信欄\",\"備考欄\"\r\n"
              "\"0000000007\",\"0001234567\",\"東京都" + std::string(57, 'a') + "\",\"" + std::string(30, 'n') +
                  "\",\"" + t.limit + "\",\"1200\",\"\",\"\",\"\"\r\n"
              "\"0000000008\",\"0000000000\",\"\",\"株式会社ルパン\",\"\",\"0\",\"\",\"\",\"\"\r\n")
        << t.days;
  }
  wellnet.fileName.clear();
  EXPECT_NE(wellnet.OutputFile(), 0);
  EXPECT_EQ(wellnet.ErrorMsg, "出力先が設定されていません。");
}

}  // namespace
}  // namespace lupin::exchange
