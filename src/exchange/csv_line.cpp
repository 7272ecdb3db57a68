#include "exchange/csv_line.h"

#include "exchange/field_text.h"

namespace lupin::exchange {
namespace {

constexpr std::string_view kWideQuote = "\xEF\xBC\x82";  // U+FF02

}  // namespace

void CsvLine::AppendSafe(std::string_view value, bool quoted) {
  const char breakers[] = {'\r', '\n', '"', quoted ? '\r' : separator_, '\0'};
  std::size_t at = value.find_first_of(std::string_view(breakers, 4));
  if (at == std::string_view::npos) {
    out_ += value;
    return;
  }
  while (at != std::string_view::npos) {
    out_.append(value.substr(0, at));
    const char c = value[at];
    if (c == '"') {
      out_ += kWideQuote;
      value.remove_prefix(at + 1);
    } else {
      // A CR LF pair is one line break and becomes one space.
      out_ += kWideSpace;
      value.remove_prefix(at + (c == '\r' && at + 1 < value.size() && value[at + 1] == '\n' ? 2 : 1));
    }
    at = value.find_first_of(std::string_view(breakers, 4));
  }
  out_ += value;
}

CsvLine& CsvLine::Add(std::string_view value, Quote quote) {
  if (!first_) out_ += separator_;
  first_ = false;
  const bool quoted = quote == Quote::Always || (quote == Quote::TextOnly && !value.empty());
  if (quoted) out_ += '"';
  AppendSafe(value, quoted);
  if (quoted) out_ += '"';
  return *this;
}

CsvLine& CsvLine::Empty(int count, Quote quote) {
  for (int k = 0; k < count; ++k) Add({}, quote);
  return *this;
}

}  // namespace lupin::exchange
