#pragma once
// Multi-row INSERT text for the demo data: one statement carries many rows, so PostgreSQL pays one
// round trip per statement and SQLite parses less.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "db/connection.h"
#include "entry/schema.h"

namespace lupin::demo {

// One row of a table, as SQL literals in the table's column order.
class SqlRow {
 public:
  explicit SqlRow(const entry::TableDef& table);
  // The position of a column; a name the table lacks is a fault of the generator.
  int Index(std::string_view column) const;

  void Reset();  // every value NULL
  void Null(int index) { values_[Checked(index)] = "NULL"; }
  // Leaves the column out of the INSERT, so it takes its default (NULL where none is declared):
  // fewer literals are less to parse for either engine.
  void Omit(int index) { values_[Checked(index)].clear(); }
  bool Omitted(std::size_t index) const { return values_[index].empty(); }
  std::size_t Size() const { return values_.size(); }
  void Text(int index, std::string_view text);
  void Int(int index, std::int64_t value);
  void Real(int index, double value);

  void AppendTo(std::string& out) const;
  const entry::TableDef& Table() const { return table_; }

 private:
  std::size_t Checked(int index) const;
  const entry::TableDef& table_;
  std::vector<std::string> values_;
};

// Collects rows and sends them as "INSERT INTO t (...) VALUES (...),(...)" in statements of at
// most `rows_per_statement` rows; rows that leave out the same columns share a statement.
class InsertBatch {
 public:
  InsertBatch(db::Connection& connection, const entry::TableDef& table, int rows_per_statement);
  void Add(const SqlRow& row);
  void Flush();
  long RowsWritten() const { return written_; }

 private:
  struct Group {
    std::vector<bool> present;
    std::string header;
    std::string sql;
    int pending = 0;
  };
  void Send(Group& group);

  db::Connection& connection_;
  const entry::TableDef& table_;
  std::vector<Group> groups_;  // in order of first use, so statements go out in a fixed order
  std::vector<bool> present_;  // scratch
  int rows_per_statement_;
  long written_ = 0;
};

// text with every apostrophe doubled, in apostrophes.
void AppendQuoted(std::string& out, std::string_view text);

}  // namespace lupin::demo
