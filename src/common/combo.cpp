#include "common/combo.h"

#include "common/text.h"

namespace lupin::common {

void SelectComboByText(ComboModel& combo, std::string_view text) {
  combo.list_index = -1;
  if (text.empty()) return;
  const std::string wanted = text::ToLower(text);
  for (int i = 0; i < combo.ListCount(); ++i) {
    if (text::ToLower(combo.items[static_cast<std::size_t>(i)]) == wanted) {
      combo.list_index = i;
      return;
    }
  }
}

void SelectComboByData(ComboModel& combo, std::int16_t value) {
  combo.list_index = -1;
  for (int i = 0; i < combo.ListCount(); ++i) {
    if (combo.item_data[static_cast<std::size_t>(i)] == value) {
      combo.list_index = i;
      return;
    }
  }
}

}  // namespace lupin::common
