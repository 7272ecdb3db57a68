#pragma once
// The 16-character split of names and addresses in the Sagawa files.
#include <array>
#include <string>
#include <string_view>

#include "exchange/field_text.h"

namespace lupin::exchange {

// Piece 0, 1 or 2 of a text cut into 16-character pieces; pieces 1 and 2 are trimmed before the cut.
std::string Split16(std::string_view text, int part);

// The five lines of a recipient: three of address, two of name (with company and department
// moved where they fit). Inputs are already trimmed and full-width.
std::array<std::string, 5> DistributeAddress(std::string_view address, std::string_view company,
                                             std::string_view department, std::string_view name);

}  // namespace lupin::exchange
