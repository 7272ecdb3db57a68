#pragma once
// The columns of each generation of the Sagawa file.
#include <string>

#include "exchange/ehiden_generation.h"
#include "exchange/ehiden_option.h"
#include "exchange/ehiden_order.h"

namespace lupin::exchange {

// Fields of a data line: 39 in the first two generations, 74 in the third.
int EhidenFieldCount(EhidenGeneration generation);
// Generation III starts with the 75 column names, one more than a data line has.
void AppendEhiden3Header(std::string& out);
void AppendEhidenLine(std::string& out, const EhidenOrder& order, const EhidenOptions& options,
                      EhidenGeneration generation);

}  // namespace lupin::exchange
