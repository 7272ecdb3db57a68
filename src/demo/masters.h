#pragma once
// Shops, payment methods, items and staff of the demo installation.
#include <string_view>

#include "db/connection.h"
#include "demo/random.h"

namespace lupin::demo {

struct ShopWord {
  std::string_view id;
  std::string_view name;
  std::string_view postcode;
  std::string_view address;
  std::string_view phone;
  std::string_view fax;
  std::string_view url;
  std::string_view order_mail;
  std::string_view inquiry_mail;
  int atena;                 // label mode: non-zero sends slips in the customer's name for gifts
  int tax_calkbn;            // 0 round half up, 1 cut, 2 round up from a tenth
  int shipping_taxkbn;       // non-zero: postage includes its tax
  int handling_taxkbn;       // non-zero: the fee includes its tax
  int includes_declared;     // prices are declared with tax
  std::string_view invoice_name;
  std::string_view invoice_no;
  std::string_view channel;  // "" draws from the general channels
};

inline constexpr ShopWord kShops[] = {
    {"SHOP01", "ルパン堂 本店", "150-0001", "東京都渋谷区神宮前3丁目12番8号 ルパンビル2F", "03-5412-0001",
     "03-5412-0002", "https://shop.example.jp/", "order@shop.example.jp", "info@shop.example.jp", 0, 0, 0, 0, 0,
     "株式会社ルパン堂", "T1234567890123", ""},
    {"SHOP02", "ルパン堂 楽天市場店", "150-0001", "東京都渋谷区神宮前3-12-8", "03-5412-0011", "", 
     "https://market.example.jp/lupin/", "rakuten@shop.example.jp", "rakuten-info@shop.example.jp", 1, 1, 1, 1, 1,
     "株式会社ルパン堂", "T1234567890123", "楽天"},
    {"SHOP03", "ルパン堂 Yahoo!店", "150-0001", "東京都渋谷区神宮前３－１２－８", "03-5412-0021", "03-5412-0022",
     "https://store.example.jp/lupin/", "yahoo@shop.example.jp", "yahoo@shop.example.jp", 0, 2, 0, 1, 0, "", "",
     "Yahoo!ショッピング"},
    {"SHOP04", "ルパン堂 法人卸部", "530-0001", "大阪府大阪市北区梅田1丁目2番3号", "06-6345-0100", "06-6345-0101", "",
     "b2b@shop.example.jp", "b2b@shop.example.jp", 1, 0, 0, 0, 0, "", "", ""},
};

struct PaymentWord {
  std::string_view method;
  std::string_view alias;
  int fee;
  int weight;
};

inline constexpr PaymentWord kPayments[] = {
    {"クレジットカード", "カード", 0, 30}, {"代引き", "代金引換", 330, 22}, {"銀行振込", "振込", 0, 15},
    {"NP後払い", "後払い", 250, 10},       {"コンビニ決済", "コンビニ", 220, 8}, {"郵便振替", "振替", 0, 6},
    {"クロネコwebコレクト", "webコレクト", 0, 5},
};

int FillShops(db::Connection& connection);
int FillPayments(db::Connection& connection);
int FillItems(db::Connection& connection, Random& random);
int FillStaff(db::Connection& connection);
// The tax generations of a fresh installation, when TAX holds none; the orders are priced by them.
int FillTax(db::Connection& connection);

}  // namespace lupin::demo
