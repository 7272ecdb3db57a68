#include "reports/slips/slip_item_block.h"

#include <algorithm>
#include <cmath>

#include "common/text.h"
#include "common/vb.h"

namespace lupin::reports {

namespace {

std::string PadRight(std::string text, int bytes) {
  text.append(static_cast<std::size_t>(std::max(0, bytes - text::ByteLen(text))), ' ');
  return text;
}

std::string PadLeft(const std::string& text, int bytes) {
  return std::string(static_cast<std::size_t>(std::max(0, bytes - text::ByteLen(text))), ' ') + text;
}

}  // namespace

std::string ItemBlock(const std::vector<ItemLine>& lines, const ItemColumns& columns) {
  bool fractional = false;
  for (const ItemLine& line : lines) fractional = fractional || line.quantity != std::floor(line.quantity);
  const char* picture = fractional ? "0.00" : "0";

  std::string block;
  const std::size_t shown = std::min(lines.size(), static_cast<std::size_t>(kItemBlockLines));
  for (std::size_t i = 0; i < shown; ++i) {
    const ItemLine& line = lines[i];
    const bool astride = text::ByteClass(line.name, columns.name_bytes) == 2;
    const int name_bytes = astride ? columns.astride_name_bytes : columns.name_bytes;
    const int quantity_bytes = astride ? columns.astride_quantity_bytes : columns.quantity_bytes;
    block += PadRight(text::ByteLeft(line.name, name_bytes), name_bytes);
    block += PadLeft(vb::Format(line.quantity, picture), quantity_bytes);
    block += "\r\n";
  }
  if (lines.size() > shown) block += "他" + std::to_string(lines.size() - shown) + "商品";
  return block;
}

}  // namespace lupin::reports
