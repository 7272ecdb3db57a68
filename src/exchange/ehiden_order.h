#pragma once
// The values one order gives to a line of the Sagawa files, and the checks that stop an export.
#include <array>
#include <string>
#include <string_view>

#include "db/recordset.h"
#include "exchange/ehiden_generation.h"
#include "exchange/ehiden_option.h"

namespace lupin::exchange {

// The report's five free texts as the export uses them, trimmed once per export.
struct EhidenSenderTexts {
  std::string name;      // FLD_TXT1
  std::string zip;       // FLD_TXT2
  std::string tel;       // FLD_TXT3
  std::string evening;   // FLD_TXT4: while empty, generations I and II send "04" for 18 to 21 o'clock
  std::string address;   // FLD_TXT5

  static EhidenSenderTexts From(const std::array<std::string, 5>& fld_txt);
};

// What stays the same for every order of one export.
struct EhidenSetup {
  EhidenGeneration generation = EhidenGeneration::III;
  EhidenSenderTexts sender;
  EhidenOptions options;
  std::string item_name;    // first line of hinmei.txt: one description for every parcel
  std::string name_caption; // caption of the print list's name column, for the message
};

// The print-list cells of the order's row that the file takes instead of the order table.
struct EhidenGridCells {
  std::string_view company;  // column 3
  std::string_view name;     // column 4
  std::string_view amount;   // column 11
  std::string_view tax;      // column 12
};

struct EhidenOrder {
  bool is_gift = false;
  bool is_cod = false;
  std::string id;                          // CutBytes 16
  std::string tel;                         // recipient, CutBytes 14
  std::string zip;                         // recipient, CutBytes 8
  std::array<std::string, 5> lines;        // three address lines, two name lines
  std::string shipper_tel;                 // the report's or the shop's, never the customer's
  std::string sender_tel;                  // not cut
  std::string sender_zip;
  std::array<std::string, 2> sender_address;
  std::array<std::string, 2> sender_name;
  std::array<std::string, 5> items;
  std::string delivery_date;               // yyyyMMdd or ""
  std::string time_zone;
  std::string amount;                      // cash on delivery only
  std::string tax;
  std::string planned_ship_date;           // yyyyMMdd or ""
  std::string email;                       // first generation, not for gifts
  std::string gift_shop_name;              // first generation, gifts only
};

// 0 with the values, or the code and message (without the "ID : n の" prefix) of a row that ends
// the export.
struct EhidenOrderResult {
  int code = 0;
  std::string message;
  EhidenOrder order;
};

// `row` is positioned on the order of "SELECT * FROM CHUMON WHERE ID = n"; `atena` is the shop's
// flag that keeps the shop as sender of a gift.
EhidenOrderResult ReadEhidenOrder(const db::Recordset& row, const EhidenGridCells& cells, bool atena,
                                  const EhidenSetup& setup);

}  // namespace lupin::exchange
