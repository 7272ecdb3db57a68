#include "exchange/ehiden_text.h"

#include "common/text.h"

namespace lupin::exchange {

std::string Split16(std::string_view text, int part) {
  if (TrimBlanks(text).empty() || part < 0 || part > 2) return {};
  if (part == 0) return text::CharLeft(text, 16);
  return text::CharLeft(TrimBlanks(text::CharMid(text, 1 + 16 * part)), 16);
}

std::array<std::string, 5> DistributeAddress(std::string_view address, std::string_view company,
                                             std::string_view department, std::string_view name) {
  std::array<std::string, 5> lines{Split16(address, 0), Split16(address, 1), Split16(address, 2), {}, {}};
  const std::string s = std::string(company).append(kWideSpace).append(department);
  const std::string t = std::string(s).append(kWideSpace).append(name);
  const std::string u = std::string(department).append(kWideSpace).append(name);
  const int s_len = text::CharLen(s);
  const int n_len = text::CharLen(name);
  const int t_len = text::CharLen(t);
  const int a_len = text::CharLen(address);
  const auto company_on_line3 = [&] {
    lines[2] = std::string(company);
    lines[3] = Split16(u, 0);
    lines[4] = Split16(u, 1);
  };
  if (company.empty() && department.empty()) {
    lines[3] = Split16(name, 0);
    lines[4] = Split16(name, 1);
  } else if (s_len <= 16 && n_len <= 16) {
    lines[3] = s;
    lines[4] = std::string(name);
  } else if (s_len <= 16 && n_len >= 17 && t_len >= 33 && a_len <= 32) {
    company_on_line3();
  } else if (s_len > 16 && t_len >= 33 && a_len <= 32 && text::CharLen(company) <= 16) {
    company_on_line3();
  } else {
    lines[3] = Split16(t, 0);
    lines[4] = Split16(t, 1);
  }
  return lines;
}

}  // namespace lupin::exchange
