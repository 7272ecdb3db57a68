// The table description against the names the component's statements use.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "entry/schema.h"

namespace lupin::entry {
namespace {

struct UsedNames {
  const char* table;
  std::vector<const char*> columns;
};

// Every name below appears in a statement or a field read of the component.
const std::vector<UsedNames> kUsed = {
    {"CHUMON",
     {"ID", "受注日", "受注方法", "出荷日", "出荷予定日", "請求日", "入金日", "入金額", "配達希望日", "配達希望時間帯",
      "配達日", "配達時間帯", "宅配業者", "出荷伝票番号", "支払方法", "電子決済受付No", "返信（出荷）", "返信(出荷)",
      "顧客番号", "顧客NO", "会社名", "所属", "氏名", "氏名カナ", "郵便番号", "住所", "電話番号", "検索用電話番号",
      "メールアドレス", "請求先会社名", "請求先所属", "請求先氏名", "請求先郵便番号", "請求先住所", "請求先電話番号",
      "請求先検索用電話番号", "贈答先会社名", "贈答先所属", "贈答先氏名", "贈答先郵便番号", "贈答先住所",
      "贈答先電話番号", "のし", "のしコメント", "のし1", "のし10", "備考1", "備考10", "意見", "メモ", "メモ2", "メモ3",
      "商品代金", "送料", "決済手数料", "消費税", "請求額", "ポイント利用", "ポイント利用１０％", "ポイント利用８％",
      "ショップID", "ショップ名", "ショップ郵便番号", "ショップ住所", "ショップ電話番号", "ショップFAX", "ショップURL",
      "ショップ注文メールアドレス", "ショップ問合せメールアドレス", "TAXRATE", "商品ID1", "商品ID6", "商品ID11",
      "商品ID16", "商品ID20", "商品名20", "商品カラー20", "商品サイズ20", "単価20", "注文数量1", "注文数量20", "小計20",
      "消費税区分20"}},
    {"CHUMON_D",
     {"ID", "ITEM_NO", "ITEM_ID", "ITEM_MEI", "ITEM_COLOR", "ITEM_SIZE", "ITEM_TANKA", "ITEM_GENKA", "ITEM_PRICE",
      "ITEM_QTY", "ITEM_TAX", "REDUCEDKBN", "ITEM_SYUKKA", "ITEM_SYUDATE", "TAXRATE", "Id"}},
    {"CHUMON_T",
     {"ID", "ZEIRATE1", "ZEIRATE1KIN", "ZEIRATE1ZEI", "ZEIRATE2", "ZEIRATE2KIN", "ZEIRATE2ZEI", "ZEIRATE3",
      "ZEIRATE3KIN", "ZEIRATE3ZEI"}},
    {"CUSTOMER",
     {"顧客NO", "顧客会社名", "顧客所属", "顧客名", "郵便番号", "住所", "TEL番号", "検索用TEL番号", "顧客電話番号",
      "顧客電話番号枝番", "顧客区分", "最終取引日", "担当者コード", "年度純売上額2000", "年度純売上額2024",
      "年度純売上額2035", "DM区分1", "DM区分5"}},
    {"SHOP",
     {"SHOP_ID", "ATENA", "Atena", "SHOPMARK", "SHIPPING_TAXKBN", "HANDLING_TAXKBN", "TAX_CALKBN", "TAX_RATE",
      "TAX_INCLUDES_DECLARED", "INVOICE_NAME", "INVOICE_NO"}},
    {"ITEM", {"ITEM_ID", "ITEM_NAME", "TANI", "SHOP_ID"}},
    {"PAYMENT", {"METHOD", "ORD", "OK", "SHOP_ID", "ALIAS"}},
    {"TANTO", {"担当者コード", "担当者名"}},
    {"TAX", {"RATE", "FROM_DATE", "REDUCEDKBN", "OLDRATE"}},
    {"REPORT",
     {"REPORT_NO", "Report_no", "REPORT_NAME", "ORD", "ENABLED", "PAPER_TYPE", "DEVICE_NAME", "PAPER_SIZE",
      "PAPER_BIN", "MARGIN_LEFT", "MARGIN_TOP", "MARGIN_RIGHT", "MARGIN_BOTTOM", "Orientation", "ORIENTATION", "Where",
      "DATE_LABEL", "DATE_FIELD", "USE_PAPER_TYPE", "MEMO1", "MEMO3", "FLD_LBL1", "FLD_LBL5", "FLD_TXT1", "FLD_TXT5",
      "FLD_TOOLTIP1", "FLD_TOOLTIP5", "PAYMENT_INIT", "BIKO_LBL1", "BIKO_LBL3", "BIKO_FLD1", "BIKO_FLD3", "LBL_RPT",
      "OTHER_TBL_NAME"}},
    {"PRINTED", {"REPORT_NO", "ID", "UPDATE", "CNT"}},
    {"SEIKYU_S", {"注文番号", "請求NO"}},
    {"WK_PRINT",
     {"ID", "SIMEI", "ORD_DATE", "DATE", "Date", "BIKO1", "BIKO2", "BIKO3", "ITEM_ID1", "SEK_GAKU", "EMAIL", "TEL",
      "YUBIN", "COMPANY", "CLIENT_NAME", "TAX", "INSHI"}},
    {"WK_CUSTOMER", {"CUSTOMER_ID", "CUSTOMER_EDA", "SIMEI", "JUSYO", "YUBIN", "COMPANY", "CLIENT_NAME"}},
    {"WK_SEIKYU",
     {"ID", "ORD", "郵便番号", "住所", "会社名", "所属", "氏名", "商品ID1", "商品名1", "注文数量1", "小計1", "備考1", "のし1",
      "商品ID10", "商品名10", "注文数量10", "小計10", "備考10", "のし10", "商品代金", "消費税", "送料", "決済手数料",
      "請求額", "支払方法", "返信(出荷)", "ショップ郵便番号", "ショップ住所", "ショップ名", "ショップ電話番号", "出荷日",
      "ID_STRING", "電話番号", "CNT", "CLIENT_NAME"}},
    {"WK_URIAGE", {"CLIENT_NAME", "TARGET_DATE", "TO_DATE", "ORDERQTY", "TANKA", "QTY", "KINGAKU", "REPEAT_RATE"}},
    {"WK_ITEMLIST", {"ITEM_ID", "ITEM_MEI", "ITEM_TANKA", "ITEM_QTY", "ITEM_TOTAL"}},
};

TEST(SchemaNames, EveryNameTheStatementsUseExists) {
  for (const auto& used : kUsed) {
    const TableDef* table = FindTable(used.table);
    ASSERT_NE(table, nullptr) << used.table;
    for (const char* column : used.columns) {
      EXPECT_NE(table->Find(column), nullptr) << used.table << "." << column;
    }
  }
}

TEST(SchemaNames, EveryTableIsDescribedOnce) {
  std::set<std::string> seen;
  for (const auto& table : SchemaTables()) {
    EXPECT_TRUE(seen.insert(table.name).second) << table.name;
  }
}

// PostgreSQL folds ASCII to lower case, so two names differing only in case would collide there.
TEST(SchemaNames, NoTwoColumnsCollideOncePostgresFoldsThem) {
  for (const auto& table : SchemaTables()) {
    std::set<std::string> folded;
    for (const auto& column : table.columns) {
      EXPECT_TRUE(folded.insert(QuoteName(column.name, db::Engine::Postgres)).second) << table.name << "." << column.name;
    }
  }
}

// Statements join these tables and name the columns bare; a column in both would be ambiguous.
TEST(SchemaNames, BareNamesOfJoinedTablesAreUnambiguous) {
  struct Case {
    const char* left;
    const char* right;
    std::vector<const char*> bare;
  };
  const std::vector<Case> cases = {
      {"CHUMON", "SHOP", {"TAX_RATE", "SHIPPING_TAXKBN", "HANDLING_TAXKBN", "INVOICE_NAME", "INVOICE_NO", "氏名", "送料"}},
      {"CHUMON", "CHUMON_D", {"ITEM_PRICE", "ITEM_TAX", "ITEM_ID", "ITEM_MEI", "受注日", "出荷日", "ショップID"}},
      {"CHUMON", "WK_PRINT", {"顧客NO", "郵便番号", "住所", "会社名", "氏名", "メールアドレス", "受注日", "出荷日"}},
      {"CUSTOMER", "WK_PRINT", {"ID", "顧客名", "住所"}},
      {"CHUMON_D", "SHOP", {"REDUCEDKBN", "ITEM_PRICE"}},
  };
  for (const auto& c : cases) {
    const TableDef* left = FindTable(c.left);
    const TableDef* right = FindTable(c.right);
    ASSERT_TRUE(left && right);
    for (const char* name : c.bare) {
      const int owners = (left->Find(name) ? 1 : 0) + (right->Find(name) ? 1 : 0);
      EXPECT_EQ(owners, 1) << c.left << "/" << c.right << ": " << name;
    }
  }
}

TEST(SchemaNames, LineSlotsAndYearColumnsAreComplete) {
  const TableDef* chumon = FindTable("CHUMON");
  ASSERT_NE(chumon, nullptr);
  for (int n = 1; n <= kChumonSlots; ++n) {
    for (const char* prefix : {"商品ID", "商品名", "商品カラー", "商品サイズ", "単価", "注文数量", "小計", "消費税区分"}) {
      EXPECT_NE(chumon->Find(prefix + std::to_string(n)), nullptr) << prefix << n;
    }
  }
  EXPECT_EQ(chumon->Find("商品ID21"), nullptr);
  const TableDef* customer = FindTable("CUSTOMER");
  ASSERT_NE(customer, nullptr);
  for (int year = kFirstSalesYear; year <= kLastSalesYear; ++year) {
    EXPECT_NE(customer->Find("年度純売上額" + std::to_string(year)), nullptr) << year;
  }
}

}  // namespace
}  // namespace lupin::entry
