#pragma once
// Every database test runs on SQLite and on the real PostgreSQL server that the test run starts.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "db/connection.h"

namespace lupin::testing {

// A fresh, empty database: SQLite in a temporary file; PostgreSQL in a new schema of the server
// named by LUPIN_TEST_PG_URL. Fails the test (never skips) when PostgreSQL cannot be reached.
std::unique_ptr<db::Connection> FreshDatabase(db::Engine engine);
// The URL of the same fresh database, for code that opens its own connection (a second
// workstation, a child process). Call after FreshDatabase; valid while that connection lives.
std::string UrlOf(const db::Connection& connection);

// Parameterised fixture: Db() is a fresh database of the engine under test.
class EngineTest : public ::testing::TestWithParam<db::Engine> {
 protected:
  void SetUp() override {
    connection_ = FreshDatabase(GetParam());
    ASSERT_NE(connection_, nullptr) << "no database for this engine";
  }
  db::Connection& Db() { return *connection_; }
  std::unique_ptr<db::Connection> connection_;
};

std::string EngineName(const ::testing::TestParamInfo<db::Engine>& info);

}  // namespace lupin::testing

#define LUPIN_INSTANTIATE_ENGINES(Suite)                                                          \
  INSTANTIATE_TEST_SUITE_P(Engines, Suite,                                                        \
                           ::testing::Values(::lupin::db::Engine::Sqlite, ::lupin::db::Engine::Postgres), \
                           ::lupin::testing::EngineName)
