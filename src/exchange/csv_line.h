#pragma once
// One record of an outside system's file: fields joined by a separator, each quoted by its own
// choice, ended by CR LF. Inner double quotes are never doubled, as the outside programs read them;
// so that no value can break a record, a CR or LF inside a value becomes a full-width space and a
// double quote becomes "＂" (and, in a bare field, the separator becomes a full-width space).
#include <string>
#include <string_view>

namespace lupin::exchange {

enum class Quote {
  Always,    // "value", and "" when empty
  TextOnly,  // "value", and nothing when empty
  None,      // the value bare
};

class CsvLine {
 public:
  // Appends to `out`; End() closes the record.
  explicit CsvLine(std::string& out, char separator = ',') : out_(out), separator_(separator) {}

  CsvLine& Add(std::string_view value, Quote quote = Quote::Always);
  // `count` empty fields of one quoting.
  CsvLine& Empty(int count = 1, Quote quote = Quote::Always);
  void End() { out_ += "\r\n"; }

 private:
  void AppendSafe(std::string_view value, bool quoted);

  std::string& out_;
  char separator_;
  bool first_ = true;
};

// A whole record of always-quoted fields.
template <typename Range>
void AppendQuotedLine(std::string& out, const Range& values) {
  CsvLine line(out);
  for (const auto& value : values) line.Add(value);
  line.End();
}

}  // namespace lupin::exchange
