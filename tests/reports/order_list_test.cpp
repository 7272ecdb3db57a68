// The order lists: one golden page dump per list kind over the same orders, the money counted
// once per order, the payment-method summary, and a second run of one object.
#include <gtest/gtest.h>

#include "common/vb.h"
#include "report_fixture.h"
#include "reports/documents/list_text.h"
#include "reports/documents/order_list.h"

namespace lupin::reports::testing {
namespace {

class OrderListTest : public ReportDb {
 protected:
  // Five orders: plain, without lines, shipped on two dates, paid, with an unknown method.
  void InsertOrders() {
    InsertPayment("代金引換", 1);
    InsertPayment("銀行振込", 2);
    InsertPayment("クレジット", 3);
    Insert({.id = 101, .ordered = "2024/06/01", .shipped = "2024/06/03",
            .lines = {{"A-100", "緑茶 極上 100g", 1200, 2, 1, "2024/06/03"}, {"B-200", "湯呑 有田焼", 2500, 1.5, 1, "2024/06/03", 2}},
            .gift_name = "佐藤 花子", .gift_postcode = "530-0001", .gift_address = "大阪府大阪市北区梅田1-1"});
    Insert({.id = 102, .name = "鈴木 一郎", .ordered = "2024/06/02", .payment = "銀行振込", .lines = {}});
    Insert({.id = 103, .name = "田中 次郎", .ordered = "2024/06/02", .shipped = "2024/06/05", .payment = "銀行振込",
            .lines = {{"A-100", "緑茶 極上 100g", 1200, 1, 1, "2024/06/03"}, {"C-300", "急須", 4000, 1, 1, "2024/06/05"},
                      {"D-400", "茶筒", 900, 3, 0, ""}},
            .postcode = "060-0001", .address = "北海道札幌市中央区北一条西1-1"});
    Insert({.id = 104, .name = "高橋 三郎", .ordered = "2024/06/03", .shipped = "2024/06/04", .payment = "クレジット",
            .paid = 5330, .paid_date = "2024/06/04", .lines = {{"C-300", "急須", 4000, 1, 1, "2024/06/04", 0}},
            .postcode = "900-0001"});
    Insert({.id = 105, .name = "伊藤 四郎", .ordered = "2024/06/04", .payment = "コンビニ払い", .postage = 600, .fee = 0,
            .lines = {{"A-100", "緑茶 極上 100g", 1200, 0.25, 1, "2024/06/04"}, {"E-500", "茶葉 量り売り", 800, 1.5, 0, ""}},
            .postcode = "530-0001"});
    Insert({.id = 106, .name = "別端末", .lines = {{"A-100", "緑茶", 1200, 1, 1, "2024/06/03"}}, .staged = false});
  }
};

TEST_P(OrderListTest, GoldenPageDumpsOfEveryListKind) {
  InsertOrders();
  const std::pair<std::int32_t, const char*> kinds[] = {{4, "list_4_orders.json"},   {5, "list_5_shipments.json"},
                                                        {6, "list_6_payments.json"}, {7, "list_7_planned.json"},
                                                        {8, "list_8_unpaid.json"},   {28, "list_28_by_postcode.json"}};
  entry::RunValues run;
  run.date_from = "240601";
  run.date_to = "2024/06/30";
  for (const auto& [report_no, golden] : kinds) {
    SCOPED_TRACE(report_no);
    ExpectDump(Run(report_no, run), golden);
  }
}

TEST_P(OrderListTest, WithoutRowsTheListPrintsItsFramesAndZeroTotals) {
  InsertPayment("代金引換", 1);
  const auto pages = Run(5);
  ASSERT_EQ(pages.Pages().size(), 1u);
  const auto& page = pages.Pages()[0];
  EXPECT_EQ(Shown(page, "lblTitle"), "出荷一覧表");
  EXPECT_TRUE(TextsOf(page, "lblId").empty());
  EXPECT_EQ(Shown(page, "lblGoukei_kei"), "0");
  EXPECT_EQ(Shown(page, "1lblShiharai"), "その他");
}

// Totals by hand: the shipment list shows order 103 on 06/03 and 06/05 but counts its money once;
// the unknown method of 105 goes to "その他".
TEST_P(OrderListTest, MoneyCountsOncePerOrderAndByPaymentMethod) {
  InsertOrders();
  const auto pages = Run(5);
  ASSERT_FALSE(pages.Pages().empty());
  const auto& last = pages.Pages().back();
  int footers_103 = 0;
  for (const auto& page : pages.Pages())
    for (const auto& id : TextsOf(page, "lblSeikyu")) footers_103 += id == "9,030";
  EXPECT_EQ(footers_103, 2) << "the footer of each group shows the order's money";
  // Shipped lines: 101, 103 (two dates), 104, 105's first line.
  EXPECT_EQ(Shown(last, "lblSouryo_kei"), "3,000");
  EXPECT_EQ(Shown(last, "lblhandling_kei"), "990");
  EXPECT_EQ(Shown(last, "lblShippingHandling_Kei"), "3,990");
  const int billed = 2400 + 3750 + 1130 + 5200 + 2700 + 1130 + 4000 + 1130 + 300 + 1200 + 600;
  EXPECT_EQ(Shown(last, "lblGoukei_kei"), vb::Format(billed, "#,##0"));
  EXPECT_EQ(Shown(last, "fldSuryo_kei"), "6.75");
  EXPECT_EQ(Shown(last, "fldGaku_kei"), vb::Format(2400 + 3750 + 1200 + 4000 + 4000 + 300, "#,##0"));
  const std::vector<std::pair<std::string, std::string>> methods = {
      {"クレジット", "5,130"}, {"代金引換", "7,280"}, {"銀行振込", "9,030"}, {"その他", "2,100"}};
  for (std::size_t i = 0; i < methods.size(); ++i) {
    EXPECT_EQ(Shown(last, std::to_string(i) + "lblShiharai"), methods[i].first);
    EXPECT_EQ(Shown(last, std::to_string(i) + "lblShiharai_Gaku"), methods[i].second) << methods[i].first;
  }
}

TEST_P(OrderListTest, ASecondRunOfOneObjectAddsThePaymentLabelsAfresh) {
  InsertOrders();
  entry::Context context(&Db(), settings::StorePaths::InFolder(home_), home_);
  context.login.client_name = "WS1";
  context.current.report_no = 4;
  rptList report(context);
  std::vector<std::string> footers;
  for (int run = 0; run < 2; ++run) {
    engine::PageCollection pages;
    ASSERT_TRUE(report.Run(pages).ok);
    std::string labels;
    for (const auto& item : pages.Pages().back().items)
      if (item.section == "ReportFooter") labels += item.name + "=" + item.text + " ";
    footers.push_back(labels);
    EXPECT_EQ(report.SectionByName("ReportFooter")->Controls().Item("0lblShiharai"), nullptr) << "removed at the end";
  }
  EXPECT_EQ(footers[0], footers[1]);
  EXPECT_NE(footers[0].find("3lblShiharai=その他 "), std::string::npos) << footers[0];
}

TEST_P(OrderListTest, TheStatementsAreExact) {
  entry::Context context(&Db(), settings::StorePaths::InFolder(home_), home_);
  context.login.client_name = "O'Brien";
  const std::string from = " FROM (CHUMON LEFT JOIN CHUMON_D ON CHUMON.ID = CHUMON_D.ID) INNER JOIN WK_PRINT ON CHUMON.ID = WK_PRINT.ID";
  const std::pair<std::int32_t, std::string> tails[] = {
      {4, from + " WHERE [WK_PRINT].[CLIENT_NAME] = 'O''Brien' ORDER BY [CHUMON].[ID],[CHUMON_D].[ITEM_NO]"},
      {8, from + " WHERE [CHUMON_D].[ITEM_SYUKKA] = 1 AND ([CHUMON].[入金日] IS NULL OR [CHUMON].[入金日] = '') AND "
                 "[CHUMON].[請求額] > 0 AND [WK_PRINT].[CLIENT_NAME] = 'O''Brien' ORDER BY CHUMON_D.[ITEM_SYUDATE], "
                 "CHUMON.[ID], CHUMON_D.[ITEM_NO]"},
      {28, from + " WHERE CHUMON_D.[ITEM_SYUKKA] = 1 AND [WK_PRINT].[CLIENT_NAME] = 'O''Brien' ORDER BY WK_PRINT.[YUBIN], "
                  "CHUMON_D.[ITEM_SYUDATE], CHUMON.[ID], CHUMON_D.[ITEM_NO]"}};
  for (const auto& [report_no, tail] : tails) {
    context.current.report_no = report_no;
    const std::string sql = rptList(context).Query();
    EXPECT_EQ(sql.rfind("SELECT [CHUMON].[氏名],[CHUMON].[顧客番号],", 0), 0u);
    ASSERT_GE(sql.size(), tail.size());
    EXPECT_EQ(sql.substr(sql.size() - tail.size()), tail) << report_no;
  }
}

LUPIN_INSTANTIATE_ENGINES(OrderListTest);

TEST(NormalizeDateText, GoesByTheLengthOfTheText) {
  const std::pair<const char*, const char*> cases[] = {{"240603", "2024/06/03"},   {"24/06/03", "2024/06/03"},
                                                       {"20240603", "2024/06/03"}, {"2024-06-03", "2024/06/03"},
                                                       {"2024/6/30", "2024/6/30"},   {"", ""}};
  for (const auto& [text, expected] : cases) EXPECT_EQ(NormalizeDateText(text, 2026), expected) << text;
}

}  // namespace
}  // namespace lupin::reports::testing
