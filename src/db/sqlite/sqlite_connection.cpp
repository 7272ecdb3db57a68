#include "db/sqlite/sqlite_connection.h"

#include <sqlite3.h>

#include <memory>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "db/identifier_quotes.h"

namespace lupin::db {
namespace {

// Several workstations write to one file; a writer waits this long for another's commit.
constexpr int kBusyTimeoutMs = 30000;
constexpr std::size_t kStatementCacheLimit = 64;
constexpr std::size_t kSeenLimit = 4096;

Value ColumnValue(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER: return Value(static_cast<std::int64_t>(sqlite3_column_int64(statement, column)));
    case SQLITE_FLOAT: return Value(sqlite3_column_double(statement, column));
    case SQLITE_NULL: return Value();
    default: {
      const auto* text = sqlite3_column_text(statement, column);
      const int size = sqlite3_column_bytes(statement, column);
      return Value(std::string(reinterpret_cast<const char*>(text), static_cast<std::size_t>(size)));
    }
  }
}

struct Finalizer {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using OwnedStatement = std::unique_ptr<sqlite3_stmt, Finalizer>;

// A prepared statement of its own, stepped as the recordset moves.
class StatementRows final : public RowSource {
 public:
  StatementRows(sqlite3* db, OwnedStatement statement) : db_(db), statement_(std::move(statement)) {}

  bool Next(std::vector<Value>& row) override {
    const int rc = sqlite3_step(statement_.get());
    if (rc == SQLITE_DONE) return false;
    if (rc != SQLITE_ROW) Fail();
    const int columns = sqlite3_column_count(statement_.get());
    row.clear();
    row.reserve(static_cast<std::size_t>(columns));
    for (int c = 0; c < columns; ++c) row.push_back(ColumnValue(statement_.get(), c));
    return true;
  }

  void Rewind() override { sqlite3_reset(statement_.get()); }

  std::size_t Count() override {
    const char* sql = sqlite3_sql(statement_.get());
    sqlite3_stmt* raw = nullptr;
    if (sqlite3_prepare_v2(db_, sql, -1, &raw, nullptr) != SQLITE_OK) Fail();
    OwnedStatement counter(raw);
    std::size_t count = 0;
    for (int rc; (rc = sqlite3_step(counter.get())) != SQLITE_DONE; ++count) {
      if (rc != SQLITE_ROW) Fail();
    }
    return count;
  }

  void Release() override { sqlite3_reset(statement_.get()); }

 private:
  [[noreturn]] void Fail() {
    std::string message = sqlite3_errmsg(db_);
    sqlite3_reset(statement_.get());
    throw DbError(message);
  }

  sqlite3* db_;
  OwnedStatement statement_;
};

class SqliteConnection final : public Connection {
 public:
  explicit SqliteConnection(const std::string& path) {
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
    if (sqlite3_open_v2(path.c_str(), &db_, flags, nullptr) != SQLITE_OK) {
      std::string message = db_ ? sqlite3_errmsg(db_) : "out of memory";
      sqlite3_close(db_);
      db_ = nullptr;
      throw DbError(message + ": " + path);
    }
    sqlite3_busy_timeout(db_, kBusyTimeoutMs);
    Run("PRAGMA journal_mode=WAL");
    Run("PRAGMA synchronous=NORMAL");
    Run("PRAGMA foreign_keys=OFF");
  }

  ~SqliteConnection() override {
    for (auto& [text, statement] : cache_) sqlite3_finalize(statement);
    sqlite3_close_v2(db_);
  }

  long Execute(std::string_view sql) override {
    Run(sql);
    return sqlite3_changes(db_);
  }

  Recordset Open(std::string_view sql) override {
    std::vector<std::string> names;
    std::vector<std::vector<Value>> rows;
    Run(sql, &names, &rows);
    return Recordset(std::move(names), std::move(rows));
  }

  Recordset OpenForward(std::string_view sql) override {
    // Texts of several statements keep the materialised path, which runs them all.
    const char* tail = nullptr;
    sqlite3_stmt* raw = nullptr;
    const int rc = sqlite3_prepare_v2(db_, sql.data(), static_cast<int>(sql.size()), &raw, &tail);
    OwnedStatement statement(raw);
    if (rc != SQLITE_OK) Fail(sqlite3_errmsg(db_));
    if (!statement || !IsBlank(std::string_view(tail, static_cast<std::size_t>(sql.data() + sql.size() - tail)))) {
      return Open(sql);
    }
    CountRoundTrip();
    std::vector<std::string> names;
    const int columns = sqlite3_column_count(statement.get());
    for (int c = 0; c < columns; ++c) names.emplace_back(sqlite3_column_name(statement.get(), c));
    try {
      return Recordset::Streaming(std::move(names), std::make_shared<StatementRows>(db_, std::move(statement)));
    } catch (const DbError& e) {
      Fail(e.what());
    }
  }

  void BeginTrans() override {
    if (in_transaction_) throw DbError("トランザクションは既に開始されています。");
    // IMMEDIATE takes the write lock at once (waiting out other writers), so a transaction never
    // fails half-way when its first write meets another workstation's.
    Run("BEGIN IMMEDIATE");
    in_transaction_ = true;
    failure_.clear();
  }

  void CommitTrans() override {
    if (!in_transaction_) throw DbError("トランザクションが開始されていません。");
    if (!failure_.empty()) {
      std::string failure = std::move(failure_);
      RollbackTrans();
      throw DbError(failure);
    }
    Run("COMMIT");
    in_transaction_ = false;
  }

  void RollbackTrans() override {
    if (!in_transaction_) return;
    in_transaction_ = false;
    failure_.clear();
    if (!sqlite3_get_autocommit(db_)) Run("ROLLBACK");
  }

  bool InTransaction() const override { return in_transaction_; }
  Engine GetEngine() const override { return Engine::Sqlite; }

 private:
  [[noreturn]] void Fail(std::string message) {
    if (in_transaction_ && failure_.empty()) failure_ = message;
    throw DbError(message);
  }

  // Runs every statement of the text; the rows and names are those of the last one.
  void Run(std::string_view sql, std::vector<std::string>* names = nullptr,
           std::vector<std::vector<Value>>* rows = nullptr) {
    if (HasDateHash(sql)) {
      // Dialect 1 writes dates as #YYYY/MM/DD#, which SQLite reads only in quotes.
      const std::string text = EngineSqlText(sql, false);
      if (text != sql) return Run(text, names, rows);
    }
    CountRoundTrip();
    if (auto found = cache_.find(sql); found != cache_.end()) {
      Step(found->second, names, rows);
      return;
    }
    std::string_view rest = sql;
    bool first = true;
    while (!IsBlank(rest)) {
      sqlite3_stmt* raw = nullptr;
      const char* tail = nullptr;
      const int rc = sqlite3_prepare_v2(db_, rest.data(), static_cast<int>(rest.size()), &raw, &tail);
      OwnedStatement statement(raw);
      if (rc != SQLITE_OK) Fail(sqlite3_errmsg(db_));
      const std::size_t consumed = static_cast<std::size_t>(tail - rest.data());
      rest.remove_prefix(consumed);
      if (!statement) continue;  // a comment
      const bool last = IsBlank(rest);
      Step(statement.get(), last ? names : nullptr, last ? rows : nullptr);
      if (first && last && SeenBefore(sql)) {
        if (cache_.size() >= kStatementCacheLimit) ClearCache();
        cache_.emplace(std::string(sql), statement.release());
      }
      first = false;
    }
  }

  static bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n;") == std::string_view::npos;
  }

  void Step(sqlite3_stmt* statement, std::vector<std::string>* names, std::vector<std::vector<Value>>* rows) {
    const int columns = sqlite3_column_count(statement);
    if (names != nullptr) {
      names->clear();
      names->reserve(static_cast<std::size_t>(columns));
      for (int c = 0; c < columns; ++c) names->emplace_back(sqlite3_column_name(statement, c));
    }
    for (;;) {
      const int rc = sqlite3_step(statement);
      if (rc == SQLITE_DONE) break;
      if (rc != SQLITE_ROW) {
        std::string message = sqlite3_errmsg(db_);
        sqlite3_reset(statement);
        Fail(std::move(message));
      }
      if (rows != nullptr) {
        std::vector<Value> row;
        row.reserve(static_cast<std::size_t>(columns));
        for (int c = 0; c < columns; ++c) row.push_back(ColumnValue(statement, c));
        rows->push_back(std::move(row));
      }
    }
    sqlite3_reset(statement);
  }

  // Texts repeat in loops; literal texts mostly do not, so a text is kept only when it comes back,
  // which spares a stream of one-off statements the copying and the churn.
  bool SeenBefore(std::string_view sql) {
    const std::size_t hash = std::hash<std::string_view>{}(sql);
    if (seen_.size() >= kSeenLimit) seen_.clear();
    return !seen_.insert(hash).second;
  }

  void ClearCache() {
    for (auto& [text, statement] : cache_) sqlite3_finalize(statement);
    cache_.clear();
  }

  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
  };

  sqlite3* db_ = nullptr;
  bool in_transaction_ = false;
  std::string failure_;  // the first error inside the open transaction
  std::unordered_map<std::string, sqlite3_stmt*, TextHash, std::equal_to<>> cache_;
  std::unordered_set<std::size_t> seen_;  // hashes of texts run once
};

}  // namespace

std::unique_ptr<Connection> OpenSqlite(const std::string& path) {
  // Memory statistics take a global mutex on every allocation; nothing here reads them. The call
  // only succeeds before the library's first use, and is harmless after it.
  static const bool configured = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0) == SQLITE_OK;
  (void)configured;
  return std::make_unique<SqliteConnection>(path);
}

}  // namespace lupin::db
