#pragma once
// Orders and shops with only the fields a case needs, a print list grid as the print run fills it,
// and a context on a temporary component directory.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "common/grid.h"
#include "common/sql.h"
#include "common/text.h"
#include "db/connection.h"
#include "entry/context.h"
#include "entry/schema.h"
#include "entry/ui.h"
#include "support/temp_files.h"
#include "support/golden_files.h"

namespace lupin::exchange::testing {

using Fields = std::vector<std::pair<std::string, std::string>>;

// INSERT of the named columns; every value is a quoted literal.
inline void InsertRow(db::Connection& db, const std::string& table, const Fields& fields) {
  std::string names, values;
  for (const auto& [name, value] : fields) {
    names += (names.empty() ? "[" : ",[") + name + "]";
    values += (values.empty() ? "'" : ",'") + sql::SqlQuote(value) + "'";
  }
  db.Execute("INSERT INTO [" + table + "](" + names + ") VALUES(" + values + ")");
}
inline void AddShop(db::Connection& db, const std::string& shop_id, int atena) {
  InsertRow(db, "SHOP", {{"SHOP_ID", shop_id}, {"ATENA", std::to_string(atena)}});
}
inline void AddOrder(db::Connection& db, int id, Fields fields) {
  fields.insert(fields.begin(), {"ID", std::to_string(id)});
  InsertRow(db, "CHUMON", fields);
}

// A print-list row: check mark, id, company, name, amount, tax, ship date (column 7), first item
// (column 10).
struct ListRow {
  bool checked = true;
  int id = 0;
  std::string company{}, name{}, amount{}, tax{}, ship_date{}, item1{};
};
inline common::Grid MakeGrid(const std::vector<ListRow>& rows, const std::string& name_caption = "氏名") {
  common::Grid grid(0, 16);
  grid.SetCaption(2, "ID");
  grid.SetCaption(3, "会社名");
  grid.SetCaption(4, name_caption);
  grid.SetCaption(7, "出荷日");
  grid.SetCaption(11, "請求額");
  for (const ListRow& r : rows) {
    const int row = grid.AddRow();
    grid.SetChecked(row, r.checked);
    for (const auto& [col, text] : {std::pair{2, std::to_string(r.id)}, {3, r.company}, {4, r.name}, {11, r.amount},
                                    {12, r.tax}, {7, r.ship_date}, {10, r.item1}}) {
      grid.SetText(row, col, text);
    }
  }
  return grid;
}

struct ExportEnv {
  explicit ExportEnv(db::Connection& db)
      : context(&db, settings::StorePaths::InFolder(dir.Path() / "settings"), dir.Path()) {
    entry::CreateSchema(db);
  }
  lupin::testing::TempFolder dir{"lupin_exchange_"};
  entry::Context context;
  entry::RecordingUi ui;
  std::filesystem::path Out() const { return dir.Path() / "ehiden_s.csv"; }
};

using lupin::testing::ReadBytes;
using lupin::testing::WriteBytes;

inline std::string Rep(const std::string& piece, int times) {
  std::string out;
  for (int i = 0; i < times; ++i) out += piece;
  return out;
}

using lupin::testing::UpdatingGolden;

// A writer's bytes against the pinned file; a difference also shows as decoded lines to read.
inline void ExpectGolden(const std::filesystem::path& relative, const std::string& actual) {
  if (!UpdatingGolden()) {
    const auto path = std::filesystem::path(LUPIN_GOLDEN_DIR) / relative;
    if (std::filesystem::exists(path)) {
      EXPECT_EQ(text::FromCp932(actual), text::FromCp932(ReadBytes(path))) << relative;
    }
  }
  lupin::testing::ExpectGoldenFile(relative, actual);
}

// The orders behind the pinned files: gifts with and without the shop's ATENA flag, cash on delivery,
// long addresses and names, company and department combinations, every time-zone form. Returns the
// print list over them, with one unchecked row and one row whose order has gone.
std::vector<ListRow> AddGoldenOrders(db::Connection& db);
// Two set-ups of the report: A with every free text, the option file and no hinmei.txt; B with no
// free text (the shop's values), no option file and an item name from hinmei.txt.
void ApplySetupA(entry::Context& context);
void ApplySetupB(entry::Context& context);

// The orders behind the files of the other carriers and services: plain, gifts of a shop with and
// without ATENA, cash on delivery, card and Kuroneko payments, long addresses and names, quotes and
// line breaks inside values, every form of delivery time; one unchecked row and one vanished order.
std::vector<ListRow> AddExchangeOrders(db::Connection& db);

}  // namespace lupin::exchange::testing
