// Form anchoring: each anchor word moves or sizes its control by the form's change of size, from
// the recorded layout, so going back to the original size restores it exactly.
#include <gtest/gtest.h>

#include "desktop/anchor.h"

namespace lupin::desktop {
namespace {

TEST(Anchor, EachWordKeepsItsSides) {
  struct Row {
    const char* tag;
    Rect grown;  // after the form grew by 40 x 30 from 400 x 300
  };
  const Rect start{10, 20, 100, 50};
  const Row rows[] = {
      {"LEFTTOP", {10, 20, 100, 50}},          {"RIGHT", {50, 20, 100, 50}},
      {"RIGHTTOP", {50, 20, 100, 50}},         {"BOTTOM", {10, 50, 100, 50}},
      {"LEFTBOTTOM", {10, 50, 100, 50}},       {"RIGHTBOTTOM", {50, 50, 100, 50}},
      {"LEFTRIGHT", {10, 20, 140, 50}},        {"LEFTRIGHTBOTTOM", {10, 50, 140, 50}},
      {"TOPBOTTOM", {10, 20, 100, 80}},        {"RIGHTTOPBOTTOM", {50, 20, 100, 80}},
      {"LEFTRIGHTTOPBOTTOM", {10, 20, 140, 80}}, {"", {10, 20, 100, 50}},
      {"left", {10, 20, 100, 50}},  // the words are upper case; anything else is left alone
  };
  AnchorLayout layout;
  layout.Record(400, 300);
  for (const Row& row : rows) layout.Add(row.tag, start);
  const auto grown = layout.Resize(440, 330);
  for (std::size_t i = 0; i < std::size(rows); ++i) EXPECT_EQ(grown[i], rows[i].grown) << rows[i].tag;
  // Smaller than at the start moves right-anchored controls left; the original size restores all.
  EXPECT_EQ(layout.Resize(380, 300)[1], (Rect{-10, 20, 100, 50}));
  const auto restored = layout.Resize(400, 300);
  for (const Rect& rect : restored) EXPECT_EQ(rect, start);
}

TEST(Anchor, ComboBoxesKeepTheirHeightAndSizesNeverGoNegative) {
  AnchorLayout layout;
  layout.Record(400, 300);
  layout.Add("LEFTRIGHTTOPBOTTOM", {0, 0, 100, 22}, "ComboBox");
  layout.Add("LEFTRIGHTTOPBOTTOM", {0, 0, 100, 50});
  const auto grown = layout.Resize(500, 400);
  EXPECT_EQ(grown[0], (Rect{0, 0, 200, 22}));
  EXPECT_EQ(layout.Resize(200, 200)[1], (Rect{0, 0, 0, 0}));
  EXPECT_EQ(CentreIn({0, 0, 1920, 1050}, 801, 600), (Rect{559, 225, 801, 600}));
}

}  // namespace
}  // namespace lupin::desktop
