// The picking lists on a real database: page dumps compared with the golden files, and the rules
// of the repeat count the dumps do not show.
#include <gtest/gtest.h>

#include "reports/documents/picking.h"
#include "report_fixture.h"

namespace lupin::reports::testing {
namespace {

class PickingTest : public ReportDb {
 protected:
  void SetUp() override {
    ReportDb::SetUp();
    Db().Execute("UPDATE [ITEM] SET [TANI] = '個' WHERE [ITEM_ID] = 'B-200'");
    now_ = vb::DateSerialOf(2024, 6, 1) + vb::TimeSerialOf(9, 30, 5);
  }

  engine::PageCollection Run(const std::string& object) {
    return ReportDb::Run(object == "rptPickingSyuDate" ? 54 : 55);
  }
};

// The lines of a picking order: named without the space before their number.
std::vector<OrderLine> PickingLines(int count) {
  auto lines = Lines(count);
  for (auto& line : lines) line.name.erase(line.name.rfind(' '), 1);
  return lines;
}

// A customer's order of a day with its gift, taken by telephone.
Order Picking(int id, int customer, const std::string& ordered, std::vector<OrderLine> lines,
              const std::string& gift_name = "", const std::string& client = "WS1") {
  Order o = DocumentOrder(id, std::move(lines));
  o.customer = customer;
  o.ordered = ordered;
  o.how_ordered = "電話";
  o.kana = "ヤマダ タロウ";
  o.carrier = "ヤマト運輸";
  o.opinion = "午前中に届けてください";
  o.gift_name = gift_name;
  o.gift_address = gift_name.empty() ? "" : "大阪府大阪市北区梅田1-1";
  o.client = client;
  return o;
}

struct GoldenCase {
  const char* golden;
  const char* object;
  std::vector<Order> orders;
};

TEST_P(PickingTest, GoldenPageDumps) {
  const GoldenCase cases[] = {
      {"picking_1_line.json", "rptPickingSyuDate", {Picking(1001, 7, "2024/05/30", PickingLines(1))}},
      {"picking_5_lines.json", "rptPickingSyuDate", {Picking(1002, 7, "2024/05/30", PickingLines(5), "佐藤 花子")}},
      {"picking_20_lines.json", "rptPickingSyuDate", {Picking(1003, 7, "2024/05/30", PickingLines(20))}},
      {"picking_planned_date.json", "rptPickingSyuYDate", {Picking(1004, 7, "2024/05/30", PickingLines(2))}},
      {"picking_repeat_customer.json", "rptPickingSyuDate",
       {Picking(2001, 42, "2024/04/01", PickingLines(1)), Picking(2002, 42, "2024/05/01", PickingLines(1)), Picking(2003, 42, "2024/05/01", PickingLines(1)),
        Picking(2004, 43, "2024/05/01", PickingLines(1))}},
      {"picking_units.json", "rptPickingSyuDate",
       {Picking(3001, 9, "2024/05/30", {{"A-100", "緑茶", 500, 1}, {"Z-999", "廃番品", 300, 2}})}},
  };
  for (const auto& c : cases) {
    ClearOrders();
    for (const auto& order : c.orders) Insert(order);
    ExpectDump(Run(c.object), c.golden);
  }
}

TEST_P(PickingTest, RepeatCountCountsEarlierOrdersOfTheCustomerByIdAndDate) {
  // 5003 is older by number but dated later than 5004: it is not counted for 5004.
  for (const Order& order : std::vector<Order>{Picking(5001, 0, "2024/01/10", PickingLines(1)),
                                               Picking(5002, 11, "2024/02/10", PickingLines(1)),
                                               Picking(5003, 11, "2024/03/20", PickingLines(1)),
                                               Picking(5004, 11, "2024/03/10", PickingLines(1)),
                                               Picking(5005, 11, "2024/03/10", PickingLines(1)),
                                               Picking(5006, 0, "2024/03/10", PickingLines(1)),
                                               Picking(5007, 12, "2024/03/10", PickingLines(1), "", "WS2")})
    Insert(order);
  const auto pages = Run("rptPickingSyuDate");
  const std::vector<std::pair<std::string, std::string>> expected = {
      {"5001", "0"}, {"5002", "0"}, {"5003", "1"}, {"5004", "1"}, {"5005", "2"}, {"5006", "1"}};
  ASSERT_EQ(pages.Pages().size(), expected.size()) << "WS2's order is not on this workstation's list";
  for (std::size_t p = 0; p < expected.size(); ++p) {
    EXPECT_EQ(Shown(pages.Pages()[p], "fldID"), expected[p].first);
    EXPECT_EQ(Shown(pages.Pages()[p], "lblRepeat"), expected[p].second) << expected[p].first;
  }
}

TEST_P(PickingTest, TheStatementIsExact) {
  entry::Context context(&Db(), settings::StorePaths::InFolder(home_), home_);
  context.login.client_name = "O'Brien";
  rptPickingSyuDate report(context);
  const std::string sql = report.Query();
  EXPECT_EQ(sql.rfind("SELECT [WK_PRINT].*, [CHUMON].[ID] as [ID],[顧客NO],[受注方法],", 0), 0u) << sql;
  EXPECT_NE(sql.find("[宅配業者],[商品ID1],[商品名1],[商品カラー1],[商品サイズ1],[単価1],[注文数量1],[小計1],[商品ID2]"),
            std::string::npos);
  const std::string tail = "[のし],[のしコメント],[ショップID] FROM [CHUMON], [WK_PRINT]  WHERE [CHUMON].[ID] = [WK_PRINT].[ID]"
                           " AND [WK_PRINT].[CLIENT_NAME] ='O''Brien' ORDER BY [CHUMON].[ID]";
  ASSERT_GE(sql.size(), tail.size());
  EXPECT_EQ(sql.substr(sql.size() - tail.size()), tail);
}

LUPIN_INSTANTIATE_ENGINES(PickingTest);

TEST(QuantityText, DecimalsOnlyAsNeeded) {
  const std::pair<double, const char*> cases[] = {{1234, "1,234"}, {0.25, "0.25"}, {1.999, "2"}, {1000.05, "1,000.05"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(QuantityText(value), text) << value;
}

}  // namespace
}  // namespace lupin::reports::testing
