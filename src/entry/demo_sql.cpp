// Row text for the demo data's multi-row INSERT statements.
#include "entry/demo_sql.h"

#include <charconv>
#include <stdexcept>

namespace lupin::entry::demo {

void AppendQuoted(std::string& out, std::string_view text) {
  out += '\'';
  for (char c : text) {
    out += c;
    if (c == '\'') out += '\'';
  }
  out += '\'';
}

SqlRow::SqlRow(const TableDef& table) : table_(table), values_(table.columns.size(), "NULL") {}

int SqlRow::Index(std::string_view column) const {
  for (std::size_t i = 0; i < table_.columns.size(); ++i) {
    if (table_.columns[i].name == column) return static_cast<int>(i);
  }
  throw std::logic_error("demo data: no column " + std::string(column) + " in " + table_.name);
}

std::size_t SqlRow::Checked(int index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= values_.size()) {
    throw std::logic_error("demo data: column index out of range in " + table_.name);
  }
  return static_cast<std::size_t>(index);
}

void SqlRow::Reset() {
  for (auto& value : values_) value.assign("NULL");
}

void SqlRow::Text(int index, std::string_view text) {
  auto& value = values_[Checked(index)];
  value.clear();
  AppendQuoted(value, text);
}

void SqlRow::Int(int index, std::int64_t number) {
  char buffer[24];
  auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, number);
  values_[Checked(index)].assign(buffer, end);
}

void SqlRow::Real(int index, double number) {
  char buffer[32];
  auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, number);
  values_[Checked(index)].assign(buffer, end);
}

void SqlRow::AppendTo(std::string& out) const {
  out += '(';
  for (std::size_t i = 0; i < values_.size(); ++i) {
    if (i) out += ',';
    out += values_[i];
  }
  out += ')';
}

InsertBatch::InsertBatch(db::Connection& connection, const TableDef& table, int rows_per_statement)
    : connection_(connection), rows_per_statement_(rows_per_statement) {
  const db::Engine engine = connection.GetEngine();
  header_ = "INSERT INTO " + QuoteName(table.name, engine) + " (";
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    if (i) header_ += ',';
    header_ += QuoteName(table.columns[i].name, engine);
  }
  header_ += ") VALUES ";
}

void InsertBatch::Add(const SqlRow& row) {
  if (pending_ == 0) {
    sql_.assign(header_);
  } else {
    sql_ += ',';
  }
  row.AppendTo(sql_);
  if (++pending_ >= rows_per_statement_) Flush();
}

void InsertBatch::Flush() {
  if (pending_ == 0) return;
  connection_.Execute(sql_);
  written_ += pending_;
  pending_ = 0;
}

}  // namespace lupin::entry::demo
