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

// The index of the '#' that closes a date literal opened at `open`, or npos. The body is what a
// criterion put between the delimiters: no blank at either end, nothing that quotes or ends a line.
std::size_t DateLiteralClose(std::string_view sql, std::size_t open) {
  const std::size_t close = sql.find('#', open + 1);
  if (close == std::string_view::npos || close == open + 1) return std::string_view::npos;
  const std::string_view body = sql.substr(open + 1, close - open - 1);
  if (body.front() == ' ' || body.back() == ' ') return std::string_view::npos;
  if (body.find_first_of("'\"[];\r\n\t") != std::string_view::npos) return std::string_view::npos;
  return close;
}

void AppendLoweredName(std::string& out, std::string_view name) {
  out += '"';
  for (const char n : name) {
    if (n >= 'A' && n <= 'Z') {
      out += static_cast<char>(n - 'A' + 'a');
    } else {
      if (n == '"') out += '"';
      out += n;
    }
  }
  out += '"';
}

}  // namespace

std::string EngineSqlText(std::string_view sql, bool brackets) {
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
        if (brackets) {
          AppendLoweredName(out, sql.substr(i + 1, close - i - 1));
          i = close + 1;
          continue;
        }
        end = close + 1;  // a bracketed name may hold a '#'
      }
    } else if (c == '#') {
      const std::size_t close = DateLiteralClose(sql, i);
      if (close != std::string_view::npos) {
        out += '\'';
        out.append(sql.substr(i + 1, close - i - 1));
        out += '\'';
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
