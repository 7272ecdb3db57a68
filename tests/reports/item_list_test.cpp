// The item sales list: the work table built from the order lines (renamed items, averages, the
// shipped or ordered date), its sorts, and the page with its footer totals.
#include <gtest/gtest.h>

#include "report_fixture.h"
#include "reports/documents/item_list.h"
#include "reports/documents/list_text.h"

namespace lupin::reports::testing {
namespace {

class ItemListTest : public ReportDb {
 protected:
  void InsertOrders() {
    Insert({.id = 1, .ordered = "2024/06/01",
            .lines = {{"A-100", "緑茶", 1200, 2, 1, "2024/06/03"}, {"B-200", "湯呑", 2500, 1.5, 1, "2024/06/03"}}});
    Insert({.id = 2, .ordered = "2024/06/02",
            .lines = {{"A-100", "緑茶 新茶", 1100, 1, 1, "2024/06/04"}, {"A-100", "緑茶 特選", 1300, 1, 1, "2024/06/05"},
                      {"C-300", "急須", 4000, 1, 0, ""}, {"Z-900", "試供品", 0, 0, 1, "2024/06/04"}}});
    Insert({.id = 3, .ordered = "2024/05/30", .lines = {{"B-200", "湯呑", 2500, 0.25, 1, "2024/06/10"}}, .shop = "S2"});
    Insert({.id = 4, .ordered = "2024/06/20", .lines = {{"D-400", "茶筒", 900, 3, 1, "2024/07/02"}}});
  }
  std::vector<std::string> Column(const engine::PageCollection& pages, const std::string& name) {
    std::vector<std::string> texts;
    for (const auto& page : pages.Pages())
      for (const auto& text : TextsOf(page, name)) texts.push_back(text);
    return texts;
  }
};

TEST_P(ItemListTest, ShippedPeriodSortedByTotalWithRenamedItemsAndAverages) {
  InsertOrders();
  entry::RunValues run;
  run.item_list = {"", "2024/06/01", "2024/06/30", 0, 1};
  const auto pages = Run(35, run);
  ExpectDump(pages, "itemlist_shipped_by_total.json");
  // A-100 sold under three names: the first, marked once; 4,800 over 4 pieces.
  EXPECT_EQ(Column(pages, "fldItemId"), (std::vector<std::string>{"A-100", "B-200", "Z-900"}));
  EXPECT_EQ(Column(pages, "fldItemMei"), (std::vector<std::string>{"緑茶　他", "湯呑", "試供品"}));
  EXPECT_EQ(Column(pages, "fldPrice"), (std::vector<std::string>{"1,200", "2,500", "0"}));
  EXPECT_EQ(Column(pages, "fldCount"), (std::vector<std::string>{"4", "1.75", "0"}));
  EXPECT_EQ(Column(pages, "fldTotal_kei"), (std::vector<std::string>{"4,800", "4,375", "0"}));
  const auto& last = pages.Pages().back();
  EXPECT_EQ(Shown(last, "lblCountKei"), "5.75");
  EXPECT_EQ(Shown(last, "lblTotalAvg"), "9,175");
  EXPECT_EQ(Shown(last, "lblPriceAvg"), "1,596");
}

TEST_P(ItemListTest, OrderDatesShopsAndSortsChooseTheRows) {
  InsertOrders();
  struct Case {
    entry::ItemListFilter filter;
    std::vector<std::string> ids;
  };
  const Case cases[] = {
      // Ordered in June: unshipped lines count, order 3 (May) does not.
      {{"", "2024/06/01", "2024/06/30", 1, 0}, {"A-100", "B-200", "C-300", "D-400", "Z-900"}},
      {{"", "2024/06/01", "2024/06/30", 1, 2}, {"A-100", "D-400", "B-200", "C-300", "Z-900"}},
      {{"S2", "", "", 0, 0}, {"B-200"}},
  };
  for (const auto& c : cases) {
    entry::RunValues run;
    run.item_list = c.filter;
    EXPECT_EQ(Column(Run(35, run), "fldItemId"), c.ids) << c.filter.shop << c.filter.date_kind << c.filter.sort_kind;
  }
}

TEST_P(ItemListTest, NoLinesLeaveAnEmptyTableAndZeroTotals) {
  InsertOrders();
  Db().Execute("INSERT INTO [WK_ITEMLIST]([ITEM_ID]) VALUES('left by another run')");
  entry::RunValues run;
  run.item_list = {"", "2030/01/01", "2030/01/31", 0, 0};
  const auto pages = Run(35, run);
  ASSERT_EQ(pages.Pages().size(), 1u);
  EXPECT_TRUE(TextsOf(pages.Pages()[0], "fldItemId").empty());
  EXPECT_EQ(Shown(pages.Pages()[0], "lblPriceAvg"), "0");
  EXPECT_EQ(Shown(pages.Pages()[0], "lblCountKei"), "0");
}

LUPIN_INSTANTIATE_ENGINES(ItemListTest);

TEST(ItemListInsert, ZeroQuantityWritesNoAverage) {
  EXPECT_EQ(ItemListInsert("A'1", "緑茶", 0, 500),
            "INSERT INTO WK_ITEMLIST([ITEM_ID],[ITEM_MEI],[ITEM_TANKA],[ITEM_QTY],[ITEM_TOTAL])VALUES('A''1','緑茶',0,0,500)");
  EXPECT_EQ(ItemListInsert("A", "緑茶", 3, 1000),
            "INSERT INTO WK_ITEMLIST([ITEM_ID],[ITEM_MEI],[ITEM_TANKA],[ITEM_QTY],[ITEM_TOTAL])VALUES('A','緑茶',"
            "333.333333333333,3,1000)");
}

TEST(QuantityTextOfText, DecimalsAsWritten) {
  const std::pair<const char*, const char*> cases[] = {{"1234", "1,234"}, {" 2.5 ", "2.5"}, {"0.25", "0.25"}, {"1.125", "1.13"}};
  for (const auto& [text, expected] : cases) EXPECT_EQ(QuantityTextOfText(text), expected) << text;
}

}  // namespace
}  // namespace lupin::reports::testing
