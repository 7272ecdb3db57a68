#pragma once
// Staging: the checked rows of the print list become the workstation's rows of WK_PRINT, in one
// transaction that first clears the workstation's old rows. Any failure rolls back, so the old
// rows survive.
#include <cstdint>
#include <string>
#include <string_view>

#include "common/grid.h"
#include "db/connection.h"

namespace lupin::run {

struct StagingResult {
  bool ok = false;
  int rows = 0;           // rows inserted
  bool has_data = false;  // at least one row checked (report 27 always)
  std::string error;      // the database's message when !ok
};

// The INSERT of one checked row of sprList (orders) or sprCustomer (customers).
std::string OrderInsert(const common::Grid& grid, int row, std::string_view client_name);
std::string CustomerInsert(const common::Grid& grid, int row, int running_no, std::string_view client_name);

StagingResult StageRows(db::Connection& connection, std::string_view client_name, const common::Grid& grid,
                        bool customer_report, std::int32_t report_no);

}  // namespace lupin::run
