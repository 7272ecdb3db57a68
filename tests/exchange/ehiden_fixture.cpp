#include "ehiden_fixture.h"

#include <fstream>
#include <iterator>
#include <random>

#include "common/sql.h"
#include "entry/schema.h"

namespace lupin::exchange::testing {

void InsertRow(db::Connection& db, const std::string& table, const Fields& fields) {
  std::string names, values;
  for (const auto& [name, value] : fields) {
    names += (names.empty() ? "[" : ",[") + name + "]";
    values += (values.empty() ? "'" : ",'") + sql::SqlQuote(value) + "'";
  }
  db.Execute("INSERT INTO [" + table + "](" + names + ") VALUES(" + values + ")");
}

void AddShop(db::Connection& db, const std::string& shop_id, int atena) {
  InsertRow(db, "SHOP", {{"SHOP_ID", shop_id}, {"ATENA", std::to_string(atena)}});
}

void AddOrder(db::Connection& db, int id, const Fields& fields) {
  Fields all{{"ID", std::to_string(id)}};
  all.insert(all.end(), fields.begin(), fields.end());
  InsertRow(db, "CHUMON", all);
}

common::Grid MakeGrid(const std::vector<ListRow>& rows, const std::string& name_caption) {
  common::Grid grid(0, 16);
  grid.SetCaption(2, "ID");
  grid.SetCaption(3, "会社名");
  grid.SetCaption(4, name_caption);
  for (const ListRow& r : rows) {
    const int row = grid.AddRow();
    grid.SetChecked(row, r.checked);
    grid.SetText(row, 2, std::to_string(r.id));
    grid.SetText(row, 3, r.company);
    grid.SetText(row, 4, r.name);
    grid.SetText(row, 11, r.amount);
    grid.SetText(row, 12, r.tax);
  }
  return grid;
}

TempDir::TempDir() {
  std::random_device device;
  path_ = std::filesystem::temp_directory_path() / ("lupin_ehiden_" + std::to_string(device()));
  std::filesystem::create_directories(path_ / "settings");
}

TempDir::~TempDir() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

ExportEnv::ExportEnv(db::Connection& db)
    : context(&db, settings::StorePaths::InFolder(dir.Path() / "settings"), dir.Path()) {
  entry::CreateSchema(db);
}

void WriteBytes(const std::filesystem::path& file, const std::string& bytes) {
  std::ofstream(file, std::ios::binary) << bytes;
}

std::string ReadBytes(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

}  // namespace lupin::exchange::testing
