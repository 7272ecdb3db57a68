#pragma once
// Loading the chosen report's definition into the context, as each pick in the selection form does.
#include <cstdint>

#include "entry/context.h"

namespace lupin::catalogue {

// Reads the REPORT row of the number into context.current, with the printer settings of
// REPORT.INI in the component directory. A number without a row leaves the definition as it was
// and gives false. Database errors propagate.
bool LoadReportDefinition(entry::Context& context, std::int32_t report_no);

}  // namespace lupin::catalogue
