#pragma once
// ehiden2_option.txt: the user's codes for parcel kind, speed, cooling and three seals.
#include <array>
#include <filesystem>
#include <string>
#include <string_view>

namespace lupin::exchange {

struct EhidenOptions {
  // 0 荷姿コード, 1 便種（スピード）, 2 便種（クール便指定）, 3..5 指定シール①..③
  std::array<std::string, 6> slots;

  std::string Speed() const { return slots[1].empty() ? "000" : slots[1]; }
  std::string Cooling() const { return slots[2].empty() ? "001" : slots[2]; }
};

// Each line is matched by its beginning (text compare); what follows the key is the value as it
// stands. Unknown lines are skipped and a later line overwrites an earlier one.
EhidenOptions ParseEhidenOptions(std::string_view content);
// The file beside the component, Shift-JIS; a missing file leaves every slot empty.
EhidenOptions ReadEhidenOptions(const std::filesystem::path& file);

}  // namespace lupin::exchange
