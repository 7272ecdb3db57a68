#pragma once
// AssignDenNo: after a slip print, each staged order gets its waybill number from the series that
// starts at the typed number. Its own transaction; a failure rolls back in silence.
#include <string>
#include <string_view>

#include "db/connection.h"

namespace lupin::run {

enum class DenNoOutcome {
  NoStartNumber,  // txtDenNo empty: nothing assigned
  Assigned,
  RolledBack,     // a failure, or chkReDenNo cleared: nothing numbered, no message
};

struct DenNoResult {
  DenNoOutcome outcome = DenNoOutcome::NoStartNumber;
  int numbered = 0;
  std::string error;  // for the log of a batch run; the form shows nothing
};

// count is the number of records the printed report read. The staged orders are numbered in the
// print list's order (list_sort: the ListSort setting), the order the slips were printed in.
DenNoResult AssignDenNo(db::Connection& connection, std::string_view client_name, std::string_view start_number,
                        bool re_den_no, int count, std::string_view list_sort = "");

}  // namespace lupin::run
