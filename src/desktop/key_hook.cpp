#include "desktop/key_hook.h"

namespace lupin::desktop {

HookAction OnKey(const KeyState& key) {
  if (key.active_form != "frmSelect") return HookAction::PassOn;
  if (key.ime_composing) return HookAction::PassOn;
  if (key.key_code == kKeyF12 && key.shift == 0) return HookAction::CloseForm;
  return HookAction::PassOn;
}

}  // namespace lupin::desktop
