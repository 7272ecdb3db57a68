#pragma once
// Realistic, deterministic demo data for a fresh database, and the rows a fresh installation needs.
#include <cstdint>
#include <functional>

#include "db/connection.h"

namespace lupin::demo {

struct DemoOptions {
  int orders = 1000;
  std::uint64_t seed = 1;
  int batch = 1000;  // orders per transaction
  // Called after each committed batch with the orders written so far and the total.
  std::function<void(int done, int total)> progress;
};

struct DemoSummary {
  int orders = 0;
  int order_lines = 0;
  int customers = 0;
  int shops = 0;
  int items = 0;
  int payments = 0;
  int staff = 0;
};

struct CatalogueSummary {
  int reports_added = 0;     // REPORT rows for numbers that had none
  int tax_rows_added = 0;    // 0 when TAX already held rows
};

// The report catalogue and the tax generations: adds the REPORT rows of the numbers the table
// lacks and fills TAX when it is empty, so running it twice adds nothing.
CatalogueSummary FillCatalogue(db::Connection& connection);

// Shops, payment methods, items, staff, customers and orders with their lines. The same seed and
// count give the same rows. Expects the tables to exist and the order tables to be empty.
DemoSummary FillDemoData(db::Connection& connection, const DemoOptions& options);

// Number of rows of CHUMON: init refuses to add demo orders to a database that has orders.
long CountOrders(db::Connection& connection);

}  // namespace lupin::demo
