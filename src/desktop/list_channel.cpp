#include "desktop/list_channel.h"

#include <unistd.h>

namespace lupin::desktop {

std::string ListChannelName(unsigned user_id) { return "lupinprint-" + std::to_string(user_id); }

std::string ListChannelNameForThisUser() { return ListChannelName(static_cast<unsigned>(::getuid())); }

std::vector<std::string> TakeLines(std::string& buffer) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t at = buffer.find('\n'); at != std::string::npos; at = buffer.find('\n', start)) {
    std::string line = buffer.substr(start, at - start);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(std::move(line));
    start = at + 1;
  }
  buffer.erase(0, start);
  return lines;
}

std::string Line(std::string_view message) { return std::string(message) + "\n"; }

std::string_view ListTitleFor(std::string_view data) {
  if (data.starts_with("CUSNO=")) return kCustomerListTitle;
  if (data.starts_with("ORDERNO=")) return kOrderListTitle;
  if (data.starts_with("ITEM=")) return kItemListTitle;
  return {};
}

}  // namespace lupin::desktop
