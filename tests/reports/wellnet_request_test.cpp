// rptWellNet, the printed request of report 92: the staged orders' billing details as the file
// carries them, with the payment limit of the shop's term, and the totals.
#include <gtest/gtest.h>

#include "common/vb.h"
#include "documents_fixture.h"
#include "reports/documents/wellnet_request.h"

namespace lupin::reports::testing {
namespace {

class WellNetRequestTest : public DocumentsTest {
 protected:
  // The billing columns Insert leaves empty.
  void Bill(int id, const std::string& company, const std::string& person, const std::string& zip,
            const std::string& address, const std::string& bill_date) {
    Db().Execute("UPDATE [CHUMON] SET [請求先会社名] = '" + company + "', [請求先氏名] = '" + person +
                 "', [請求先郵便番号] = '" + zip + "', [請求先住所] = '" + address + "', [請求日] = '" + bill_date +
                 "' WHERE [ID] = " + std::to_string(id));
  }

  engine::PageCollection RunRequest(const std::string& kigen_days) {
    entry::Context context(&Db(), settings::StorePaths::InFolder(home_), home_);
    context.login.client_name = "WS1";
    context.current.report_no = 92;
    context.settings.Override("WellNetKigenDays", kigen_days);
    rptWellNet report(context);
    report.clock = [] { return vb::DateSerialOf(2026, 1, 20) + vb::TimeSerialOf(9, 30, 5); };
    engine::PageCollection pages;
    const auto result = report.Run(pages);
    EXPECT_TRUE(result.ok) << result.fault.description;
    return pages;
  }

  void InsertOrders() {
    Insert({.id = 7, .lines = {{"A-100", "緑茶", 1200, 2}}});
    Bill(7, "", "山田 太郎", "100-0001", "東京都千代田区千代田1-1", "2026/01/15");
    Insert({.id = 12, .lines = {{"B-200", "湯呑", 2500, 1}}});
    Bill(12, "株式会社ルパン・エンタープライズ・インターナショナル", "佐藤 花子", "５３０－０００１",
         "大阪府大阪市北区梅田一丁目一番一号 大阪駅前第一ビルディング 十二階 総務部 気付", "2026/01/31");
    Insert({.id = 30, .lines = {}});
    Bill(30, "", "鈴木 一郎", "", "北海道札幌市中央区北一条西1-1", "");
    Insert({.id = 31, .name = "別端末", .lines = {{"A-100", "緑茶", 1200, 1}}, .staged = false});
  }
};

TEST_P(WellNetRequestTest, GoldenPageDumpOfTheStagedOrders) {
  InsertOrders();
  ExpectGolden(RunRequest("30"), "wellnet/request_30_days.json");
}

TEST_P(WellNetRequestTest, TheLimitFollowsTheTermAndTheFooterCountsTheStagedOrders) {
  InsertOrders();
  struct Case {
    const char* days;
    std::vector<std::string> limits;
    const char* term;
  };
  const Case cases[] = {
      {"30", {"2026/02/14", "2026/03/02", ""}, "支払期限: 請求日から 30 日"},
      {"99", {"", "", ""}, "支払期限なし"},
      {"0", {"", "", ""}, "支払期限なし"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.days);
    const auto pages = RunRequest(c.days);
    ASSERT_EQ(pages.Pages().size(), 1u);
    const auto& page = pages.Pages()[0];
    EXPECT_EQ(TextsOf(page, "fldKigen"), c.limits);
    EXPECT_EQ(TextOf(page, "lblTerm"), c.term);
    EXPECT_EQ(TextsOf(page, "fldID"), (std::vector<std::string>{"0000000007", "0000000012", "0000000030"}));
    EXPECT_EQ(TextsOf(page, "fldSimei"),
              (std::vector<std::string>{"山田 太郎", "株式会社ルパン・エンタープライズ・インターナショナル", "鈴木 一郎"}));
    EXPECT_EQ(TextOf(page, "lblCount"), "3 件");
    EXPECT_EQ(TextOf(page, "lblTotal"), "8,290");  // 3,530 + 3,630 + 1,130; the other workstation's order not
  }
}

LUPIN_INSTANTIATE_ENGINES(WellNetRequestTest);

}  // namespace
}  // namespace lupin::reports::testing
