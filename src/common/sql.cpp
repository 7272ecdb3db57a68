#include "common/sql.h"

#include <array>

namespace lupin::sql {
namespace {

// Rows are the dialect modes 0, 1, 2 (bases 100, 200, 300); columns the fragment indexes 1..7.
constexpr std::array<std::array<std::string_view, 7>, 3> kFragments{{
    {"'", "%", "CHAR", "CAST(%FIELD% AS VARCHAR)", "CAST(%FIELD% AS VARCHAR(255))", "[%FIELD%]", "[%FIELD%]"},
    {"#", "%", "CHR", "FORMAT(%FIELD%)", "CSTR(%FIELD% & '')", "[%FIELD%]", "[%FIELD%]"},
    {"'", "%", "CHR", "CAST(%FIELD% AS VARCHAR)", "%FIELD%", "%FIELD%", "\"%FIELD%\""},
}};

constexpr std::string_view kPlaceholder = "%FIELD%";

}  // namespace

std::string SqlQuote(std::string_view text) {
  std::string quoted;
  quoted.reserve(text.size() + 2);
  for (char c : text) {
    quoted += c;
    if (c == '\'') quoted += '\'';
  }
  return quoted;
}

std::string NumericText(std::string_view text) {
  std::string kept;
  bool seen_point = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c >= '0' && c <= '9') {
      kept += c;
    } else if (c == '.' && !seen_point) {
      seen_point = true;
      kept += c;
    } else if (c == '-' && i == 0) {
      kept += c;
    }
  }
  return kept.empty() ? "0" : kept;
}

std::string DialectFragment(int dialect, int index) {
  if (dialect < 0 || dialect > 2 || index < 1 || index > 7) return {};
  return std::string(kFragments[static_cast<std::size_t>(dialect)][static_cast<std::size_t>(index - 1)]);
}

std::string DialectField(int dialect, int index, std::string_view field) {
  std::string fragment = DialectFragment(dialect, index);
  std::string result;
  std::size_t from = 0;
  for (std::size_t at = fragment.find(kPlaceholder); at != std::string::npos;
       at = fragment.find(kPlaceholder, from)) {
    result.append(fragment, from, at - from);
    result += field;
    from = at + kPlaceholder.size();
  }
  result.append(fragment, from, std::string::npos);
  return result;
}

}  // namespace lupin::sql
