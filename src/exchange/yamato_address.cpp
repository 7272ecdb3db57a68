#include "exchange/yamato_address.h"

#include "common/text.h"
#include "exchange/field_text.h"

namespace lupin::exchange {
namespace {

bool IsNumber(char32_t c) { return (c >= U'0' && c <= U'9') || (c >= U'０' && c <= U'９'); }
bool IsBlank(char32_t c) { return c == U' ' || c == U'　'; }

// The split comes right behind the character at `i` (1-based, as the rule is told).
bool SplitsBehind(const std::u32string& a, std::size_t i) {
  const std::size_t last = a.size();
  if (i >= last) return false;
  const char32_t c = a[i - 1];
  const char32_t p = i >= 2 ? a[i - 2] : U'\0';
  const char32_t n = a[i];
  switch (c) {
    case U'号': return i >= 2 && !IsNumber(n);
    case U'番': return i >= 2 && !IsNumber(n) && n != U'地';
    case U'地': return i >= 2 && p == U'番' && !IsNumber(n) && n != U'の';
    case U'目': return i >= 2 && p == U'丁' && !IsNumber(n);
    default: break;
  }
  if (!IsNumber(c) || IsNumber(n)) return false;
  if (n == U'ー' || n == U'－' || n == U'ノ' || n == U'-' || n == U'号') return false;
  if (i + 1 >= last) return false;
  const std::u32string_view next = std::u32string_view(a).substr(i, 2);
  return next != U"丁目" && next != U"番地";
}

}  // namespace

HouseNumberSplit SplitHouseNumber(std::string_view address) {
  const std::u32string a = text::ToU32(address);
  std::u32string walked;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    if (!IsBlank(a[i - 1])) walked += a[i - 1];
    if (SplitsBehind(a, i)) {
      const std::string rest = TrimBlanks(text::FromU32(std::u32string_view(a).substr(i)));
      return {text::FromU32(walked) + std::string(kWideSpace) + rest, static_cast<int>(walked.size())};
    }
  }
  return {text::FromU32(walked), 0};
}

std::array<std::string, 2> AtFirstWideSpace(std::string_view text) {
  const std::size_t at = text.find(kWideSpace);
  if (at == std::string_view::npos) return {std::string(text), {}};
  return {std::string(text.substr(0, at)), std::string(text.substr(at + kWideSpace.size()))};
}

std::array<std::string, 4> B2AddressFields(std::string_view split_address, std::string company,
                                           std::string_view department) {
  std::array<std::string, 4> fields;
  const auto [street, after] = AtFirstWideSpace(split_address);
  fields[0] = CutBytes(64, street);
  std::string r = after;
  fields[1] = CutBytes(32, r);
  if (!fields[1].empty()) {
    const std::size_t at = r.find(fields[1]);
    if (at != std::string::npos) r.erase(at, fields[1].size());
  }
  if (TrimBlanks(r).empty()) {
    r = company;
    company.clear();
  }
  fields[2] = CutBytes(50, r);
  r = RemoveAll(r, fields[2]);
  const std::string rest = TrimBlanks(r);
  const std::string firm = TrimBlanks(company);
  const std::string dept = TrimBlanks(department);
  std::string line;
  if (!firm.empty()) {
    line = rest.empty() ? firm + " " + dept : rest + std::string(kWideSpace) + firm + " " + dept;
  } else {
    line = rest.empty() ? dept : rest + " " + dept;
  }
  fields[3] = CutBytes(50, line);
  return fields;
}

}  // namespace lupin::exchange
