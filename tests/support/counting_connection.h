#pragma once
// A run's connection with the statements that return rows counted, so that a test sees what a
// run asks the database whatever the engine counts as a round trip.
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "db/connection.h"

namespace lupin::testing {

class CountingConnection final : public db::Connection {
 public:
  explicit CountingConnection(db::Connection& inner) : inner_(inner) {}

  long Execute(std::string_view sql) override { return inner_.Execute(sql); }
  long ExecuteNow(std::string_view sql) override { return inner_.ExecuteNow(sql); }
  db::Recordset Open(std::string_view sql) override { return ++queries, inner_.Open(sql); }
  db::Recordset OpenForward(std::string_view sql) override { return ++queries, inner_.OpenForward(sql); }
  void BeginTrans() override { inner_.BeginTrans(); }
  void CommitTrans() override { inner_.CommitTrans(); }
  void RollbackTrans() override { inner_.RollbackTrans(); }
  bool InTransaction() const override { return inner_.InTransaction(); }
  db::Engine GetEngine() const override { return inner_.GetEngine(); }
  std::uint64_t RoundTrips() const override { return inner_.RoundTrips(); }

  long queries = 0;

 private:
  db::Connection& inner_;
};

// What one run cost the database, and what it made (a file's bytes, the words of its pages).
struct RunCost {
  long queries;
  std::uint64_t round_trips;
  std::string output;
};

// Runs run() (which returns its output) and counts its statements and round trips.
template <class Run>
RunCost CostOf(CountingConnection& counting, const db::Connection& inner, Run&& run) {
  const long queries = counting.queries;
  const std::uint64_t trips = inner.RoundTrips();
  std::string output = run();
  return {counting.queries - queries, inner.RoundTrips() - trips, std::move(output)};
}

}  // namespace lupin::testing
