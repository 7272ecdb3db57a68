#pragma once
// The model of a combo box: items with item data and a list index, as the forms use them.
#include <cstdint>
#include <string>
#include <vector>

namespace lupin::common {

struct ComboModel {
  std::vector<std::string> items;
  std::vector<std::int32_t> item_data;  // parallel to items
  int list_index = -1;
  bool visible = true;
  bool enabled = true;

  void Clear() { items.clear(); item_data.clear(); list_index = -1; }
  void AddItem(std::string text, std::int32_t data = 0) { items.push_back(std::move(text)); item_data.push_back(data); }
  int ListCount() const { return static_cast<int>(items.size()); }
  std::string Text() const { return list_index >= 0 && list_index < ListCount() ? items[list_index] : std::string(); }
  std::int32_t ItemData() const { return list_index >= 0 && list_index < ListCount() ? item_data[list_index] : 0; }
};

// Searches items comparing lower-cased copies; -1 when not found or text is empty.
void SelectComboByText(ComboModel& combo, std::string_view text);
// Searches item data (a 16-bit number); -1 when not found.
void SelectComboByData(ComboModel& combo, std::int16_t value);

}  // namespace lupin::common
