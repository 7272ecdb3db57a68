// Master rows of the demo installation.
#include "demo/masters.h"

#include "demo/insert_batch.h"
#include "demo/words.h"
#include "entry/schema.h"

namespace lupin::demo {

int FillShops(db::Connection& connection) {
  const entry::TableDef& table = *entry::FindTable("SHOP");
  SqlRow row(table);
  InsertBatch batch(connection, table, 100);
  for (const auto& s : kShops) {
    row.Reset();
    row.Text(row.Index("SHOP_ID"), s.id);
    row.Int(row.Index("ATENA"), s.atena);
    row.Text(row.Index("SHOPMARK"), s.id.substr(4));
    row.Int(row.Index("SHIPPING_TAXKBN"), s.shipping_taxkbn);
    row.Int(row.Index("HANDLING_TAXKBN"), s.handling_taxkbn);
    row.Int(row.Index("TAX_CALKBN"), s.tax_calkbn);
    row.Int(row.Index("TAX_RATE"), 10);
    row.Int(row.Index("TAX_INCLUDES_DECLARED"), s.includes_declared);
    row.Text(row.Index("INVOICE_NAME"), s.invoice_name);
    row.Text(row.Index("INVOICE_NO"), s.invoice_no);
    batch.Add(row);
  }
  batch.Flush();
  return static_cast<int>(batch.RowsWritten());
}

int FillPayments(db::Connection& connection) {
  const entry::TableDef& table = *entry::FindTable("PAYMENT");
  SqlRow row(table);
  InsertBatch batch(connection, table, 100);
  for (const auto& shop : kShops) {
    int ord = 0;
    for (const auto& p : kPayments) {
      ++ord;
      // The wholesale desk takes no card or deferred payment; its postal transfer is switched off.
      const bool wholesale = shop.id == "SHOP04";
      if (wholesale && (p.method == "クレジットカード" || p.method == "NP後払い" || p.method == "コンビニ決済")) continue;
      row.Reset();
      row.Text(row.Index("METHOD"), p.method);
      row.Int(row.Index("ORD"), ord);
      row.Int(row.Index("OK"), wholesale && p.method == "郵便振替" ? 0 : 1);
      row.Text(row.Index("SHOP_ID"), shop.id);
      row.Text(row.Index("ALIAS"), p.alias);
      batch.Add(row);
    }
  }
  batch.Flush();
  return static_cast<int>(batch.RowsWritten());
}

int FillItems(db::Connection& connection, Random& random) {
  const entry::TableDef& table = *entry::FindTable("ITEM");
  SqlRow row(table);
  InsertBatch batch(connection, table, 200);
  for (const auto& shop : kShops) {
    for (const auto& item : kItems) {
      // Each shop lists most of the range; orders may still name an item its master lacks.
      if (random.Percent(10)) continue;
      row.Reset();
      row.Text(row.Index("ITEM_ID"), item.id);
      row.Text(row.Index("ITEM_NAME"), item.name);
      if (!item.unit.empty()) row.Text(row.Index("TANI"), item.unit);
      row.Text(row.Index("SHOP_ID"), shop.id);
      batch.Add(row);
    }
  }
  batch.Flush();
  return static_cast<int>(batch.RowsWritten());
}

int FillStaff(db::Connection& connection) {
  const entry::TableDef& table = *entry::FindTable("TANTO");
  SqlRow row(table);
  InsertBatch batch(connection, table, 100);
  int code = 0;
  for (const auto& name : kStaff) {
    row.Reset();
    row.Int(row.Index("担当者コード"), ++code);
    row.Text(row.Index("担当者名"), name);
    batch.Add(row);
  }
  batch.Flush();
  return static_cast<int>(batch.RowsWritten());
}

}  // namespace lupin::demo
