#pragma once
// The orders behind the pinned Sagawa files: gifts with and without the shop's ATENA flag, cash on
// delivery, long addresses and names, company and department combinations, every time-zone form.
#include <string>
#include <vector>

#include "ehiden_fixture.h"

namespace lupin::exchange::testing {

// Inserts shops and orders and returns the print list over them, with one unchecked row and one
// row whose order has gone.
std::vector<ListRow> AddGoldenOrders(db::Connection& db);

// Two set-ups of the report: A with every free text, the option file and no hinmei.txt; B with no
// free text (the shop's values), no option file and an item name from hinmei.txt.
void ApplySetupA(entry::Context& context);
void ApplySetupB(entry::Context& context);

}  // namespace lupin::exchange::testing
