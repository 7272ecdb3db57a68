#pragma once
// Control, section and field names compare as the old engine's collections did.
#include "common/ascii.h"

namespace lupin::engine {

using text::EqualsAsciiNoCase;
constexpr bool EqualsNoCase(std::string_view a, std::string_view b) { return EqualsAsciiNoCase(a, b); }

}  // namespace lupin::engine
