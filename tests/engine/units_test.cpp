// Millimetres to twips by the system's factor, paper sizes, and the late-bound property set.
#include <gtest/gtest.h>

#include "engine/control.h"
#include "engine/page_settings.h"
#include "engine/units.h"

namespace lupin::engine {
namespace {

TEST(TenthsToTwips, RoundingByMode) {
  struct Case {
    float tenths;
    int mode;
    std::int32_t twips;
  };
  const Case cases[] = {
      {105, 0, 595},  // 595.35
      {50, 0, 284},   // 283.5: half to even, up
      {150, 0, 850},  // 850.5: half to even, down
      {109, 1, 618},  // 618.03
      {-10, 1, -57},  // cut down, not towards zero
      {105, 2, 596},  {105, 7, 595},  // another mode acts as 0
  };
  for (const Case& c : cases) EXPECT_EQ(TenthsMmToTwips(c.tenths, c.mode), c.twips) << c.tenths << " mode " << c.mode;
  const std::pair<float, std::int32_t> millimetres[] = {{10.25f, 578}, {250.5f, 14203}};  // tenths first
  for (const auto& [mm, twips] : millimetres) EXPECT_EQ(MmToTwips(mm), twips) << mm;
}

TEST(PaperSizes, KnownCodesOrientationAndUserDefined) {
  struct Case {
    PrinterSettings printer;
    std::int32_t width, height;
  };
  const Case cases[] = {
      {{"", kPaperA4, 0, kLandscape}, 16838, 11906},  {{"", kPaperB5, 0, kPortrait}, 10318, 14570},
      {{"", kPaperPostcard, 0, kPortrait}, 5669, 8391}, {{"", kPaperUser, 0, kPortrait, 11397, 6481}, 11397, 6481},
      {{"", 999, 0, kPortrait}, 11906, 16838},
  };
  for (const auto& c : cases) {
    std::int32_t width = 0, height = 0;
    SheetSize(c.printer, width, height);
    EXPECT_EQ(width, c.width) << c.printer.PaperSize;
    EXPECT_EQ(height, c.height) << c.printer.PaperSize;
  }
}

TEST(LateBoundSet, AcceptsWhatTheKindHasAndRefusesTheRest) {
  const std::tuple<ControlKind, const char*, const char*, bool> cases[] = {
      {ControlKind::Label, "alignment", "2", true},      {ControlKind::Label, "Alignment", "right", false},
      {ControlKind::Label, "control", "<left>5</left>", false}, {ControlKind::TextField, "Caption", "x", false},
      {ControlKind::Shape, "Font.Size", "9", false},     {ControlKind::Label, "Left", "12.5mm", false},
  };
  for (const auto& [kind, property, value, accepted] : cases)
    EXPECT_EQ(Control(kind, "ctl").SetProperty(property, value), accepted) << property << "=" << value;
  Control label(ControlKind::Label, "lbl");
  ASSERT_TRUE(label.SetProperty("Alignment", "1"));
  EXPECT_EQ(label.alignment, Alignment::Right);
  EXPECT_FALSE(label.SetProperty("Alignment", "9"));
  EXPECT_EQ(label.alignment, Alignment::Right) << "a failed set changes nothing";
}

}  // namespace
}  // namespace lupin::engine
