#pragma once
// The ADO-shaped connection that every statement of the component runs on.
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "db/recordset.h"

namespace lupin::db {

// A database error, carrying the engine's own message.
struct DbError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Another workstation's transaction got in the way (a deadlock, a serialization failure, or the
// same new key inserted first): the whole transaction, run again, sees the other's rows.
struct ConflictError : DbError {
  using DbError::DbError;
};

enum class Engine { Sqlite, Postgres };

class Connection {
 public:
  virtual ~Connection() = default;
  Connection() = default;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  // Runs a statement that returns no rows; the number of rows it touched when known, else -1.
  // Inside a transaction a driver may defer the statement to send several in one round trip; a
  // deferred statement's error then surfaces at the next Open, Execute of a query, or CommitTrans.
  virtual long Execute(std::string_view sql) = 0;
  // Runs the statement at once, after any deferred ones, so the count is known: for
  // "UPDATE ..., and INSERT when no row was touched".
  virtual long ExecuteNow(std::string_view sql) { return Execute(sql); }
  virtual Recordset Open(std::string_view sql) = 0;
  // A result read as the cursor moves (forward, one step back), for long results read once: the
  // print list and a report's data. Other statements may run on the connection meanwhile. A driver
  // that cannot stream returns the materialised result.
  virtual Recordset OpenForward(std::string_view sql) { return Open(sql); }
  virtual void BeginTrans() = 0;
  virtual void CommitTrans() = 0;
  // A failed statement marks the open transaction failed: CommitTrans then rolls it back and
  // throws the first error again. RollbackTrans outside a transaction does nothing, so a
  // handler may always call it.
  virtual void RollbackTrans() = 0;
  virtual bool InTransaction() const = 0;
  virtual Engine GetEngine() const = 0;

  // Trips to the engine since the connection opened: on PostgreSQL each text sent to the server
  // and its answer (deferred statements travel together), on SQLite each call that runs SQL.
  // What a run spends on the database, for benchmarks and for tests of batching and caching.
  // A connection that wraps another answers with the other's count.
  virtual std::uint64_t RoundTrips() const { return round_trips_; }

 protected:
  void CountRoundTrip() { ++round_trips_; }

 private:
  std::uint64_t round_trips_ = 0;
};

// "sqlite:PATH" (":memory:" allowed) or "postgresql://..." / "postgres://...".
std::unique_ptr<Connection> OpenConnection(std::string_view url);

// Rolls back on scope exit unless committed: staging and bookkeeping use it.
class Transaction {
 public:
  explicit Transaction(Connection& connection) : connection_(connection) { connection_.BeginTrans(); }
  ~Transaction() {
    if (!done_) {
      try { connection_.RollbackTrans(); } catch (...) {}
    }
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  void Commit() { connection_.CommitTrans(); done_ = true; }
  void Rollback() { connection_.RollbackTrans(); done_ = true; }

 private:
  Connection& connection_;
  bool done_ = false;
};

}  // namespace lupin::db
