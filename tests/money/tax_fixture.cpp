#include "tax_fixture.h"

#include "entry/schema.h"

namespace lupin::money::fixture {

void CreateTables(db::Connection& db) { entry::CreateSchema(db); }

void InsertTax(db::Connection& db, const std::vector<TaxRow>& rows) {
  for (const TaxRow& r : rows) {
    db.Execute("INSERT INTO [TAX]([FROM_DATE],[REDUCEDKBN],[RATE],[OLDRATE]) VALUES('" + r.from_date +
               "'," + std::to_string(r.reduced_kbn) + "," + r.rate + "," + r.old_rate + ")");
  }
}

namespace {
std::string Text(const std::string& s) { return s.empty() ? "NULL" : "'" + s + "'"; }
}  // namespace

void InsertOrder(db::Connection& db, const Order& o) {
  const std::string id = std::to_string(o.id);
  const std::string shop = "S" + id;
  db.Execute("INSERT INTO [SHOP]([SHOP_ID],[SHIPPING_TAXKBN],[HANDLING_TAXKBN],[TAX_CALKBN],"
             "[TAX_INCLUDES_DECLARED]) VALUES('" + shop + "'," + std::to_string(o.shipping_taxkbn) + "," +
             std::to_string(o.handling_taxkbn) + "," + std::to_string(o.tax_calkbn) + "," +
             std::to_string(o.includes_declared) + ")");
  db.Execute("INSERT INTO [CHUMON]([ID],[受注日],[出荷予定日],[出荷日],[請求日],[送料],[決済手数料],"
             "[ポイント利用８％],[ポイント利用１０％],[ショップID]) VALUES(" + id + "," + Text(o.order_date) + "," +
             Text(o.planned_ship_date) + "," + Text(o.ship_date) + "," + Text(o.bill_date) + "," +
             std::to_string(o.postage) + "," + std::to_string(o.fee) + "," + std::to_string(o.points_8) +
             "," + std::to_string(o.points_10) + ",'" + shop + "')");
  int item_no = 1;
  for (const Line& line : o.lines) {
    db.Execute("INSERT INTO [CHUMON_D]([ID],[ITEM_NO],[ITEM_PRICE],[REDUCEDKBN],[ITEM_TAX]) VALUES(" + id +
               "," + std::to_string(item_no++) + "," + line.price + "," + line.reduced_kbn + "," +
               line.item_tax + ")");
  }
}

std::vector<TaxRow> StandardRates() {
  return {
      {"1989/04/01", 0, "3", "NULL"},
      {"2014/04/01", 0, "8", "5"},
      {"2019/10/01", 0, "10", "5"},
      {"2019/10/01", 1, "8", "0"},
  };
}

}  // namespace lupin::money::fixture
