// The tables of the order database, as the component's statements name them.
#include <string>
#include <vector>

#include "entry/schema.h"

namespace lupin::entry {
namespace {

using T = ColumnType;

class TableBuilder {
 public:
  explicit TableBuilder(std::string name) { table_.name = std::move(name); }
  TableBuilder& Col(std::string name, ColumnType type, std::string default_value = {}) {
    table_.columns.push_back({std::move(name), type, std::move(default_value)});
    return *this;
  }
  TableBuilder& Cols(std::initializer_list<const char*> names, ColumnType type) {
    for (const char* name : names) Col(name, type);
    return *this;
  }
  // prefix1 .. prefixN
  TableBuilder& Numbered(const std::string& prefix, int first, int last, ColumnType type) {
    for (int n = first; n <= last; ++n) Col(prefix + std::to_string(n), type);
    return *this;
  }
  TableBuilder& Key(std::vector<std::string> columns) {
    table_.primary_key = std::move(columns);
    return *this;
  }
  TableBuilder& Index(std::vector<std::string> columns, bool unique = false) {
    table_.indexes.push_back({std::move(columns), unique});
    return *this;
  }
  TableDef Build() { return std::move(table_); }

 private:
  TableDef table_;
};

TableDef Chumon() {
  TableBuilder b("CHUMON");
  b.Col("ID", T::Integer)
      .Col("受注日", T::DateText)
      .Col("受注方法", T::Text)
      .Col("出荷日", T::DateText)
      .Col("出荷予定日", T::DateText)
      .Col("請求日", T::DateText)
      .Col("入金日", T::DateText)
      .Col("入金額", T::Money)
      .Cols({"配達希望日", "配達希望時間帯", "配達日", "配達時間帯", "宅配業者", "出荷伝票番号", "支払方法",
             "電子決済受付No"},
            T::Text)
      // Some statements spell the marker with full-width brackets, others with ASCII ones.
      .Cols({"返信（出荷）", "返信(出荷)"}, T::Text)
      // 顧客NO is the customer as the sales summaries read it; 顧客番号 as the lists and joins do.
      .Cols({"顧客番号", "顧客NO", "担当者コード"}, T::Integer)
      .Cols({"会社名", "所属", "氏名", "氏名カナ", "郵便番号", "住所", "電話番号", "検索用電話番号", "メールアドレス"},
            T::Text)
      .Cols({"請求先会社名", "請求先所属", "請求先氏名", "請求先郵便番号", "請求先住所", "請求先電話番号",
             "請求先検索用電話番号"},
            T::Text)
      .Cols({"贈答先会社名", "贈答先所属", "贈答先氏名", "贈答先郵便番号", "贈答先住所", "贈答先電話番号"}, T::Text)
      .Cols({"のし", "のしコメント"}, T::Text)
      .Numbered("のし", 1, 10, T::Text)
      .Numbered("備考", 1, 10, T::Text)
      .Cols({"意見", "メモ", "メモ2", "メモ3"}, T::Text)
      .Cols({"商品代金", "送料", "決済手数料", "消費税", "請求額", "ポイント利用", "ポイント利用１０％", "ポイント利用８％"},
            T::Money)
      .Cols({"ショップID", "ショップ名", "ショップ郵便番号", "ショップ住所", "ショップ電話番号", "ショップFAX",
             "ショップURL", "ショップ注文メールアドレス", "ショップ問合せメールアドレス"},
            T::Text)
      // TAX_RATE lives in SHOP only: the delivery note joins CHUMON and SHOP and names it bare.
      .Col("TAXRATE", T::Real);
  for (int n = 1; n <= kChumonSlots; ++n) {
    const std::string s = std::to_string(n);
    b.Col("商品ID" + s, T::Text)
        .Col("商品名" + s, T::Text)
        .Col("商品カラー" + s, T::Text)
        .Col("商品サイズ" + s, T::Text)
        .Col("単価" + s, T::Money)
        .Col("注文数量" + s, T::Real)
        .Col("小計" + s, T::Money)
        .Col("消費税区分" + s, T::Integer);
  }
  return b.Key({"ID"})
      .Index({"出荷日"})
      .Index({"受注日"})
      .Index({"顧客番号"})
      .Index({"顧客NO"})
      .Build();
}

TableDef ChumonD() {
  return TableBuilder("CHUMON_D")
      .Col("ID", T::Integer)
      .Col("ITEM_NO", T::Integer)
      .Cols({"ITEM_ID", "ITEM_MEI", "ITEM_COLOR", "ITEM_SIZE"}, T::Text)
      .Cols({"ITEM_TANKA", "ITEM_GENKA", "ITEM_PRICE"}, T::Money)
      .Col("ITEM_QTY", T::Real)
      .Col("ITEM_TAX", T::Flag, "0")
      .Col("REDUCEDKBN", T::Flag, "0")
      .Col("TAXRATE", T::Real)
      .Col("ITEM_SYUKKA", T::Flag, "0")
      .Col("ITEM_SYUDATE", T::DateText)
      .Key({"ID", "ITEM_NO"})
      .Index({"ITEM_ID"})
      .Build();
}

TableDef ChumonT() {
  TableBuilder b("CHUMON_T");
  b.Col("ID", T::Integer);
  for (int n = 1; n <= 3; ++n) {
    const std::string s = "ZEIRATE" + std::to_string(n);
    b.Col(s, T::Money).Col(s + "KIN", T::Money).Col(s + "ZEI", T::Money);
  }
  return b.Key({"ID"}).Build();
}

TableDef Customer() {
  TableBuilder b("CUSTOMER");
  b.Col("顧客NO", T::Integer)
      .Cols({"顧客会社名", "顧客所属", "顧客名", "郵便番号", "住所", "TEL番号", "検索用TEL番号", "顧客電話番号",
             "顧客電話番号枝番"},
            T::Text)
      .Col("顧客区分", T::Integer, "0")
      .Col("最終取引日", T::DateText)
      .Col("担当者コード", T::Integer)
      .Numbered("年度純売上額", kFirstSalesYear, kLastSalesYear, T::Money);
  for (int n = 1; n <= 5; ++n) b.Col("DM区分" + std::to_string(n), T::Flag, "0");
  return b.Key({"顧客NO"}).Index({"検索用TEL番号"}).Index({"郵便番号"}).Build();
}

TableDef Shop() {
  return TableBuilder("SHOP")
      .Col("SHOP_ID", T::Text)
      .Col("ATENA", T::Integer, "0")
      .Col("SHOPMARK", T::Text)
      .Cols({"SHIPPING_TAXKBN", "HANDLING_TAXKBN", "TAX_CALKBN"}, T::Integer)
      .Col("TAX_RATE", T::Real)
      .Col("TAX_INCLUDES_DECLARED", T::Integer, "0")
      .Cols({"INVOICE_NAME", "INVOICE_NO"}, T::Text)
      .Key({"SHOP_ID"})
      .Build();
}

TableDef Item() {
  return TableBuilder("ITEM")
      .Cols({"ITEM_ID", "ITEM_NAME", "TANI", "SHOP_ID"}, T::Text)
      .Index({"ITEM_ID", "SHOP_ID"})
      .Build();
}

TableDef Payment() {
  return TableBuilder("PAYMENT")
      .Col("METHOD", T::Text)
      .Col("ORD", T::Integer)
      .Col("OK", T::Flag, "1")
      .Cols({"SHOP_ID", "ALIAS"}, T::Text)
      .Build();
}

TableDef Tanto() {
  return TableBuilder("TANTO").Col("担当者コード", T::Integer).Col("担当者名", T::Text).Key({"担当者コード"}).Build();
}

TableDef Tax() {
  return TableBuilder("TAX")
      .Col("RATE", T::Real)
      .Col("FROM_DATE", T::DateText)
      .Col("REDUCEDKBN", T::Flag, "0")
      .Col("OLDRATE", T::Real)
      .Build();
}

TableDef Report() {
  TableBuilder b("REPORT");
  b.Col("REPORT_NO", T::Integer)
      .Col("REPORT_NAME", T::Text)
      .Col("ORD", T::Integer)
      .Col("ENABLED", T::Flag, "1")
      .Col("PAPER_TYPE", T::Integer, "0")
      .Col("DEVICE_NAME", T::Text)
      .Cols({"PAPER_SIZE", "PAPER_BIN", "MARGIN_LEFT", "MARGIN_TOP", "MARGIN_RIGHT", "MARGIN_BOTTOM", "Orientation"},
            T::Integer)
      .Col("Where", T::Integer, "0")
      .Cols({"DATE_LABEL", "DATE_FIELD"}, T::Text)
      .Col("USE_PAPER_TYPE", T::Integer, "0")
      .Numbered("MEMO", 1, 3, T::Text)
      .Numbered("FLD_LBL", 1, 5, T::Text)
      .Numbered("FLD_TXT", 1, 5, T::Text)
      .Numbered("FLD_TOOLTIP", 1, 5, T::Text)
      .Col("PAYMENT_INIT", T::Integer, "0")
      .Numbered("BIKO_LBL", 1, 3, T::Text)
      .Numbered("BIKO_FLD", 1, 3, T::Text)
      .Col("LBL_RPT", T::Integer, "0")
      .Col("OTHER_TBL_NAME", T::Text);
  return b.Key({"REPORT_NO"}).Build();
}

TableDef Printed() {
  // A first print inserts without CNT, so the column starts at one.
  return TableBuilder("PRINTED")
      .Col("REPORT_NO", T::Integer)
      .Col("ID", T::Integer)
      .Col("UPDATE", T::Integer)
      .Col("CNT", T::Integer, "1")
      .Index({"REPORT_NO", "ID"}, true)
      .Build();
}

TableDef SeikyuS() {
  // "INSERT INTO [SEIKYU_S] VALUES(" names no columns: the order of the two is fixed.
  return TableBuilder("SEIKYU_S")
      .Col("注文番号", T::Integer)
      .Col("請求NO", T::Integer)
      .Index({"注文番号"})
      .Index({"請求NO"})
      .Build();
}

TableDef WkPrint() {
  return TableBuilder("WK_PRINT")
      .Col("ID", T::Integer)
      .Cols({"SIMEI", "ORD_DATE", "DATE", "BIKO1", "BIKO2", "BIKO3", "ITEM_ID1"}, T::Text)
      .Col("SEK_GAKU", T::Money)
      .Cols({"EMAIL", "TEL", "YUBIN", "COMPANY", "CLIENT_NAME"}, T::Text)
      .Col("TAX", T::Money)
      .Col("INSHI", T::Integer)
      .Index({"CLIENT_NAME", "ID"})
      .Build();
}

TableDef WkCustomer() {
  return TableBuilder("WK_CUSTOMER")
      .Col("CUSTOMER_ID", T::Integer)
      .Cols({"CUSTOMER_EDA", "SIMEI", "JUSYO", "YUBIN", "COMPANY", "CLIENT_NAME"}, T::Text)
      .Index({"CLIENT_NAME"})
      .Build();
}

TableDef WkSeikyu() {
  TableBuilder b("WK_SEIKYU");
  b.Col("ID", T::Integer).Col("ORD", T::Integer).Cols({"郵便番号", "住所", "会社名", "所属", "氏名"}, T::Text);
  for (int k = 1; k <= 10; ++k) {
    const std::string s = std::to_string(k);
    b.Col("商品ID" + s, T::Text)
        .Col("商品名" + s, T::Text)
        .Col("注文数量" + s, T::Real)
        .Col("小計" + s, T::Money)
        .Col("備考" + s, T::Text)
        .Col("のし" + s, T::Text);
  }
  return b.Cols({"商品代金", "消費税", "送料", "決済手数料", "請求額"}, T::Money)
      .Cols({"支払方法", "返信(出荷)", "ショップ郵便番号", "ショップ住所", "ショップ名", "ショップ電話番号"}, T::Text)
      .Col("出荷日", T::DateText)
      .Cols({"ID_STRING", "電話番号"}, T::Text)
      .Col("CNT", T::Integer)
      .Col("CLIENT_NAME", T::Text)
      .Index({"CLIENT_NAME", "ID", "ORD"})
      .Build();
}

TableDef WkUriage() {
  return TableBuilder("WK_URIAGE")
      .Col("CLIENT_NAME", T::Text)
      .Col("TARGET_DATE", T::DateText)
      .Col("TO_DATE", T::DateText)
      .Col("ORDERQTY", T::Integer)
      .Col("TANKA", T::Real)
      .Col("QTY", T::Real)
      .Col("KINGAKU", T::Money)
      .Col("REPEAT_RATE", T::Real)
      .Index({"CLIENT_NAME", "TARGET_DATE"})
      .Build();
}

TableDef WkItemList() {
  // Shared by all workstations: no CLIENT_NAME.
  return TableBuilder("WK_ITEMLIST")
      .Cols({"ITEM_ID", "ITEM_MEI"}, T::Text)
      .Col("ITEM_TANKA", T::Real)
      .Col("ITEM_QTY", T::Real)
      .Col("ITEM_TOTAL", T::Money)
      .Build();
}

std::vector<TableDef> BuildTables() {
  std::vector<TableDef> tables;
  for (auto make : {Chumon, ChumonD, ChumonT, Customer, Shop, Item, Payment, Tanto, Tax, Report, Printed, SeikyuS,
                    WkPrint, WkCustomer, WkSeikyu, WkUriage, WkItemList}) {
    tables.push_back(make());
  }
  return tables;
}

}  // namespace

std::span<const TableDef> SchemaTables() {
  static const std::vector<TableDef> tables = BuildTables();
  return tables;
}

}  // namespace lupin::entry
