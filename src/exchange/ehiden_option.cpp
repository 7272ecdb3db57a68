#include "exchange/ehiden_option.h"

#include <fstream>
#include <iterator>

#include "common/text.h"

namespace lupin::exchange {
namespace {

constexpr std::array<std::string_view, 6> kKeys = {
    "荷姿コード：", "便種（スピード）：", "便種（クール便指定）：", "指定シール①：", "指定シール②：", "指定シール③：",
};

// Lines end at CR LF, CR or LF, as a line-input read takes them.
template <typename Visit>
void ForEachLine(std::string_view content, Visit visit) {
  while (!content.empty()) {
    const std::size_t end = content.find_first_of("\r\n");
    visit(content.substr(0, end));
    if (end == std::string_view::npos) return;
    const std::size_t skip = content.substr(end).starts_with("\r\n") ? 2 : 1;
    content.remove_prefix(end + skip);
  }
}

}  // namespace

EhidenOptions ParseEhidenOptions(std::string_view content) {
  EhidenOptions options;
  ForEachLine(content, [&](std::string_view line) {
    for (std::size_t slot = 0; slot < kKeys.size(); ++slot) {
      const int key_chars = text::CharLen(kKeys[slot]);
      if (text::TextEquals(text::CharLeft(line, key_chars), kKeys[slot])) {
        options.slots[slot] = text::CharMid(line, key_chars + 1);
        break;
      }
    }
  });
  return options;
}

EhidenOptions ReadEhidenOptions(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return {};
  const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  return ParseEhidenOptions(text::FromCp932(bytes));
}

}  // namespace lupin::exchange
