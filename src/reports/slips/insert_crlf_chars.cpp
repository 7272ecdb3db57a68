#include "reports/slips/insert_crlf_chars.h"

#include "common/text.h"
#include "common/vb.h"

namespace lupin::reports::crlf {

std::vector<std::string> SplitLines(std::string_view text) {
  std::vector<std::string> lines;
  std::size_t from = 0;
  while (true) {
    const std::size_t at = text.find("\r\n", from);
    if (at == std::string_view::npos) {
      lines.emplace_back(text.substr(from));
      return lines;
    }
    lines.emplace_back(text.substr(from, at - from));
    from = at + 2;
  }
}

std::string JoinNonEmpty(const std::vector<std::string>& lines) {
  std::string out;
  for (const std::string& line : lines) {
    if (line.empty()) continue;
    if (!out.empty()) out += "\r\n";
    out += line;
  }
  return out;
}

bool IsNumericChar(std::string_view ch) {
  if (ch.size() == 1) return ch[0] >= '0' && ch[0] <= '9';
  return !ch.empty() && vb::IsNumeric(text::ToNarrow(ch));
}

int CharInStr(std::u32string_view text, std::u32string_view find, int start) {
  if (start < 1) start = 1;
  if (static_cast<std::size_t>(start) > text.size()) return 0;
  const std::size_t at = text.find(find, static_cast<std::size_t>(start - 1));
  return at == std::u32string_view::npos ? 0 : static_cast<int>(at) + 1;
}

}  // namespace lupin::reports::crlf
