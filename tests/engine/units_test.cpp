// Millimetres to twips by the system's factor, paper sizes, and the late-bound property set.
#include <gtest/gtest.h>

#include "engine/control.h"
#include "engine/page_settings.h"
#include "engine/units.h"

namespace lupin::engine {
namespace {

struct TwipsCase {
  float tenths;
  int mode;
  std::int32_t twips;
};

class TenthsToTwips : public ::testing::TestWithParam<TwipsCase> {};

TEST_P(TenthsToTwips, Converts) {
  EXPECT_EQ(TenthsMmToTwips(GetParam().tenths, GetParam().mode), GetParam().twips)
      << GetParam().tenths << " mode " << GetParam().mode;
}

INSTANTIATE_TEST_SUITE_P(
    Modes, TenthsToTwips,
    ::testing::Values(TwipsCase{105, 0, 595},   // 595.35
                      TwipsCase{100, 0, 567}, TwipsCase{50, 0, 284},  // 283.5: half to even, up
                      TwipsCase{150, 0, 850},                          // 850.5: half to even, down
                      TwipsCase{105, 1, 595}, TwipsCase{109, 1, 618},  // 618.03
                      TwipsCase{-10, 1, -57},                          // cut down, not towards zero
                      TwipsCase{105, 2, 596}, TwipsCase{100, 2, 567}, TwipsCase{109, 2, 618},
                      TwipsCase{105, 7, 595}));  // another mode acts as 0

TEST(MillimetresToTwips, RoundsToTenthsFirst) {
  const std::pair<float, std::int32_t> cases[] = {{10.5f, 595}, {10.25f, 578}, {10.0f, 567}, {0.0f, 0}, {250.5f, 14203}};
  for (const auto& [mm, twips] : cases) EXPECT_EQ(MmToTwips(mm), twips) << mm;
}

TEST(PaperSizes, KnownCodesOrientationAndUserDefined) {
  struct Case {
    PrinterSettings printer;
    std::int32_t width, height;
  };
  const Case cases[] = {
      {{"", kPaperA4, 0, kPortrait}, 11906, 16838},  {{"", kPaperA4, 0, kLandscape}, 16838, 11906},
      {{"", kPaperB5, 0, kPortrait}, 10318, 14570},  {{"", kPaperA5, 0, kPortrait}, 8391, 11906},
      {{"", kPaperB4, 0, kPortrait}, 14570, 20636},  {{"", kPaperA3, 0, kPortrait}, 16838, 23811},
      {{"", kPaperLetter, 0, kPortrait}, 12240, 15840}, {{"", kPaperPostcard, 0, kPortrait}, 5669, 8391},
      {{"", kPaperUser, 0, kPortrait, 11397, 6481}, 11397, 6481},
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
  struct Case {
    ControlKind kind;
    const char* property;
    const char* value;
    bool accepted;
  };
  const Case cases[] = {
      {ControlKind::Label, "Alignment", "1", true},     {ControlKind::Label, "alignment", "2", true},
      {ControlKind::Label, "Alignment", "7", false},    {ControlKind::Label, "Alignment", "right", false},
      {ControlKind::Label, "control", "<left>5</left>", false},
      {ControlKind::Label, "Caption", "x", true},       {ControlKind::TextField, "Caption", "x", false},
      {ControlKind::Shape, "Font.Size", "9", false},    {ControlKind::Line, "Font.Name", "x", false},
      {ControlKind::Label, "Visible", "0", true},       {ControlKind::Label, "Left", "12.5mm", false},
  };
  for (const auto& c : cases) {
    Control control(c.kind, "ctl");
    EXPECT_EQ(control.SetProperty(c.property, c.value), c.accepted) << c.property << "=" << c.value;
  }
  Control label(ControlKind::Label, "lbl");
  ASSERT_TRUE(label.SetProperty("Alignment", "1"));
  EXPECT_EQ(label.alignment, Alignment::Right);
  const Control before = label;
  EXPECT_FALSE(label.SetProperty("Alignment", "9"));
  EXPECT_EQ(label.alignment, before.alignment) << "a failed set changes nothing";
}

}  // namespace
}  // namespace lupin::engine
