#include "exchange/ehiden_text.h"

#include "common/text.h"
#include "common/width.h"

namespace lupin::exchange {
namespace {

constexpr std::string_view kWideSpace = "\xE3\x80\x80";  // U+3000

bool StartsWithSpace(std::string_view text, std::size_t& length) {
  if (text.starts_with(' ')) return length = 1, true;
  if (text.starts_with(kWideSpace)) return length = kWideSpace.size(), true;
  return false;
}

bool EndsWithSpace(std::string_view text, std::size_t& length) {
  if (text.ends_with(' ')) return length = 1, true;
  if (text.ends_with(kWideSpace)) return length = kWideSpace.size(), true;
  return false;
}

}  // namespace

std::string EhidenTrim(std::string_view text) {
  std::size_t length = 0;
  while (StartsWithSpace(text, length)) text.remove_prefix(length);
  while (EndsWithSpace(text, length)) text.remove_suffix(length);
  return std::string(text);
}

std::string ReplaceCrLf(std::string_view text, std::string_view with) {
  std::string out;
  out.reserve(text.size());
  std::size_t from = 0;
  for (std::size_t at = text.find("\r\n"); at != std::string_view::npos; at = text.find("\r\n", from)) {
    out.append(text.substr(from, at - from)).append(with);
    from = at + 2;
  }
  out.append(text.substr(from));
  return out;
}

std::string WideEach(std::string_view text) {
  std::u32string chars = text::ToU32(text);
  for (char32_t& c : chars) {
    // Each character alone, so a following voiced mark is never joined to it.
    std::size_t pos = 0;
    c = text::TakeWide(std::u32string_view(&c, 1), pos);
  }
  return text::FromU32(chars);
}

std::string NarrowEach(std::string_view text) { return text::ToNarrow(text); }

std::string CutBytes(int width, std::string_view text, bool remove_hyphens) {
  if (EhidenTrim(text).empty()) return {};
  if (text::ByteLen(text) <= width) return std::string(text);
  std::string cut(text);
  if (remove_hyphens) {
    std::erase(cut, '-');
    if (text::ByteLen(cut) <= width) return cut;
  }
  return text::ByteLeft(cut, width);
}

std::string Split16(std::string_view text, int part) {
  if (EhidenTrim(text).empty() || part < 0 || part > 2) return {};
  if (part == 0) return text::CharLeft(text, 16);
  return text::CharLeft(EhidenTrim(text::CharMid(text, 1 + 16 * part)), 16);
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
