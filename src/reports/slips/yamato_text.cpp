#include "reports/slips/yamato_text.h"

#include <cmath>

#include "common/text.h"
#include "common/vb.h"

namespace lupin::reports {

std::string PostcodeBoxText(std::string_view postcode) {
  // Text comparison: the full-width hyphen goes too.
  return text::TextReplace(postcode, "-", "");
}

MemoPieces SplitMemo2(std::string_view fld_txt2) {
  const std::size_t hyphen = fld_txt2.find('-');
  if (hyphen == std::string_view::npos) return {};
  if (hyphen == 0) return {"", "-"};
  if (hyphen + 1 == fld_txt2.size()) return {std::string(fld_txt2), ""};
  return {std::string(fld_txt2.substr(0, hyphen)), std::string(fld_txt2.substr(hyphen + 1))};
}

std::string DeliveryDateText(std::string_view delivery_date) {
  const auto date = vb::CDate(delivery_date);
  if (!date) return "";
  return vb::FormatDate(*date, "mm   dd");
}


}  // namespace lupin::reports
