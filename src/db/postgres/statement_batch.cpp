#include "db/postgres/statement_batch.h"

#include <array>

namespace lupin::db {
namespace {

bool EqualsFolded(std::string_view word, std::string_view upper) {
  if (word.size() != upper.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i) {
    char c = word[i];
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    if (c != upper[i]) return false;
  }
  return true;
}

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

}  // namespace

bool IsDeferrable(std::string_view sql) {
  std::size_t start = sql.find_first_not_of(" \t\r\n(");
  if (start == std::string_view::npos) return false;
  std::size_t end = start;
  while (end < sql.size() && IsLetter(sql[end])) ++end;
  const std::string_view word = sql.substr(start, end - start);
  static constexpr std::array<std::string_view, 7> kVerbs = {"INSERT", "UPDATE", "DELETE", "CREATE",
                                                              "DROP",   "ALTER",  "TRUNCATE"};
  for (std::string_view verb : kVerbs) {
    if (EqualsFolded(word, verb)) return true;
  }
  return false;
}

bool StatementBatch::Add(std::string_view sql) {
  // A newline ends a trailing "--" comment before the next statement begins.
  text_.append(sql);
  text_.append(";\n");
  ++count_;
  return count_ >= kMaxStatements || text_.size() >= kMaxBytes;
}

}  // namespace lupin::db
