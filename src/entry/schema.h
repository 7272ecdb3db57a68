#pragma once
// The one description of every table and column the component reads or writes, and the DDL that
// creates them on each engine.
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "db/connection.h"

namespace lupin::entry {

// Logical column types; the physical type is chosen per engine.
enum class ColumnType { Integer, Money, Real, Text, DateText, Flag };

struct ColumnDef {
  std::string name;
  ColumnType type = ColumnType::Text;
  std::string default_value;  // SQL literal, "" for none
};

struct IndexDef {
  std::vector<std::string> columns;
  bool unique = false;
};

struct TableDef {
  std::string name;
  std::vector<ColumnDef> columns;
  std::vector<std::string> primary_key;  // empty: no key
  std::vector<IndexDef> indexes;

  // The column of that name, compared as the engines do (ASCII case-insensitive); nullptr if none.
  const ColumnDef* Find(std::string_view column) const;
};

// Every table, in creation order.
std::span<const TableDef> SchemaTables();
// The table of that name (ASCII case-insensitive), or nullptr.
const TableDef* FindTable(std::string_view name);

// First year of the yearly sales columns of CUSTOMER ("年度純売上額2000" …) and the last one.
inline constexpr int kFirstSalesYear = 2000;
inline constexpr int kLastSalesYear = 2035;
// Line slots flattened into a CHUMON row.
inline constexpr int kChumonSlots = 20;

// A name as the engine's DDL wants it: [name] for SQLite, "name" with ASCII folded to lower case
// for PostgreSQL, which is what the driver makes of a bracketed name in a statement.
std::string QuoteName(std::string_view name, db::Engine engine);
std::string_view PhysicalType(ColumnType type, db::Engine engine);

// "CREATE TABLE IF NOT EXISTS …" for the table.
std::string CreateTableSql(const TableDef& table, db::Engine engine);
// "CREATE [UNIQUE] INDEX IF NOT EXISTS …", one statement per index of the table.
std::vector<std::string> CreateIndexSql(const TableDef& table, db::Engine engine);

// Creates every table and index that does not exist yet, in one transaction.
void CreateSchema(db::Connection& connection);

}  // namespace lupin::entry
