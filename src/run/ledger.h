#pragma once
// The print ledger PRINTED and the billing groups SEIKYU_S. A file report books after its file is
// written (the count rises); a page report books at the print command (only the date changes).
#include <cstdint>
#include <string>
#include <string_view>

#include "common/grid.h"
#include "db/connection.h"

namespace lupin::run {

// Today as "YYYYMMDD", the form the ledger keeps.
std::string LedgerDate();

// After a file was written: one ledger row per checked row of sprList, [CNT] + 1 when it exists.
// Runs in one transaction; a database error rolls it back and propagates.
void WriteFileLedger(db::Connection& connection, std::int32_t report_no, const common::Grid& spr_list,
                     std::string_view date);

struct LedgerResult {
  bool ok = true;
  int rows = 0;        // ledger rows written (updated or inserted)
  std::string error;   // the database's message when !ok; everything was rolled back
};

// At the print command of the preview: the general rule over the workstation's WK_PRINT rows, the
// label rule of report 22 (with dedupe every order of the printed person), the billing rule of
// report 24 over WK_SEIKYU; nothing for 35 and 44 to 46.
LedgerResult WritePreviewLedger(db::Connection& connection, std::string_view client_name, std::int32_t report_no,
                                bool dedupe, std::string_view date);

}  // namespace lupin::run
