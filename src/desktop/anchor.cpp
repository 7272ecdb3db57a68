#include "desktop/anchor.h"

#include <algorithm>
#include <array>

namespace lupin::desktop {

AnchorSides SidesOf(std::string_view tag) {
  struct Word {
    std::string_view word;
    AnchorSides sides;
  };
  static constexpr std::array<Word, 15> kWords{{
      {"LEFT", {false, false, false, false, true}},
      {"TOP", {false, false, false, false, true}},
      {"LEFTTOP", {false, false, false, false, true}},
      {"RIGHT", {true, false, false, false, true}},
      {"RIGHTTOP", {true, false, false, false, true}},
      {"BOTTOM", {false, true, false, false, true}},
      {"LEFTBOTTOM", {false, true, false, false, true}},
      {"RIGHTBOTTOM", {true, true, false, false, true}},
      {"LEFTRIGHT", {false, false, true, false, true}},
      {"LEFTRIGHTTOP", {false, false, true, false, true}},
      {"LEFTRIGHTBOTTOM", {false, true, true, false, true}},
      {"TOPBOTTOM", {false, false, false, true, true}},
      {"LEFTTOPBOTTOM", {false, false, false, true, true}},
      {"RIGHTTOPBOTTOM", {true, false, false, true, true}},
      {"LEFTRIGHTTOPBOTTOM", {false, false, true, true, true}},
  }};
  for (const auto& word : kWords) {
    if (word.word == tag) return word.sides;
  }
  return {};
}

void AnchorLayout::Record(int form_width, int form_height) {
  width_ = form_width;
  height_ = form_height;
  controls_.clear();
}

int AnchorLayout::Add(std::string_view tag, Rect rect, std::string_view type) {
  controls_.push_back({SidesOf(tag), rect, type == "ComboBox"});
  return static_cast<int>(controls_.size()) - 1;
}

std::vector<Rect> AnchorLayout::Resize(int form_width, int form_height) const {
  const int dx = form_width - width_, dy = form_height - height_;
  std::vector<Rect> out;
  out.reserve(controls_.size());
  for (const auto& control : controls_) {
    Rect rect = control.original;
    if (control.sides.known) {
      if (control.sides.move_x) rect.left += dx;
      if (control.sides.move_y) rect.top += dy;
      if (control.sides.grow_x) rect.width = std::max(0, rect.width + dx);
      if (control.sides.grow_y && !control.fixed_height) rect.height = std::max(0, rect.height + dy);
    }
    out.push_back(rect);
  }
  return out;
}

Rect CentreIn(const Rect& work_area, int width, int height) {
  return {work_area.left + (work_area.width - width) / 2, work_area.top + (work_area.height - height) / 2, width,
          height};
}

}  // namespace lupin::desktop
