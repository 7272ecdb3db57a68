#pragma once
// Turns the state of the selection form into the statement of the print list, or into the filter
// values of the aggregating reports. It only builds text; the form validated the entries.
#include <cstdint>
#include <string>
#include <string_view>

#include "run/selection.h"

namespace lupin::run {

class SelectForm;

// list_sort is the raw ListSort setting, appended after the order key.
Selection BuildSelection(const SelectForm& form, std::string_view list_sort);

// The exclusion sub-select of "未印字のみ" for a report number (mapped to its ledger number).
std::string PrintedExclusion(std::int32_t report_no);

}  // namespace lupin::run
