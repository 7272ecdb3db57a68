#pragma once
// The controls of the form models: plain values that a view binds to and the handlers change.
#include <string>

namespace lupin::common {

struct TextBox {
  std::string text;
  bool enabled = true;
  bool visible = true;
};

struct CheckBox {
  int value = 0;  // 0 off, 1 on
  std::string caption;
  bool enabled = true;
  bool visible = true;
  bool Checked() const { return value == 1; }
};

struct Label {
  std::string caption;
  bool visible = true;
};

struct Frame {
  bool visible = true;
  bool enabled = true;
  bool in_front = false;
};

struct Button {
  std::string caption;
  bool visible = true;
  bool enabled = true;
};

}  // namespace lupin::common
