#pragma once
// A materialised result (keyset semantics): every row is read when the recordset is opened.
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "db/value.h"

namespace lupin::db {

class Recordset {
 public:
  Recordset() = default;
  Recordset(std::vector<std::string> names, std::vector<std::vector<Value>> rows);

  bool Eof() const { return position_ != kBeforeFirst ? position_ >= rows_.size() : rows_.empty(); }
  bool Bof() const { return rows_.empty() || position_ == kBeforeFirst; }
  std::size_t RecordCount() const { return rows_.size(); }
  void MoveFirst() { position_ = 0; }
  void MoveLast() { position_ = rows_.empty() ? 0 : rows_.size() - 1; }
  void MoveNext() {
    if (position_ == kBeforeFirst) position_ = 0;
    else if (position_ < rows_.size()) ++position_;
  }
  void MovePrevious();
  std::size_t AbsolutePosition() const { return position_; }  // 0-based
  void Close() {}

  // Field of the current row by name, case-insensitive (ASCII and Japanese names as written).
  // Throws DbError naming the field when it does not exist or the recordset is at EOF.
  const Value& operator[](std::string_view name) const;
  const Value& Field(std::size_t index) const;
  bool HasField(std::string_view name) const;
  std::size_t FieldCount() const { return names_.size(); }
  const std::string& FieldName(std::size_t index) const { return names_.at(index); }
  // Index of a field name, or -1. With several fields of one name the first wins.
  int FieldIndex(std::string_view name) const;

  const std::vector<std::vector<Value>>& Rows() const { return rows_; }

 private:
  static constexpr std::size_t kBeforeFirst = static_cast<std::size_t>(-1);
  std::vector<std::string> names_;
  struct NameIndex;
  // Built on the first lookup of a wide row (order rows have some 250 fields).
  mutable std::shared_ptr<const NameIndex> name_index_;
  std::vector<std::vector<Value>> rows_;
  std::size_t position_ = 0;
};

}  // namespace lupin::db
