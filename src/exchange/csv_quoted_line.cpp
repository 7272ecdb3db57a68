#include "exchange/csv_quoted_line.h"

namespace lupin::exchange {
namespace {

template <typename Range>
void AppendQuoted(std::string& out, const Range& values) {
  bool first = true;
  for (const auto& value : values) {
    if (!first) out += ',';
    first = false;
    out += '"';
    out += value;
    out += '"';
  }
  out += "\r\n";
}

}  // namespace

void AppendQuotedLine(std::string& out, std::span<const std::string> values) { AppendQuoted(out, values); }

void AppendQuotedLine(std::string& out, std::span<const std::string_view> values) { AppendQuoted(out, values); }

void AppendQuotedLine(std::string& out, std::initializer_list<std::string_view> values) { AppendQuoted(out, values); }

}  // namespace lupin::exchange
