#pragma once
// Rows for the database tests of the print run: the schema, a few orders, report definitions.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/sql.h"
#include "db/connection.h"
#include "entry/schema.h"
#include "support/test_databases.h"

namespace lupin::run::testing {

// A fresh database of the engine under test with the component's schema.
class SchemaTest : public lupin::testing::EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    entry::CreateSchema(Db());
  }
};

struct Order {
  int id = 0;
  std::string name;
  std::string tel;             // 検索用電話番号; "" writes NULL
  std::string carrier;         // 宅配業者
  long amount = 0;             // 請求額
  std::string shipped = "2024/04/10";
  std::string company;
  std::string zip = "100-0001";
  std::string payment = "銀行振込";
  std::string shop = "A";
  std::string den_no;          // 出荷伝票番号
};

inline std::string Q(const std::string& text) { return "'" + sql::SqlQuote(text) + "'"; }

inline void AddOrder(db::Connection& db, const Order& o) {
  db.Execute("INSERT INTO [CHUMON]([ID],[受注日],[出荷日],[氏名],[会社名],[検索用電話番号],[宅配業者],[請求額],"
             "[郵便番号],[メールアドレス],[商品ID1],[支払方法],[ショップID],[出荷伝票番号],[備考1]) VALUES(" +
             std::to_string(o.id) + ",'2024/04/01'," + Q(o.shipped) + "," + Q(o.name) + "," + Q(o.company) + "," +
             (o.tel.empty() ? std::string("NULL") : Q(o.tel)) + "," + Q(o.carrier) + "," + std::to_string(o.amount) +
             "," + Q(o.zip) + ",'a@example.jp','ITEM-1'," + Q(o.payment) + "," + Q(o.shop) + "," + Q(o.den_no) +
             ",'remark " + std::to_string(o.id) + "')");
}

struct ReportRow {
  int no = 0;
  std::string name;
  int where = 0;
  int lbl_rpt = 0;
  std::string other_tbl;
  int payment_init = 0;
  std::string date_label = "出荷日";
  std::string date_field = "出荷日";
  std::string biko_lbl1;
  std::string biko_fld1;
};

inline void AddReport(db::Connection& db, const ReportRow& r) {
  db.Execute("INSERT INTO [REPORT]([REPORT_NO],[REPORT_NAME],[ORD],[ENABLED],[Where],[DATE_LABEL],[DATE_FIELD],"
             "[LBL_RPT],[OTHER_TBL_NAME],[PAYMENT_INIT],[BIKO_LBL1],[BIKO_FLD1]) VALUES(" +
             std::to_string(r.no) + "," + Q(r.name) + "," + std::to_string(r.no) + ",1," + std::to_string(r.where) +
             "," + Q(r.date_label) + "," + Q(r.date_field) + "," + std::to_string(r.lbl_rpt) + "," + Q(r.other_tbl) +
             "," + std::to_string(r.payment_init) + "," + Q(r.biko_lbl1) + "," + Q(r.biko_fld1) + ")");
}

inline long Count(db::Connection& db, const std::string& from_where) {
  auto rs = db.Open("SELECT COUNT(*) AS CNT " + from_where);
  return rs.Eof() ? 0 : static_cast<long>(rs["CNT"].Long());
}

// The values of one column over a statement, in order.
inline std::vector<std::string> Column(db::Connection& db, const std::string& statement, const std::string& field) {
  std::vector<std::string> values;
  for (auto rs = db.Open(statement); !rs.Eof(); rs.MoveNext()) values.push_back(rs[field].Text());
  return values;
}

}  // namespace lupin::run::testing
