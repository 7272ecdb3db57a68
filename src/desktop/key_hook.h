#pragma once
// modKeyHook's role: which keys the selection form takes before its controls do. A key reaches the
// rule only while the selection form is the active form; while the input method is composing,
// every key belongs to the input method, so F12 or Enter confirming a conversion never closes the
// form or moves on.
#include <string_view>

namespace lupin::desktop {

inline constexpr int kKeyF12 = 123;

enum class HookAction {
  PassOn,     // the key goes on to the focused control (CallNextHookEx)
  CloseForm,  // F12: the selection form closes
};

struct KeyState {
  std::string_view active_form;  // "frmSelect", "frmPrint" …
  int key_code = 0;              // virtual key code, F12 = 123
  int shift = 0;                 // shift, control, alt bits
  bool ime_open = false;         // the input method is on
  bool ime_composing = false;    // it holds an unconfirmed composition
};

HookAction OnKey(const KeyState& key);

}  // namespace lupin::desktop
