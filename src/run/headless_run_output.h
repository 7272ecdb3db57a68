#pragma once
// What a batch run shows of its print list: a table aligned by display width with the criteria
// the selection applied and the row count, or the same as JSON with named keys.
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

#include "common/grid.h"

namespace lupin::run {

class SelectForm;

// The criteria the statement was built from, as caption and value, in the form's order; the
// defaults a report checks by itself (today's date, 未印字のみ) included, and the carrier filter.
std::vector<std::pair<std::string, std::string>> AppliedCriteria(const SelectForm& form);

// The visible columns as a table, full-width characters counting two, then the criteria and
// "N 件 (チェック M 件)".
void PrintListTable(const common::Grid& grid, bool customer, const SelectForm& form, std::ostream& out);

// {"report": N, "criteria": {...}, "count": N, "checked": M, "rows": [{...}]}; keys of a row are
// stable English names, numbers are numbers and check marks booleans.
void PrintListJson(const common::Grid& grid, bool customer, const SelectForm& form, std::ostream& out);

// The empty list: {"rows": []} with the report and the criteria.
void PrintEmptyListJson(const SelectForm& form, std::ostream& out);

}  // namespace lupin::run
