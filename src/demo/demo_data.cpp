// Filling a fresh database with the demo shop: masters, customers and orders in batches.
#include "demo/demo_data.h"

#include <algorithm>
#include <string>
#include <vector>

#include "demo/calendar.h"
#include "demo/masters.h"
#include "demo/orders.h"
#include "demo/words.h"

namespace lupin::demo {
namespace {

bool IsEmpty(db::Connection& connection, std::string_view table) {
  auto count = connection.Open("SELECT COUNT(*) AS CNT FROM [" + std::string(table) + "]");
  return count.Eof() || count["CNT"].Long() == 0;
}

std::vector<demo::DemoCustomer> MakeCustomers(demo::Random& random, int ordering, int prospects) {
  constexpr int kPrefectureCount = static_cast<int>(std::size(demo::kPrefectures));
  std::vector<demo::DemoCustomer> customers(static_cast<std::size_t>(ordering + prospects));
  for (std::size_t k = 0; k < customers.size(); ++k) {
    auto& c = customers[k];
    const int index = static_cast<int>(k);
    // The first customers go round the prefectures and their places, so even a small demo covers
    // every prefecture and every place name the address breaker treats specially.
    if (index < kPrefectureCount * 4) {
      c.person = demo::MakePersonIn(random, index % kPrefectureCount, 20, index / kPrefectureCount);
    } else {
      c.person = demo::MakePersonIn(random, random.Between(0, kPrefectureCount - 1), 20);
    }
    c.no = index + 1;
    c.kbn = index >= ordering ? 2 : (random.Percent(15) ? 1 : 0);
    c.tanto = random.Between(1, static_cast<int>(std::size(demo::kStaff)));
    if (k > 0 && random.Percent(4) && !customers[k - 1].person.phone.empty()) {
      // Family members share a telephone; the branch number tells them apart.
      auto& previous = customers[k - 1];
      c.person.phone = previous.person.phone;
      c.person.phone_digits = previous.person.phone_digits;
      if (previous.branch.empty()) previous.branch.assign(1, '1');
      c.branch = std::to_string(std::stoi(previous.branch) + 1);
    }
    for (auto& flag : c.dm) flag = random.Percent(30);
  }
  return customers;
}

}  // namespace

DemoSummary FillDemoData(db::Connection& connection, const DemoOptions& options) {
  demo::Random random(options.seed);
  DemoSummary summary;
  {
    db::Transaction transaction(connection);
    if (IsEmpty(connection, "SHOP")) summary.shops = demo::FillShops(connection);
    if (IsEmpty(connection, "PAYMENT")) summary.payments = demo::FillPayments(connection);
    if (IsEmpty(connection, "ITEM")) summary.items = demo::FillItems(connection, random);
    if (IsEmpty(connection, "TANTO")) summary.staff = demo::FillStaff(connection);
    demo::FillTax(connection);
    transaction.Commit();
  }

  const int orders = std::max(0, options.orders);
  const int batch = std::max(1, options.batch);
  const int ordering = orders == 0 ? 0 : std::max(1, orders / 3);
  std::vector<demo::DemoCustomer> customers = MakeCustomers(random, ordering, ordering / 10 + 1);

  const int first_day = demo::DaysFromCivil(demo::kFirstOrderYear, demo::kFirstOrderMonth, 1);
  const int last_day = demo::DaysFromCivil(demo::kLastOrderYear, demo::kLastOrderMonth, demo::kLastOrderDay);
  const std::int64_t span = last_day - first_day + 1;
  demo::OrderWriter writer(connection, random, customers);
  for (int start = 0; start < orders; start += batch) {
    const int end = std::min(orders, start + batch);
    db::Transaction transaction(connection);
    for (int i = start; i < end; ++i) {
      // Order numbers rise with the order date, as they do when orders are keyed in day by day.
      const int day = first_day + static_cast<int>(i * span / orders);
      writer.Add(i + 1, day, i < ordering ? i : -1);
    }
    writer.Flush();
    transaction.Commit();
    if (options.progress) options.progress(end, orders);
  }
  {
    db::Transaction transaction(connection);
    if (IsEmpty(connection, "CUSTOMER")) {
      demo::WriteCustomers(connection, customers);
      summary.customers = static_cast<int>(customers.size());
    }
    transaction.Commit();
  }
  summary.orders = orders;
  summary.order_lines = static_cast<int>(writer.Lines());
  return summary;
}

}  // namespace lupin::demo
