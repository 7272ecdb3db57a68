#pragma once
// Orders with their lines, written as CHUMON rows whose twenty slots agree with CHUMON_D.
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "db/connection.h"
#include "demo/people.h"
#include "demo/random.h"
#include "entry/schema.h"

namespace lupin::demo {

// The first order day of the demo range and the day the range ends ("today" of the demo shop):
// the range covers the 5 %, 8 % and 10 % generations and the reduced rate.
inline constexpr int kFirstOrderYear = 2013, kFirstOrderMonth = 10;
inline constexpr int kLastOrderYear = 2026, kLastOrderMonth = 9, kLastOrderDay = 30;

struct DemoCustomer {
  Person person;
  int no = 0;
  int kbn = 0;          // 0 customer, 1 delivery address, 2 prospect
  int tanto = 0;
  std::string branch;   // telephone branch number, for customers who share a telephone
  int last_day = -1;    // day of the last order, -1 for none
  std::array<std::int64_t, entry::kLastSalesYear - entry::kFirstSalesYear + 1> sales{};
  std::array<bool, 5> dm{};
};

class OrderWriter {
 public:
  OrderWriter(db::Connection& connection, Random& random, std::vector<DemoCustomer>& customers);
  ~OrderWriter();
  OrderWriter(const OrderWriter&) = delete;
  OrderWriter& operator=(const OrderWriter&) = delete;

  // One order of that id and order day; `first_time` names the customer whose first order it is,
  // or -1 to let the order pick a returning customer or a guest.
  void Add(int id, int day, int first_time);
  void Flush();
  long Lines() const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

void WriteCustomers(db::Connection& connection, const std::vector<DemoCustomer>& customers);

}  // namespace lupin::demo
