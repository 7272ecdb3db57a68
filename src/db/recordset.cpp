#include "db/recordset.h"

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

void Recordset::MovePrevious() {
  if (position_ == kBeforeFirst) return;
  if (position_ == 0) {
    position_ = kBeforeFirst;
  } else {
    position_ = std::min(position_, rows_.size()) - 1;
  }
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
  return rows_[position_][index];
}

}  // namespace lupin::db
