#include "db/recordset.h"

#include <algorithm>
#include <unordered_map>

#include "common/ascii.h"
#include "db/connection.h"

namespace lupin::db {
namespace {

// Only ASCII letters fold: the old engines compared Japanese names byte for byte.
using text::FoldAscii;

struct FoldedHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view name) const {
    std::size_t hash = 14695981039346656037ull;
    for (char c : name) hash = (hash ^ static_cast<unsigned char>(FoldAscii(c))) * 1099511628211ull;
    return hash;
  }
};

struct FoldedEqual {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const { return text::EqualsAsciiNoCase(a, b); }
};

constexpr std::size_t kLinearLookupLimit = 16;

}  // namespace

struct Recordset::NameIndex {
  std::unordered_map<std::string, int, FoldedHash, FoldedEqual> positions;
};

Recordset::Recordset(std::vector<std::string> names, std::vector<std::vector<Value>> rows)
    : names_(std::move(names)), rows_(std::move(rows)) {}

Recordset::Recordset(std::vector<std::string> names, std::shared_ptr<RowSource> source)
    : names_(std::move(names)), source_(std::move(source)), exhausted_(false) {
  Fill();
}

void Recordset::Fill() {
  while (!exhausted_ && position_ != kBeforeFirst && position_ >= first_ + rows_.size()) {
    std::vector<Value> row;
    if (!source_->Next(row)) {
      exhausted_ = true;
      count_ = first_ + rows_.size();
      source_->Release();
      break;
    }
    if (rows_.size() == kStreamWindow) {
      rows_.erase(rows_.begin());
      ++first_;
    }
    rows_.push_back(std::move(row));
  }
}

void Recordset::Restart() {
  source_->Rewind();
  rows_.clear();
  first_ = 0;
  position_ = 0;
  exhausted_ = false;
  Fill();
}

std::size_t Recordset::RecordCount() const {
  if (!source_) return rows_.size();
  if (count_ == kBeforeFirst) count_ = source_->Count();
  return count_;
}

void Recordset::MoveFirst() {
  if (source_ && first_ != 0) {
    Restart();
    return;
  }
  position_ = 0;
}

void Recordset::MoveLast() {
  if (!source_) {
    position_ = rows_.empty() ? 0 : rows_.size() - 1;
    return;
  }
  if (position_ == kBeforeFirst) position_ = 0;
  while (!exhausted_) {
    ++position_;
    Fill();
  }
  const std::size_t end = first_ + rows_.size();
  position_ = end == 0 ? 0 : end - 1;
}

void Recordset::MoveNext() {
  if (position_ == kBeforeFirst) {
    position_ = 0;
  } else if (source_ ? !Eof() : position_ < rows_.size()) {
    ++position_;
  }
  if (source_) Fill();
}

void Recordset::MovePrevious() {
  if (position_ == kBeforeFirst) return;
  if (position_ == 0) {
    position_ = kBeforeFirst;
    return;
  }
  const std::size_t end = first_ + rows_.size();
  const std::size_t target = std::min(position_, end) - 1;
  if (source_ && target < first_) throw DbError("前方専用のレコードセットは 1 行より前に戻れません。");
  position_ = target;
}

int Recordset::FieldIndex(std::string_view name) const {
  if (names_.size() <= kLinearLookupLimit) {
    for (std::size_t i = 0; i < names_.size(); ++i) {
      if (FoldedEqual{}(names_[i], name)) return static_cast<int>(i);
    }
    return -1;
  }
  if (!name_index_) {
    auto index = std::make_shared<NameIndex>();
    for (std::size_t i = 0; i < names_.size(); ++i) index->positions.emplace(names_[i], static_cast<int>(i));
    name_index_ = std::move(index);
  }
  auto found = name_index_->positions.find(name);
  return found == name_index_->positions.end() ? -1 : found->second;
}

bool Recordset::HasField(std::string_view name) const { return FieldIndex(name) >= 0; }

const Value& Recordset::operator[](std::string_view name) const {
  const int index = FieldIndex(name);
  if (index < 0) throw DbError("項目 '" + std::string(name) + "' がありません。");
  return Field(static_cast<std::size_t>(index));
}

const Value& Recordset::Field(std::size_t index) const {
  if (Eof() || Bof()) {
    throw DbError("BOF と EOF のいずれかが True になっているか、または現在のレコードが削除されています。");
  }
  if (index >= names_.size()) throw DbError("項目 " + std::to_string(index) + " がありません。");
  return rows_[position_ - first_][index];
}

}  // namespace lupin::db
