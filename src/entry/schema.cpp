// DDL from the table description, for SQLite and PostgreSQL.
#include "entry/schema.h"

#include <algorithm>

#include "common/ascii.h"

namespace lupin::entry {
namespace {

using text::FoldAscii;
constexpr auto EqualsAsciiFolded = text::EqualsAsciiNoCase;

std::string QuotedList(const std::vector<std::string>& names, db::Engine engine) {
  std::string out;
  for (const auto& name : names) {
    if (!out.empty()) out += ", ";
    out += QuoteName(name, engine);
  }
  return out;
}

}  // namespace

const ColumnDef* TableDef::Find(std::string_view column) const {
  for (const auto& c : columns) {
    if (EqualsAsciiFolded(c.name, column)) return &c;
  }
  return nullptr;
}

const TableDef* FindTable(std::string_view name) {
  for (const auto& t : SchemaTables()) {
    if (EqualsAsciiFolded(t.name, name)) return &t;
  }
  return nullptr;
}

std::string QuoteName(std::string_view name, db::Engine engine) {
  if (engine == db::Engine::Sqlite) return "[" + std::string(name) + "]";
  std::string out = "\"";
  for (char c : name) {
    out += FoldAscii(c);
    if (c == '"') out += '"';
  }
  return out + "\"";
}

std::string_view PhysicalType(ColumnType type, db::Engine engine) {
  const bool pg = engine == db::Engine::Postgres;
  switch (type) {
    case ColumnType::Integer:
    case ColumnType::Flag:
      return "INTEGER";
    case ColumnType::Money:
      return pg ? "NUMERIC(19,4)" : "NUMERIC";
    case ColumnType::Real:
      return pg ? "DOUBLE PRECISION" : "REAL";
    case ColumnType::Text:
    case ColumnType::DateText:
      return "TEXT";
  }
  return "TEXT";
}

std::string CreateTableSql(const TableDef& table, db::Engine engine) {
  std::string sql = "CREATE TABLE IF NOT EXISTS " + QuoteName(table.name, engine) + " (";
  bool first = true;
  for (const auto& column : table.columns) {
    sql += first ? "" : ", ";
    first = false;
    sql += QuoteName(column.name, engine);
    sql += ' ';
    sql += PhysicalType(column.type, engine);
    if (!column.default_value.empty()) sql += " DEFAULT " + column.default_value;
  }
  if (!table.primary_key.empty()) sql += ", PRIMARY KEY (" + QuotedList(table.primary_key, engine) + ")";
  return sql + ")";
}

std::vector<std::string> CreateIndexSql(const TableDef& table, db::Engine engine) {
  std::vector<std::string> statements;
  int number = 0;
  for (const auto& index : table.indexes) {
    const std::string name = "IX_" + table.name + "_" + std::to_string(++number);
    statements.push_back(std::string("CREATE ") + (index.unique ? "UNIQUE " : "") + "INDEX IF NOT EXISTS " +
                         QuoteName(name, engine) + " ON " + QuoteName(table.name, engine) + " (" +
                         QuotedList(index.columns, engine) + ")");
  }
  return statements;
}

void CreateSchema(db::Connection& connection) {
  const db::Engine engine = connection.GetEngine();
  db::Transaction transaction(connection);
  for (const auto& table : SchemaTables()) {
    connection.Execute(CreateTableSql(table, engine));
    for (const auto& statement : CreateIndexSql(table, engine)) connection.Execute(statement);
  }
  transaction.Commit();
}

}  // namespace lupin::entry
