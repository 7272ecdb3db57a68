// rptWellNet, the printed request of report 92: the staged orders' billing details as the file
// carries them, with the payment limit of the shop's term, and the totals.
#include <gtest/gtest.h>

#include "common/vb.h"
#include "report_fixture.h"
#include "engine/text_fit.h"
#include "reports/documents/wellnet_request.h"

namespace lupin::reports::testing {
namespace {

class WellNetRequestTest : public ReportDb {
 protected:
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

  // Billed to the orderer, to a long company at a full-width postcode, and to no one yet.
  void InsertOrders() {
    const auto billed = [](int id, std::vector<OrderLine> lines, std::string person, std::string zip,
                           std::string address, std::string date, std::string company = "") {
      Order o{.id = id, .lines = std::move(lines)};
      o.bill_company = std::move(company);
      o.bill_name = std::move(person);
      o.bill_postcode = std::move(zip);
      o.bill_address = std::move(address);
      o.bill_date = std::move(date);
      return o;
    };
    Insert(billed(7, {{"A-100", "緑茶", 1200, 2}}, "山田 太郎", "100-0001", "東京都千代田区千代田1-1", "2026/01/15"));
    Insert(billed(12, {{"B-200", "湯呑", 2500, 1}}, "佐藤 花子", "５３０－０００１",
                  "大阪府大阪市北区梅田一丁目一番一号 大阪駅前第一ビルディング 十二階 総務部 気付", "2026/01/31",
                  "株式会社ルパン・エンタープライズ・インターナショナル"));
    Insert(billed(30, {}, "鈴木 一郎", "", "北海道札幌市中央区北一条西1-1", ""));
    Insert({.id = 31, .name = "別端末", .lines = {{"A-100", "緑茶", 1200, 1}}, .staged = false});
  }
};

TEST_P(WellNetRequestTest, GoldenPageDumpOfTheStagedOrders) {
  InsertOrders();
  const auto pages = RunRequest("30");
  ExpectDump(pages, "wellnet/request_30_days.json");
  // A full-width postcode, a long address and a long company wrap within their columns.
  engine::TextFitCheck fit;
  for (const auto& cut : fit.Check(pages.Pages().at(0))) ADD_FAILURE() << cut.name << " (" << cut.problem << "): " << cut.text;
  for (const auto& pair : engine::OverlappingTextBoxes(pages.Pages().at(0))) ADD_FAILURE() << pair.first << " overlaps " << pair.second;
}

LUPIN_INSTANTIATE_ENGINES(WellNetRequestTest);

}  // namespace
}  // namespace lupin::reports::testing
