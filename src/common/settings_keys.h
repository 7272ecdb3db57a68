#pragma once
// Which store a numbered key lives in; the key names themselves are declared in settings.h.
#include <string_view>

namespace lupin::settings {

// True when reading the number goes to the machine store.
bool IsMachineKeyOnRead(int number);
// True when writing the number (or, for a by-name write, the resolved name) goes to the machine store.
bool IsMachineKeyOnWrite(int number, std::string_view name);

}  // namespace lupin::settings
