#pragma once
// The demo shop the benchmarks run on: a temporary folder with a database filled with demo orders
// (a SQLite file there, or a schema of its own on the PostgreSQL of LUPIN_TEST_PG_URL) and a
// context over it. The folder and the schema go when the home does.
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "db/connection.h"
#include "entry/context.h"
#include "entry/ui.h"

namespace lupin::bench {

struct DemoHomeOptions {
  int orders = 1000;
  std::uint64_t seed = 11;
  db::Engine engine = db::Engine::Sqlite;
  std::string client = "BENCH";
};

class DemoHome {
 public:
  // name: a word for the folder and schema, so a leftover says which benchmark left it.
  DemoHome(std::string_view name, const DemoHomeOptions& options);
  ~DemoHome();
  DemoHome(const DemoHome&) = delete;
  DemoHome& operator=(const DemoHome&) = delete;

  // False (and why set) when PostgreSQL was asked for and LUPIN_TEST_PG_URL is not set.
  bool Ready() const { return why.empty(); }

  std::filesystem::path folder;
  std::unique_ptr<db::Connection> db;
  std::unique_ptr<entry::Context> context;
  std::string why;

 private:
  std::string schema_;
};

// The operator's way to a staged run: the report chosen on the selection form, every order
// criterion cleared, selected, listed and previewed. The rows staged, 0 when anything stopped.
int SelectAndStage(entry::Context& context, entry::Ui& ui, int report_no);

// Resident memory now, and the highest it has been, of this process.
long ResidentKb();
long PeakResidentKb();

}  // namespace lupin::bench
