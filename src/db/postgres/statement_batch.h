#pragma once
// Inside a transaction the statements that return nothing wait in a batch and travel to the
// server in one round trip, which is what a staging loop of literal INSERTs spends its time on.
#include <cstddef>
#include <string>
#include <string_view>

namespace lupin::db {

// INSERT, UPDATE, DELETE and the DDL verbs; a SELECT or anything unknown runs at once.
bool IsDeferrable(std::string_view sql);

class StatementBatch {
 public:
  static constexpr std::size_t kMaxStatements = 200;
  static constexpr std::size_t kMaxBytes = 256 * 1024;

  // Appends a statement; true when the batch should be sent now.
  bool Add(std::string_view sql);
  bool Empty() const { return count_ == 0; }
  std::size_t Count() const { return count_; }
  const std::string& Text() const { return text_; }
  void Clear() {
    text_.clear();
    count_ = 0;
  }

 private:
  std::string text_;
  std::size_t count_ = 0;
};

}  // namespace lupin::db
