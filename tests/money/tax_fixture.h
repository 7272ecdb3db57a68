#pragma once
// Database rows of the tax tests: the real schema, TAX generations and orders with lines.
#include <cstdint>
#include <string>
#include <vector>

#include "db/connection.h"
#include "entry/schema.h"

namespace lupin::money::fixture {

struct TaxRow {
  std::string from_date;  // "YYYY/MM/DD"
  int reduced_kbn;
  std::string rate, old_rate;  // SQL literals: "10", "NULL"
};

struct Line {
  std::string price{}, reduced_kbn = "0", item_tax = "0";  // SQL literals
};

struct Order {
  std::int32_t id = 1;
  std::string order_date = "2024/05/01", ship_date{};
  std::int32_t postage = 0, fee = 0, points_8 = 0, points_10 = 0;
  int shipping_taxkbn = 0, handling_taxkbn = 0, tax_calkbn = 0, includes_declared = 0;
  std::vector<Line> lines{};
};

inline void CreateSchemaWithTax(db::Connection& db, const std::vector<TaxRow>& rows) {
  entry::CreateSchema(db);
  for (const TaxRow& r : rows) {
    db.Execute("INSERT INTO [TAX]([FROM_DATE],[REDUCEDKBN],[RATE],[OLDRATE]) VALUES('" + r.from_date + "'," +
               std::to_string(r.reduced_kbn) + "," + r.rate + "," + r.old_rate + ")");
  }
}

// The order, its lines and a shop of its own carrying the four tax flags.
inline void InsertOrder(db::Connection& db, const Order& o) {
  auto n = [](auto v) { return std::to_string(v); };
  const std::string id = n(o.id), ship = o.ship_date.empty() ? "NULL" : "'" + o.ship_date + "'";
  db.Execute("INSERT INTO [SHOP]([SHOP_ID],[SHIPPING_TAXKBN],[HANDLING_TAXKBN],[TAX_CALKBN],"
             "[TAX_INCLUDES_DECLARED]) VALUES('S" + id + "'," + n(o.shipping_taxkbn) + "," +
             n(o.handling_taxkbn) + "," + n(o.tax_calkbn) + "," + n(o.includes_declared) + ")");
  db.Execute("INSERT INTO [CHUMON]([ID],[受注日],[出荷日],[送料],[決済手数料],[ポイント利用８％],"
             "[ポイント利用１０％],[ショップID]) VALUES(" + id + ",'" + o.order_date + "'," + ship + "," +
             n(o.postage) + "," + n(o.fee) + "," + n(o.points_8) + "," + n(o.points_10) + ",'S" + id + "')");
  int item_no = 1;
  for (const Line& l : o.lines) {
    db.Execute("INSERT INTO [CHUMON_D]([ID],[ITEM_NO],[ITEM_PRICE],[REDUCEDKBN],[ITEM_TAX]) VALUES(" + id + "," +
               n(item_no++) + "," + l.price + "," + l.reduced_kbn + "," + l.item_tax + ")");
  }
}

// 2014 without a reduced rate, 2019 with one. The old normal rate differs from the reduced rate
// so that slots 2 and 3 cannot be confused.
inline std::vector<TaxRow> StandardRates() {
  return {{"1989/04/01", 0, "3", "NULL"}, {"2014/04/01", 0, "8", "5"}, {"2019/10/01", 0, "10", "5"},
          {"2019/10/01", 1, "8", "0"}};
}

}  // namespace lupin::money::fixture
