#pragma once
// The current report definition: the REPORT row of the chosen number, with REPORT.INI overrides.
#include <array>
#include <cstdint>
#include <string>

namespace lupin::entry {

struct ReportDefinition {
  std::int32_t report_no = 0;
  std::string report_name;
  int paper_type = 0;  // 0 汎用紙, 1 専用紙
  std::string device_name;
  std::int16_t paper_size = 0;
  std::int16_t paper_bin = 0;
  std::int32_t margin_left = 0, margin_top = 0, margin_right = 0, margin_bottom = 0;
  std::int16_t orientation = 0;
  int where = 0;  // bit k checks chkChumonOption(k)
  std::string date_label;
  std::string date_field;
  int use_paper_type = 0;
  std::array<std::string, 3> memo;           // MEMO1..3
  std::array<std::string, 5> fld_lbl;        // FLD_LBL1..5
  std::array<std::string, 5> fld_txt;        // FLD_TXT1..5, empty when the label is empty
  std::array<std::string, 5> fld_tooltip;    // FLD_TOOLTIP1..5
  int payment_init = 0;
  std::array<std::string, 3> biko_lbl;       // BIKO_LBL1..3
  std::array<std::string, 3> biko_fld;       // BIKO_FLD1..3, empty when the label is empty
  int lbl_rpt = 0;                           // labels per sheet; non-zero: a label report
  std::string other_tbl_name;                // "CUSTOMER" makes a customer report
};

// Whether the definition's Where mask checks chkChumonOption(k), k from 0 to 3. The column holds a
// four-bit mask; a value outside 0..15 checks nothing.
constexpr bool WhereChecksOption(int where, int k) {
  if (where < 0 || where > 15 || k < 0 || k > 3) return false;
  return ((where >> k) & 1) != 0;
}

}  // namespace lupin::entry
