#pragma once
// Workstations book overlapping orders at the same moment: two may both find no ledger row and
// both insert one, or wait on each other's rows. The database then refuses one transaction with a
// conflict; run again, it sees the other's committed rows and goes through.
#include <chrono>
#include <random>
#include <thread>

#include "db/connection.h"

namespace lupin::run {

inline constexpr int kConflictAttempts = 8;

// body runs a whole transaction and rolls it back itself before an error leaves it.
template <class Body>
auto RetryOnConflict(Body&& body) -> decltype(body()) {
  thread_local std::minstd_rand jitter{std::random_device{}()};
  for (int attempt = 1;; ++attempt) {
    try {
      return body();
    } catch (const db::ConflictError&) {
      if (attempt >= kConflictAttempts) throw;
      // Apart at random, so the same two do not meet again.
      std::this_thread::sleep_for(std::chrono::milliseconds(1 + jitter() % (5 * attempt)));
    }
  }
}

}  // namespace lupin::run
