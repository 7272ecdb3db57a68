// Calibration offsets: stored per printer and report, parsed strictly, and applied to every item.
#include <gtest/gtest.h>

#include "catalogue/calibration.h"
#include "support/temp_files.h"

namespace lupin::catalogue {
namespace {

TEST(Calibration, OffsetsAreKeptPerPrinterAndReport) {
  const lupin::testing::TempFolder home("lupin_cal_");
  const CalibrationStore store(home.Path());
  EXPECT_EQ(store.Get("LaserA", 25), CalibrationOffset{});
  ASSERT_TRUE(store.Set("LaserA", 25, {15, -5}));
  ASSERT_TRUE(store.Set("LaserA", 18, {0, 3}));
  EXPECT_EQ(store.Get("LaserA", 25), (CalibrationOffset{15, -5}));
  EXPECT_EQ(store.Get("laserA", 18), (CalibrationOffset{0, 3}));  // sections compare as the profile calls did
  EXPECT_EQ(store.Get("SlipB", 25), CalibrationOffset{});
  EXPECT_FALSE(store.Set("", 25, {1, 1}));

  struct Row {
    const char* text;
    bool ok;
    CalibrationOffset offset;
  };
  for (const Row& r : {Row{"12,-3", true, {12, -3}}, Row{" +4 , 5 ", true, {4, 5}}, Row{"12", false, {}},
                       Row{"1.5,2", false, {}}, Row{",", false, {}}}) {
    CalibrationOffset parsed;
    EXPECT_EQ(ParseOffset(r.text, parsed), r.ok) << r.text;
    if (r.ok) {
      EXPECT_EQ(parsed, r.offset) << r.text;
    }
  }
}

TEST(Calibration, EveryItemMovesAndTheSheetHasItsCrosses) {
  engine::Page page = CalibrationSheet(210, 297, "LaserA", 25);
  // Crosses every 50 mm from 20 mm: 4 across, 6 down on A4; two lines and a label each, and a title.
  EXPECT_EQ(page.items.size(), 2u + 4 * 6 * 3);
  const auto& first_line = page.items[2];
  EXPECT_EQ(first_line.kind, engine::ItemKind::Line);
  EXPECT_EQ(first_line.left, 1134 - 284);  // 20 mm less the 5 mm arm, in twips
  std::vector<engine::PageItem> before = page.items;
  ShiftPage(page, {100, -20});  // 10 mm right, 2 mm up
  for (std::size_t i = 0; i < page.items.size(); ++i) {
    EXPECT_EQ(page.items[i].left - before[i].left, 567);
    EXPECT_EQ(page.items[i].top - before[i].top, -113);
  }
}

}  // namespace
}  // namespace lupin::catalogue
