// The digit boxes every form shares (amounts, accounts, telephones, postcodes): which character
// lands in which box, and the two ways of right-aligning a figure.
#include <gtest/gtest.h>

#include "engine/designer.h"
#include "layout/form_fill.h"

namespace lupin::layout {
namespace {

const char* kBoxes = R"({"report": "rptBoxes", "sections": [{"name": "Detail", "type": "Detail", "height": 300,
  "controls": [{"kind": "Label", "name": "lblBox", "count": 6, "left": 0, "step": {"left": 300}, "width": 250, "height": 300}]}]})";

std::string Shown(engine::Section& detail) {
  std::string shown;
  for (int box = 1; box <= 6; ++box) {
    const std::string caption = FormControl(detail, "lblBox" + std::to_string(box)).Caption;
    shown += caption.empty() ? "." : caption;
  }
  return shown;
}

TEST(FillBoxes, OneCharacterABoxBlanksLeftEmpty) {
  const struct {
    int first, last;
    const char* text;
    const char* shown;
  } cases[] = {
      {1, 6, "  1,234", "..1,23"},    // blanks print nothing, the seventh character is dropped
      {1, 6, "12", "12...."},          // boxes beyond the text are cleared of an earlier figure
      {3, 5, "５３０", "99５３０9"},    // a full-width character is one box; other boxes untouched
  };
  for (const auto& c : cases) {
    auto layout = engine::ParseDesigner("rptBoxes.json", kBoxes);
    engine::Section& detail = layout.sections.front();
    FillBoxes(detail, "lblBox", 1, 6, "999999");
    FillBoxes(detail, "lblBox", c.first, c.last, c.text);
    EXPECT_EQ(Shown(detail), c.shown) << c.text;
  }
}

TEST(RightAlignment, AmountsLoseTheirHighDigitsRSetKeepsTheLeft) {
  const struct {
    const char* text;
    int width;
    const char* right_aligned;
    const char* rset;
  } cases[] = {
      {"123", 5, "  123", "  123"},
      {"-50", 7, "    -50", "    -50"},
      {"12345678", 7, "2345678", "1234567"},
      {"５３０", 4, " ５３０", " ５３０"},
      {"", 3, "   ", "   "},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(RightAligned(c.text, c.width), c.right_aligned) << c.text;
    EXPECT_EQ(RSet(c.text, c.width), c.rset) << c.text;
  }
}

}  // namespace
}  // namespace lupin::layout
