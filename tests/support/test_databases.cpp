#include "support/test_databases.h"

#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace lupin::testing {
namespace {

std::atomic<int> counter{0};

std::string UniqueStem() {
  return std::to_string(::getpid()) + "_" + std::to_string(counter.fetch_add(1));
}

// The connection under test, with the URL another connection needs and the cleanup of the
// database when the test is done with it.
class TestConnection final : public db::Connection {
 public:
  TestConnection(std::unique_ptr<db::Connection> inner, std::string url, std::string sqlite_path,
                 std::string pg_schema)
      : inner_(std::move(inner)),
        url_(std::move(url)),
        sqlite_path_(std::move(sqlite_path)),
        pg_schema_(std::move(pg_schema)) {}

  ~TestConnection() override {
    if (!pg_schema_.empty()) {
      try {
        inner_->RollbackTrans();
        // A connection the test forgot would otherwise hold the drop forever.
        inner_->Execute("SET lock_timeout = '10s'");
        inner_->Execute("DROP SCHEMA IF EXISTS " + pg_schema_ + " CASCADE");
      } catch (const std::exception& error) {
        ADD_FAILURE() << "test schema " << pg_schema_ << " not dropped: " << error.what();
      }
    }
    inner_.reset();
    if (!sqlite_path_.empty()) {
      std::error_code ignored;
      for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
        std::filesystem::remove(sqlite_path_ + suffix, ignored);
      }
    }
  }

  long Execute(std::string_view sql) override { return inner_->Execute(sql); }
  long ExecuteNow(std::string_view sql) override { return inner_->ExecuteNow(sql); }
  db::Recordset Open(std::string_view sql) override { return inner_->Open(sql); }
  // Forwarded, so that the tests read streamed results as the program does.
  db::Recordset OpenForward(std::string_view sql) override { return inner_->OpenForward(sql); }
  void BeginTrans() override { inner_->BeginTrans(); }
  void CommitTrans() override { inner_->CommitTrans(); }
  void RollbackTrans() override { inner_->RollbackTrans(); }
  bool InTransaction() const override { return inner_->InTransaction(); }
  db::Engine GetEngine() const override { return inner_->GetEngine(); }
  std::uint64_t RoundTrips() const override { return inner_->RoundTrips(); }
  const std::string& Url() const { return url_; }

 private:
  std::unique_ptr<db::Connection> inner_;
  std::string url_;
  std::string sqlite_path_;
  std::string pg_schema_;
};

std::unique_ptr<db::Connection> FreshSqlite() {
  const char* tmp = std::getenv("TMPDIR");
  const std::filesystem::path dir = tmp && *tmp ? tmp : "/tmp";
  const std::string path = (dir / ("lupin_test_" + UniqueStem() + ".sqlite")).string();
  const std::string url = "sqlite:" + path;
  return std::make_unique<TestConnection>(db::OpenConnection(url), url, path, "");
}

// libpq takes server options from the URL, so a second connection lands in the same schema.
std::string WithSearchPath(const std::string& base, const std::string& schema) {
  const char separator = base.find('?') == std::string::npos ? '?' : '&';
  return base + separator + "options=-csearch_path%3D" + schema;
}

std::unique_ptr<db::Connection> FreshPostgres() {
  const char* base = std::getenv("LUPIN_TEST_PG_URL");
  if (base == nullptr || *base == '\0') {
    ADD_FAILURE() << "LUPIN_TEST_PG_URL is not set: run `eval $(scripts/pg-test-cluster start)` first";
    return nullptr;
  }
  const std::string schema = "t_" + UniqueStem();
  try {
    auto admin = db::OpenConnection(base);
    admin->Execute("DROP SCHEMA IF EXISTS " + schema + " CASCADE");
    admin->Execute("CREATE SCHEMA " + schema);
    const std::string url = WithSearchPath(base, schema);
    return std::make_unique<TestConnection>(db::OpenConnection(url), url, "", schema);
  } catch (const db::DbError& error) {
    ADD_FAILURE() << "PostgreSQL at " << base << " is not reachable: " << error.what()
                  << " (run `eval $(scripts/pg-test-cluster start)`)";
    return nullptr;
  }
}

}  // namespace

std::unique_ptr<db::Connection> FreshDatabase(db::Engine engine) {
  return engine == db::Engine::Sqlite ? FreshSqlite() : FreshPostgres();
}

std::string UrlOf(const db::Connection& connection) {
  const auto* test_connection = dynamic_cast<const TestConnection*>(&connection);
  if (test_connection == nullptr) throw std::invalid_argument("UrlOf: not a connection of FreshDatabase");
  return test_connection->Url();
}

std::string EngineName(const ::testing::TestParamInfo<db::Engine>& info) {
  return info.param == db::Engine::Sqlite ? "Sqlite" : "Postgres";
}

}  // namespace lupin::testing
