#pragma once
// modAnchor: controls keep their distance to the sides their Tag names when a form is resized.
// Positions are recorded once at load; each resize computes from the recorded values, so going back
// to the original size gives back exactly the original layout.
#include <string>
#include <string_view>
#include <vector>

namespace lupin::desktop {

struct Rect {
  int left = 0, top = 0, width = 0, height = 0;
  friend bool operator==(const Rect&, const Rect&) = default;
};

// Which edges an anchor word keeps in place.
struct AnchorSides {
  bool move_x = false;   // left moves by dx
  bool move_y = false;   // top moves by dy
  bool grow_x = false;   // width grows by dx
  bool grow_y = false;   // height grows by dy
  bool known = false;    // false for an empty or unknown word: the control is not touched
};

AnchorSides SidesOf(std::string_view tag);

class AnchorLayout {
 public:
  // Records the form's inner size; controls follow with Add.
  void Record(int form_width, int form_height);
  // Returns the control's index. type is the control's type name: a "ComboBox" keeps its height.
  int Add(std::string_view tag, Rect rect, std::string_view type = "");
  // Where each control goes for the form's new inner size, in the order they were added.
  std::vector<Rect> Resize(int form_width, int form_height) const;
  int Count() const { return static_cast<int>(controls_.size()); }

 private:
  struct Control {
    AnchorSides sides;
    Rect original;
    bool fixed_height = false;
  };
  int width_ = 0, height_ = 0;
  std::vector<Control> controls_;
};

// Where a window of this size goes in the middle of the work area, by whole-number division.
Rect CentreIn(const Rect& work_area, int width, int height);

}  // namespace lupin::desktop
