#pragma once
// The data strings between the selection form and the list windows (orders, customers, items).
// The selection form listens on a local socket named per user; a list window, in this process or
// an external list program of the package, connects and sends one string per line in UTF-8:
// "CUSNO=…", "ORDERNO=…", "ITEM=…". The selection form answers "CLOSEMSG" on the same connection
// when it has taken the value, and the list window closes.
#include <string>
#include <string_view>
#include <vector>

namespace lupin::desktop {

inline constexpr std::string_view kCloseMessage = "CLOSEMSG";
// The titles of the list windows, by which the selection form finds them.
inline constexpr std::string_view kOrderListTitle = "注文一覧";
inline constexpr std::string_view kCustomerListTitle = "顧客一覧";
inline constexpr std::string_view kItemListTitle = "商品一覧";

// The socket name for a user: "lupinprint-" and the numeric user id, so two users of one machine
// never receive each other's strings.
std::string ListChannelName(unsigned user_id);
std::string ListChannelNameForThisUser();

// Splits complete lines off the front of buffer (LF or CR LF), leaving an unfinished tail.
std::vector<std::string> TakeLines(std::string& buffer);
std::string Line(std::string_view message);

// The list window a data string answers, by its prefix; "" for a string no list sends.
std::string_view ListTitleFor(std::string_view data);

}  // namespace lupin::desktop
