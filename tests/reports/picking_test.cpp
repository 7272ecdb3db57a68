// The picking lists on a real database: page dumps compared with the golden files, and the rules
// of the repeat count the dumps do not show.
#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "common/vb.h"
#include "engine/json_dump.h"
#include "engine/page_collection.h"
#include "entry/schema.h"
#include "reports/documents/picking.h"
#include "support/test_databases.h"
#include "support/golden_files.h"

namespace lupin::reports {
namespace {

struct Line {
  std::string id, name, color, size;
  int price;
  std::string quantity;
};

struct Order {
  int id;
  int customer;
  std::string ordered;   // 受注日
  std::vector<Line> lines;
  std::string gift_name = "";
  std::string client = "WS1";
};

class PickingTest : public lupin::testing::EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    entry::CreateSchema(Db());
    home_ = std::filesystem::temp_directory_path() / ("lupin_picking_" + std::to_string(::getpid()));
    std::filesystem::create_directories(home_);
    Db().Execute("INSERT INTO [ITEM]([ITEM_ID],[ITEM_NAME],[TANI],[SHOP_ID]) VALUES('A-100','緑茶','袋','S1')");
    Db().Execute("INSERT INTO [ITEM]([ITEM_ID],[ITEM_NAME],[TANI],[SHOP_ID]) VALUES('B-200','湯呑','個','S1')");
    Db().Execute("INSERT INTO [ITEM]([ITEM_ID],[ITEM_NAME],[TANI],[SHOP_ID]) VALUES('A-100','緑茶','箱','S2')");
  }
  void TearDown() override {
    std::error_code ignored;
    std::filesystem::remove_all(home_, ignored);
  }

  void Insert(const Order& order) {
    std::string columns = "[ID],[顧客NO],[顧客番号],[受注日],[出荷日],[出荷予定日],[受注方法],[会社名],[所属],[氏名],[氏名カナ],"
                          "[郵便番号],[住所],[電話番号],[メールアドレス],[支払方法],[宅配業者],[意見],[商品代金],[送料],"
                          "[決済手数料],[消費税],[ポイント利用],[請求額],[ショップID],[贈答先氏名],[贈答先住所],[のし]";
    const std::string id = std::to_string(order.id);
    std::string values = id + "," + std::to_string(order.customer) + "," + std::to_string(order.customer) + ",'" +
                         order.ordered + "','2024/06/03','2024/06/02','電話','株式会社見本','営業部','山田 太郎','ヤマダ タロウ',"
                         "'100-0001','東京都千代田区千代田1-1\r\n見本ビル3階','03-1234-5678','taro@example.jp','代金引換',"
                         "'ヤマト運輸','午前中に届けてください',";
    int goods = 0;
    for (const auto& line : order.lines) goods += static_cast<int>(line.price * vb::Val(line.quantity));
    values += std::to_string(goods) + ",800,330," + std::to_string(goods / 10) + ",0," +
              std::to_string(goods + 1130 + goods / 10) + ",'S1','" + order.gift_name + "','" +
              (order.gift_name.empty() ? "" : "大阪府大阪市北区梅田1-1") + "','" + (order.gift_name.empty() ? "" : "御中元") + "'";
    for (std::size_t n = 0; n < order.lines.size(); ++n) {
      const auto& line = order.lines[n];
      const std::string i = std::to_string(n + 1);
      columns += ",[商品ID" + i + "],[商品名" + i + "],[商品カラー" + i + "],[商品サイズ" + i + "],[単価" + i + "],[注文数量" + i +
                 "],[小計" + i + "]";
      values += ",'" + line.id + "','" + line.name + "','" + line.color + "','" + line.size + "'," +
                std::to_string(line.price) + "," + line.quantity + "," +
                std::to_string(static_cast<int>(line.price * vb::Val(line.quantity)));
    }
    Db().Execute("INSERT INTO [CHUMON](" + columns + ") VALUES(" + values + ")");
    Db().Execute("INSERT INTO [WK_PRINT]([ID],[CLIENT_NAME]) VALUES(" + id + ",'" + order.client + "')");
  }

  engine::PageCollection Run(const std::string& object, const std::string& client = "WS1") {
    entry::Context context(&Db(), settings::StorePaths::InFolder(home_), home_);
    context.login.client_name = client;
    context.current.report_no = object == "rptPickingSyuDate" ? 54 : 55;
    engine::ReportRegistry registry;
    RegisterPickingReports(registry);
    auto report = registry.Create(object, context);
    static_cast<PickingReport&>(*report).clock = [] {
      return vb::DateSerialOf(2024, 6, 1) + vb::TimeSerialOf(9, 30, 5);
    };
    engine::PageCollection pages;
    const auto result = report->Run(pages);
    EXPECT_TRUE(result.ok) << result.fault.description;
    return pages;
  }

  // The dump against tests/golden/NAME; LUPIN_UPDATE_GOLDEN=1 writes it instead.
  void ExpectGolden(const engine::PageCollection& pages, const std::string& name) {
    lupin::testing::ExpectGoldenFile(name, engine::JsonDump(pages.Info(), pages.Pages()),
                                     GetParam() == db::Engine::Sqlite);
  }

  std::filesystem::path home_;
};

std::vector<Line> Lines(int count) {
  std::vector<Line> lines;
  for (int n = 1; n <= count; ++n)
    lines.push_back({n % 2 == 1 ? "A-100" : "B-200", (n % 2 == 1 ? "緑茶 極上 100g" : "湯呑 有田焼") + std::to_string(n),
                     n % 3 == 0 ? "白" : "", n % 4 == 0 ? "L" : "", 1000 + n * 10, std::to_string(n % 3 + 1)});
  return lines;
}

struct GoldenCase {
  const char* golden;
  const char* object;
  std::vector<Order> orders;
};

TEST_P(PickingTest, GoldenPageDumps) {
  const GoldenCase cases[] = {
      {"picking_1_line.json", "rptPickingSyuDate", {{1001, 7, "2024/05/30", Lines(1)}}},
      {"picking_5_lines.json", "rptPickingSyuDate", {{1002, 7, "2024/05/30", Lines(5), "佐藤 花子"}}},
      {"picking_20_lines.json", "rptPickingSyuDate", {{1003, 7, "2024/05/30", Lines(20)}}},
      {"picking_planned_date.json", "rptPickingSyuYDate", {{1004, 7, "2024/05/30", Lines(2)}}},
      {"picking_repeat_customer.json", "rptPickingSyuDate",
       {{2001, 42, "2024/04/01", Lines(1)}, {2002, 42, "2024/05/01", Lines(1)}, {2003, 42, "2024/05/01", Lines(1)},
        {2004, 43, "2024/05/01", Lines(1)}}},
      {"picking_units.json", "rptPickingSyuDate",
       {{3001, 9, "2024/05/30", {{"A-100", "緑茶", "", "", 500, "1"}, {"Z-999", "廃番品", "", "", 300, "2"}}}}},
  };
  for (const auto& c : cases) {
    Db().Execute("DELETE FROM [CHUMON]");
    Db().Execute("DELETE FROM [WK_PRINT]");
    for (const auto& order : c.orders) Insert(order);
    ExpectGolden(Run(c.object), c.golden);
  }
}

// Text of a Detail control on a page.
std::string TextOf(const engine::Page& page, const std::string& name) {
  for (const auto& item : page.items)
    if (item.name == name) return item.text;
  return "<none>";
}

TEST_P(PickingTest, RepeatCountCountsEarlierOrdersOfTheCustomerByIdAndDate) {
  // 5003 is older by number but dated later than 5004: it is not counted for 5004.
  for (const Order& order : std::vector<Order>{{5001, 0, "2024/01/10", Lines(1)},
                                               {5002, 11, "2024/02/10", Lines(1)},
                                               {5003, 11, "2024/03/20", Lines(1)},
                                               {5004, 11, "2024/03/10", Lines(1)},
                                               {5005, 11, "2024/03/10", Lines(1)},
                                               {5006, 0, "2024/03/10", Lines(1)},
                                               {5007, 12, "2024/03/10", Lines(1), "", "WS2"}})
    Insert(order);
  const auto pages = Run("rptPickingSyuDate");
  const std::vector<std::pair<std::string, std::string>> expected = {
      {"5001", "0"}, {"5002", "0"}, {"5003", "1"}, {"5004", "1"}, {"5005", "2"}, {"5006", "1"}};
  ASSERT_EQ(pages.Pages().size(), expected.size()) << "WS2's order is not on this workstation's list";
  for (std::size_t p = 0; p < expected.size(); ++p) {
    EXPECT_EQ(TextOf(pages.Pages()[p], "fldID"), expected[p].first);
    EXPECT_EQ(TextOf(pages.Pages()[p], "lblRepeat"), expected[p].second) << expected[p].first;
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
}  // namespace lupin::reports
