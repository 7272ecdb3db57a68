#pragma once
// WK_SEIKYU: the billing statement's pages for one workstation, built from the staged orders. One
// row is one printed page of ten line slots; each order forms its own statement, and the last page
// of an order names the orders it covers in ID_STRING.
#include <cstdint>
#include <string>
#include <string_view>

#include "entry/context.h"

namespace lupin::reports {

inline constexpr int kSeikyuSlots = 10;

// A line's text on the statement: with name_only (hinmei.txt's mode 1) the name alone, otherwise
// name, colour and size joined by three blanks, leaving out what is empty; at most 50 characters.
std::string SeikyuLineText(std::string_view name, std::string_view color, std::string_view size, bool name_only);

// Rebuilds this workstation's rows; rows of other workstations stay. A fault ends the build
// silently, and the statement prints what the table holds.
void BuildWkSeikyu(entry::Context& context, std::int32_t report_no, bool name_only);

}  // namespace lupin::reports
