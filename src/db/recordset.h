#pragma once
// A result read in one of two ways: materialised (keyset semantics, every row read when the
// recordset is opened) or streamed (rows fetched as the cursor moves, two kept for one step back),
// for results too long to hold in memory: the print list and the data of a report.
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "db/value.h"

namespace lupin::db {

// The rows of a streamed result, fetched one at a time by the driver.
class RowSource {
 public:
  virtual ~RowSource() = default;
  // Reads the next row into row; false at the end.
  virtual bool Next(std::vector<Value>& row) = 0;
  // Runs the statement again from its first row.
  virtual void Rewind() = 0;
  // The number of rows of the whole result, counted without keeping them.
  virtual std::size_t Count() = 0;
  // Lets go of the statement's read lock; the source may be rewound afterwards.
  virtual void Release() = 0;
};

class Recordset {
 public:
  Recordset() = default;
  Recordset(std::vector<std::string> names, std::vector<std::vector<Value>> rows);
  // A streamed result; the first row is fetched at once.
  Recordset(std::vector<std::string> names, std::shared_ptr<RowSource> source);

  bool Eof() const {
    if (position_ == kBeforeFirst) return rows_.empty();
    return position_ >= first_ + rows_.size();
  }
  bool Bof() const { return (first_ == 0 && rows_.empty()) || position_ == kBeforeFirst; }
  // A streamed result counts its rows once, by a separate pass unless it was read to its end.
  std::size_t RecordCount() const;
  void MoveFirst();
  void MoveLast();
  void MoveNext();
  // A streamed result steps back one row only; further back throws DbError.
  void MovePrevious();
  std::size_t AbsolutePosition() const { return position_; }  // 0-based
  void Close() {
    if (source_) source_->Release();
  }

  // Field of the current row by name, case-insensitive (ASCII and Japanese names as written).
  // Throws DbError naming the field when it does not exist or the recordset is at EOF.
  const Value& operator[](std::string_view name) const;
  const Value& Field(std::size_t index) const;
  bool HasField(std::string_view name) const;
  std::size_t FieldCount() const { return names_.size(); }
  const std::string& FieldName(std::size_t index) const { return names_.at(index); }
  // Index of a field name, or -1. With several fields of one name the first wins.
  int FieldIndex(std::string_view name) const;

  bool Streamed() const { return source_ != nullptr; }

 private:
  static constexpr std::size_t kBeforeFirst = static_cast<std::size_t>(-1);
  static constexpr std::size_t kStreamWindow = 2;
  // Fetches rows until position_ is inside the window or the source is done.
  void Fill();
  void Restart();
  std::vector<std::string> names_;
  struct NameIndex;
  // Built on the first lookup of a wide row (order rows have some 250 fields).
  mutable std::shared_ptr<const NameIndex> name_index_;
  // Materialised: every row. Streamed: the window, rows first_ .. first_ + size - 1.
  std::vector<std::vector<Value>> rows_;
  std::size_t position_ = 0;
  std::size_t first_ = 0;
  std::shared_ptr<RowSource> source_;
  bool exhausted_ = true;
  mutable std::size_t count_ = kBeforeFirst;  // streamed: known once counted or read to the end
};

}  // namespace lupin::db
