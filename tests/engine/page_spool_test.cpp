#include <gtest/gtest.h>

#include "engine/json_dump.h"
#include "engine/page_spool.h"
#include "render_test_pages.h"

namespace lupin::engine {
namespace {

// Pages come back from the spool as they went in, with their deferred items, however their
// fields vary: empty and multi-line texts, every kind, colours, fonts, sizes.
TEST(PageSpool, PagesComeBackAsTheyWentIn) {
  std::vector<Page> pages;
  std::vector<std::vector<int>> deferred = {{}, {0, 2}, {1}};
  for (int n = 1; n <= 3; ++n) {
    Page page = test::A4Page(n);
    page.width = 11906 + n;
    page.items.push_back(test::Label("lblPage", n == 2 ? "" : "1 / 3", 100 * n, 200, 3000, 300, "ＭＳ ゴシック", 9 + n));
    page.items.back().font.bold = n == 3;
    page.items.back().alignment = Alignment::Right;
    page.items.push_back(test::Label("lblJusyo", "東京都渋谷区\r\n神宮前3丁目", 500, 900, 3000, 600));
    page.items.back().visible = n != 1;
    page.items.back().word_wrap = false;
    page.items.push_back(test::Item(ItemKind::Barcode, 500, 2600, 4233, 184));
    page.items.back().text = "1500001-3-12";
    page.items.back().barcode_style = "JapanPost";
    page.items.push_back(test::Item(ItemKind::Shape, 400, 300, -5000, 2000));
    page.items.back().shape = ShapeKind::RoundRectangle;
    page.items.back().fore_color = 0x123456;
    page.items.back().back_color = 0xFFEEDD;
    page.items.back().line_weight = 0.75;
    pages.push_back(page);
  }
  PageSpool spool;
  for (std::size_t i = 0; i < pages.size(); ++i) spool.Write(pages[i], deferred[i]);
  ASSERT_EQ(spool.Count(), 3);
  std::vector<Page> back;
  std::vector<std::vector<int>> back_deferred;
  spool.Replay([&](Page& page, const std::vector<int>& indices) {
    back.push_back(page);
    back_deferred.push_back(indices);
  });
  EXPECT_EQ(JsonDump({"rptTest", ""}, back), JsonDump({"rptTest", ""}, pages));
  EXPECT_EQ(back_deferred, deferred);
  for (std::size_t i = 0; i < pages.size(); ++i) {
    EXPECT_EQ(back[i].items[1].visible, pages[i].items[1].visible);
    EXPECT_EQ(back[i].items[0].font.bold, pages[i].items[0].font.bold);
  }
}

}  // namespace
}  // namespace lupin::engine
