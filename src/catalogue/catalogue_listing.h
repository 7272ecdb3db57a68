#pragma once
// The catalogue as an installation has it: the REPORT rows, with what each number does.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "db/connection.h"
#include "entry/catalogue.h"

namespace lupin::catalogue {

struct CatalogueRow {
  std::int32_t report_no = 0;
  std::string report_name;
  bool enabled = false;
  std::int32_t ord = 0;
};

// Every REPORT row in list order (ORD, then number).
std::vector<CatalogueRow> ReadCatalogueRows(db::Connection& connection);

std::string_view OutputKindText(entry::OutputKind kind);  // 帳票, ファイル, なし
std::string_view CarrierText(entry::Carrier carrier);     // "" for none

// An aligned text table, one line per row after a caption line; widths count display columns
// (a full-width character takes two).
std::string FormatCatalogueTable(const std::vector<CatalogueRow>& rows);
// A JSON array of objects, one per row.
std::string FormatCatalogueJson(const std::vector<CatalogueRow>& rows);

}  // namespace lupin::catalogue
