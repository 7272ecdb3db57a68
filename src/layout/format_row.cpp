#include "layout/format_row.h"

namespace lupin::layout {

void clsRptFmtRow::SetOther(std::string name, std::string value) {
  others_[0].push_back(std::move(name));
  others_[1].push_back(std::move(value));
}

std::string clsRptFmtRow::GetOther(int kind, int index) const {
  if (kind < 0 || kind > 1 || index < 0 || static_cast<std::size_t>(index) >= others_[0].size()) return "";
  return others_[static_cast<std::size_t>(kind)][static_cast<std::size_t>(index)];
}

}  // namespace lupin::layout
