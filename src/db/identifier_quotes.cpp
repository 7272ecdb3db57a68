#include "db/identifier_quotes.h"

namespace lupin::db {
namespace {

// Index just past the closing delimiter, or the end when it is missing; a doubled delimiter
// stands for itself.
std::size_t SkipQuoted(std::string_view sql, std::size_t open, char delimiter) {
  std::size_t i = open + 1;
  while (i < sql.size()) {
    if (sql[i] == delimiter) {
      if (i + 1 < sql.size() && sql[i + 1] == delimiter) {
        i += 2;
        continue;
      }
      return i + 1;
    }
    ++i;
  }
  return sql.size();
}

}  // namespace

std::string BracketsToDoubleQuotes(std::string_view sql) {
  std::string out;
  out.reserve(sql.size() + 8);
  std::size_t i = 0;
  while (i < sql.size()) {
    const char c = sql[i];
    std::size_t end = i + 1;
    if (c == '\'' || c == '"') {
      end = SkipQuoted(sql, i, c);
    } else if (c == '-' && i + 1 < sql.size() && sql[i + 1] == '-') {
      end = sql.find('\n', i);
      end = end == std::string_view::npos ? sql.size() : end;
    } else if (c == '/' && i + 1 < sql.size() && sql[i + 1] == '*') {
      end = sql.find("*/", i + 2);
      end = end == std::string_view::npos ? sql.size() : end + 2;
    } else if (c == '[') {
      const std::size_t close = sql.find(']', i + 1);
      if (close != std::string_view::npos) {
        out += '"';
        for (std::size_t k = i + 1; k < close; ++k) {
          const char n = sql[k];
          if (n >= 'A' && n <= 'Z') {
            out += static_cast<char>(n - 'A' + 'a');
          } else {
            if (n == '"') out += '"';
            out += n;
          }
        }
        out += '"';
        i = close + 1;
        continue;
      }
    }
    out.append(sql.substr(i, end - i));
    i = end;
  }
  return out;
}

}  // namespace lupin::db
