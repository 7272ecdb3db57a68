#pragma once
// What a read receipts file holds, for a person (a table) or a program (JSON): the kept receipts
// and the skipped lines.
#include <string>

#include "exchange/wellnet.h"

namespace lupin::exchange {

std::string FormatWellNetReceipts(const clsWellNet& wellnet, bool json);

}  // namespace lupin::exchange
