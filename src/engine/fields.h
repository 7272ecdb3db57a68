#pragma once
// The report's fields: the columns of the data control's current record and the calculated fields
// a report adds by name.
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "db/recordset.h"

namespace lupin::engine {

// The data control through which the engine takes the records of one recordset, in order.
struct DataControl {
  std::optional<db::Recordset> Recordset;
};

class Fields {
 public:
  explicit Fields(const DataControl& data) : data_(data) {}

  // Adds a calculated field (Null until set); adding an existing name keeps its value.
  void Add(std::string_view name);
  bool Has(std::string_view name) const;
  // A calculated field wins over a column of the same name. Null for a name that is neither, or
  // a column read at the end of the data.
  db::Value Value(std::string_view name) const;
  // Sets a calculated field, adding it when needed.
  void Set(std::string_view name, db::Value value);
  void Clear() { calculated_.clear(); }

  // Calculated values of one record, so group footers can see the record that ended the group.
  std::vector<std::pair<std::string, db::Value>> Snapshot() const { return calculated_; }
  void Restore(std::vector<std::pair<std::string, db::Value>> values) { calculated_ = std::move(values); }

 private:
  const DataControl& data_;
  std::vector<std::pair<std::string, db::Value>> calculated_;
};

}  // namespace lupin::engine
