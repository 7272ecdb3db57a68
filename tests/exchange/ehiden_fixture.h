#pragma once
// Fixtures for the Sagawa file tests: orders and shops with only the fields a case needs, a print
// list grid as the print run fills it, and a context on a temporary component directory.
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "common/grid.h"
#include "db/connection.h"
#include "entry/context.h"

namespace lupin::exchange::testing {

using Fields = std::vector<std::pair<std::string, std::string>>;

// INSERT of the named columns; every value is a quoted literal.
void InsertRow(db::Connection& db, const std::string& table, const Fields& fields);
void AddShop(db::Connection& db, const std::string& shop_id, int atena);
void AddOrder(db::Connection& db, int id, const Fields& fields);

// A print-list row: check mark, id, company, name, amount, tax.
struct ListRow {
  bool checked = true;
  int id = 0;
  std::string company;
  std::string name;
  std::string amount;
  std::string tax;
};
common::Grid MakeGrid(const std::vector<ListRow>& rows, const std::string& name_caption = "氏名");

class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

struct ExportEnv {
  explicit ExportEnv(db::Connection& db);
  TempDir dir;
  entry::Context context;
  std::filesystem::path Out() const { return dir.Path() / "ehiden_s.csv"; }
};

void WriteBytes(const std::filesystem::path& file, const std::string& bytes);
std::string ReadBytes(const std::filesystem::path& file);

}  // namespace lupin::exchange::testing
