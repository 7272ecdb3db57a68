#pragma once
// The statement the carrier slips other than Yamato's read their orders with: the staged row and
// the order's columns named one by one, since both tables hold an ID.
#include <string>

#include "entry/context.h"

namespace lupin::reports {

// "SELECT [WK_PRINT].*, [CHUMON].[ID],… FROM [CHUMON], [WK_PRINT] WHERE …" for this workstation,
// in the print list's order.
std::string StagedOrderQuery(const entry::Context& context);

}  // namespace lupin::reports
