// Row text for the demo data's multi-row INSERT statements.
#include "demo/insert_batch.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace lupin::demo {

void AppendQuoted(std::string& out, std::string_view text) {
  out += '\'';
  for (char c : text) {
    out += c;
    if (c == '\'') out += '\'';
  }
  out += '\'';
}

SqlRow::SqlRow(const entry::TableDef& table) : table_(table), values_(table.columns.size(), "NULL") {}

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
  bool first = true;
  for (const auto& value : values_) {
    if (value.empty()) continue;
    if (!first) out += ',';
    first = false;
    out += value;
  }
  out += ')';
}

InsertBatch::InsertBatch(db::Connection& connection, const entry::TableDef& table, int rows_per_statement)
    : connection_(connection), table_(table), rows_per_statement_(rows_per_statement) {}

void InsertBatch::Add(const SqlRow& row) {
  present_.resize(row.Size());
  for (std::size_t i = 0; i < row.Size(); ++i) present_[i] = !row.Omitted(i);
  auto group = std::find_if(groups_.begin(), groups_.end(), [&](const Group& g) { return g.present == present_; });
  if (group == groups_.end()) {
    Group fresh;
    fresh.present = present_;
    const db::Engine engine = connection_.GetEngine();
    fresh.header = "INSERT INTO " + entry::QuoteName(table_.name, engine) + " (";
    bool first = true;
    for (std::size_t i = 0; i < table_.columns.size(); ++i) {
      if (!present_[i]) continue;
      if (!first) fresh.header += ',';
      first = false;
      fresh.header += entry::QuoteName(table_.columns[i].name, engine);
    }
    fresh.header += ") VALUES ";
    groups_.push_back(std::move(fresh));
    group = groups_.end() - 1;
  }
  if (group->pending == 0) {
    group->sql.assign(group->header);
  } else {
    group->sql += ',';
  }
  row.AppendTo(group->sql);
  if (++group->pending >= rows_per_statement_) Send(*group);
}

void InsertBatch::Send(Group& group) {
  if (group.pending == 0) return;
  connection_.Execute(group.sql);
  written_ += group.pending;
  group.pending = 0;
}

void InsertBatch::Flush() {
  for (auto& group : groups_) Send(group);
}

}  // namespace lupin::demo
