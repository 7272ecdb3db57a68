#pragma once
// Database fixtures of the tax tests: the real schema, TAX generations and orders with lines.
#include <cstdint>
#include <string>
#include <vector>

#include "db/connection.h"

namespace lupin::money::fixture {

struct TaxRow {
  std::string from_date;  // "YYYY/MM/DD"
  int reduced_kbn;
  std::string rate;       // SQL literal: "10", "NULL"
  std::string old_rate;
};

struct Line {
  std::string price{};    // SQL literal of ITEM_PRICE
  std::string reduced_kbn = "0";
  std::string item_tax = "0";
};

struct Order {
  std::int32_t id = 1;
  std::string order_date = "2024/05/01";
  std::string planned_ship_date{};
  std::string ship_date{};
  std::string bill_date{};
  std::int32_t postage = 0;
  std::int32_t fee = 0;
  std::int32_t points_8 = 0;
  std::int32_t points_10 = 0;
  int shipping_taxkbn = 0;
  int handling_taxkbn = 0;
  int tax_calkbn = 0;
  int includes_declared = 0;
  std::vector<Line> lines{};
};

// Creates every table of the component.
void CreateTables(db::Connection& db);
void InsertTax(db::Connection& db, const std::vector<TaxRow>& rows);
// The order, its lines and a shop of its own carrying the four tax flags.
void InsertOrder(db::Connection& db, const Order& order);

// The rates the order tests use: 2014 without a reduced rate, 2019 with one. The old normal rate
// differs from the reduced rate so that slots 2 and 3 cannot be confused.
std::vector<TaxRow> StandardRates();

}  // namespace lupin::money::fixture
