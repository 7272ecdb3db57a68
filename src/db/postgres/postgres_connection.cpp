#include "db/postgres/postgres_connection.h"

#include <libpq-fe.h>

#include <charconv>
#include <cstring>
#include <memory>
#include <vector>

#include "db/identifier_quotes.h"
#include "db/postgres/result_values.h"
#include "db/postgres/statement_batch.h"

namespace lupin::db {
namespace {

std::string Trimmed(const char* message) {
  std::string text = message ? message : "";
  const auto end = text.find_last_not_of(" \t\r\n");
  text.erase(end == std::string::npos ? 0 : end + 1);
  return text;
}

struct ResultDeleter {
  void operator()(PGresult* result) const { PQclear(result); }
};
using Result = std::unique_ptr<PGresult, ResultDeleter>;

// Notices ("there is no transaction in progress") would only clutter a workstation's stderr.
void IgnoreNotice(void*, const char*) {}

class PostgresConnection final : public Connection {
 public:
  explicit PostgresConnection(const std::string& conninfo) : conn_(PQconnectdb(conninfo.c_str())) {
    if (conn_ == nullptr) throw DbError("PostgreSQL に接続できません。");
    if (PQstatus(conn_) != CONNECTION_OK) {
      std::string message = Trimmed(PQerrorMessage(conn_));
      PQfinish(conn_);
      conn_ = nullptr;
      throw DbError(message);
    }
    PQsetNoticeProcessor(conn_, IgnoreNotice, nullptr);
    if (PQsetClientEncoding(conn_, "UTF8") != 0) {
      std::string message = Trimmed(PQerrorMessage(conn_));
      PQfinish(conn_);
      conn_ = nullptr;
      throw DbError(message);
    }
  }

  ~PostgresConnection() override { PQfinish(conn_); }

  long Execute(std::string_view sql) override {
    std::string text = EngineSqlText(sql, true);
    if (in_transaction_ && IsDeferrable(text)) {
      if (!failure_.empty()) ThrowFailure();
      if (batch_.Add(text)) Flush();
      return -1;
    }
    return Affected(Run(text).get());
  }

  long ExecuteNow(std::string_view sql) override {
    return Affected(Run(EngineSqlText(sql, true)).get());
  }

  Recordset Open(std::string_view sql) override {
    Result result = Run(EngineSqlText(sql, true));
    PGresult* r = result.get();
    const int columns = PQnfields(r);
    const int count = PQntuples(r);
    std::vector<std::string> names;
    std::vector<Oid> types;
    names.reserve(static_cast<std::size_t>(columns));
    types.reserve(static_cast<std::size_t>(columns));
    for (int c = 0; c < columns; ++c) {
      names.emplace_back(PQfname(r, c));
      types.push_back(PQftype(r, c));
    }
    std::vector<std::vector<Value>> rows;
    rows.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
      std::vector<Value> row;
      row.reserve(static_cast<std::size_t>(columns));
      for (int c = 0; c < columns; ++c) {
        if (PQgetisnull(r, i, c)) {
          row.emplace_back();
        } else {
          const auto length = static_cast<std::size_t>(PQgetlength(r, i, c));
          row.push_back(ValueOfField(types[static_cast<std::size_t>(c)], {PQgetvalue(r, i, c), length}));
        }
      }
      rows.push_back(std::move(row));
    }
    return Recordset(std::move(names), std::move(rows));
  }

  void BeginTrans() override {
    if (in_transaction_) throw DbError("トランザクションは既に開始されています。");
    // BEGIN travels with the transaction's first statement: one round trip less per transaction.
    batch_.Add("BEGIN");
    begun_ = false;
    in_transaction_ = true;
    failure_.clear();
    failure_conflict_ = false;
  }

  void CommitTrans() override {
    if (!in_transaction_) throw DbError("トランザクションが開始されていません。");
    if (!failure_.empty()) {
      std::string failure = std::move(failure_);
      const bool conflict = failure_conflict_;
      RollbackTrans();
      if (conflict) throw ConflictError(failure);
      throw DbError(failure);
    }
    in_transaction_ = false;
    if (!begun_ && batch_.Count() == 1) {
      batch_.Clear();  // nothing happened: nothing to send
      return;
    }
    batch_.Add("COMMIT");
    std::string text = batch_.Text();
    batch_.Clear();
    try {
      Send(text);
    } catch (const DbError&) {
      // A failed statement stops the text before its COMMIT: the server's transaction is still open.
      try { Send("ROLLBACK"); } catch (const DbError&) {}
      throw;
    }
    begun_ = false;
  }

  void RollbackTrans() override {
    if (!in_transaction_) return;
    in_transaction_ = false;
    failure_.clear();
    batch_.Clear();
    // A BEGIN that never left needs no ROLLBACK.
    if (begun_) Send("ROLLBACK");
    begun_ = false;
  }

  bool InTransaction() const override { return in_transaction_; }
  Engine GetEngine() const override { return Engine::Postgres; }

 private:
  static long Affected(PGresult* result) {
    const char* tuples = PQcmdTuples(result);
    long count = -1;
    if (tuples != nullptr && *tuples != '\0') std::from_chars(tuples, tuples + std::strlen(tuples), count);
    return count;
  }

  // Sends the waiting statements; their first error fails the transaction.
  void Flush() {
    if (batch_.Empty()) return;
    std::string text = batch_.Text();
    batch_.Clear();
    begun_ = true;
    Send(text);
  }

  void Send(const std::string& text) { Result ignored = Exec(text); }

  [[noreturn]] void ThrowFailure() const {
    if (failure_conflict_) throw ConflictError(failure_);
    throw DbError(failure_);
  }

  // deadlock_detected, serialization_failure, unique_violation
  static bool IsConflict(const PGresult* result) {
    const char* state = result ? PQresultErrorField(result, PG_DIAG_SQLSTATE) : nullptr;
    if (state == nullptr) return false;
    const std::string_view code(state);
    return code == "40P01" || code == "40001" || code == "23505";
  }

  // Waiting statements go ahead of the text in the same round trip; the result is the text's.
  Result Run(const std::string& text) {
    if (in_transaction_) {
      if (!failure_.empty()) ThrowFailure();
      if (!batch_.Empty()) {
        std::string combined = batch_.Text();
        batch_.Clear();
        begun_ = true;
        combined += text;
        return Exec(combined);
      }
    }
    return Exec(text);
  }

  Result Exec(const std::string& text) {
    CountRoundTrip();
    Result result(PQexec(conn_, text.c_str()));
    const ExecStatusType status = result ? PQresultStatus(result.get()) : PGRES_FATAL_ERROR;
    if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK || status == PGRES_EMPTY_QUERY) return result;
    std::string message = Trimmed(result ? PQresultErrorMessage(result.get()) : PQerrorMessage(conn_));
    if (message.empty()) message = Trimmed(PQerrorMessage(conn_));
    const bool conflict = IsConflict(result.get());
    if (in_transaction_ && failure_.empty()) {
      failure_ = message;
      failure_conflict_ = conflict;
    }
    if (conflict) throw ConflictError(message);
    throw DbError(message);
  }

  PGconn* conn_ = nullptr;
  bool in_transaction_ = false;
  std::string failure_;  // the first error inside the open transaction
  bool failure_conflict_ = false;
  bool begun_ = false;  // the transaction's BEGIN has reached the server
  StatementBatch batch_;
};

}  // namespace

std::unique_ptr<Connection> OpenPostgres(const std::string& conninfo) {
  return std::make_unique<PostgresConnection>(conninfo);
}

}  // namespace lupin::db
