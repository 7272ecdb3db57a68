// The statements the tax code sends, pinned to the text other programs of the package expect.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/settings.h"
#include "db/connection.h"
#include "money/calc_chumon_t.h"
#include "money/tax_date.h"
#include "money/zei_info.h"

namespace lupin::money {
namespace {

// Records every statement and answers queries from a script keyed by the statement's start.
class RecordingConnection : public db::Connection {
 public:
  struct Answer {
    std::string prefix;
    db::Recordset result;
  };
  std::vector<Answer> answers;
  std::vector<std::string> statements;

  long Execute(std::string_view sql) override {
    statements.emplace_back(sql);
    return 1;
  }
  db::Recordset Open(std::string_view sql) override {
    statements.emplace_back(sql);
    for (const Answer& a : answers) {
      if (sql.starts_with(a.prefix)) return a.result;
    }
    return {};
  }
  void BeginTrans() override {}
  void CommitTrans() override {}
  void RollbackTrans() override {}
  bool InTransaction() const override { return false; }
  db::Engine GetEngine() const override { return db::Engine::Sqlite; }
};

const char* const kGetData =
    "SELECT MAIN.[REDUCEDKBN],MAIN.[RATE],MAIN.[OLDRATE] FROM [TAX] MAIN WHERE MAIN.[FROM_DATE] = "
    "(SELECT MAX(SUB.[FROM_DATE]) FROM [TAX] SUB WHERE SUB.[FROM_DATE] <= ";

void AddTaxAnswers(RecordingConnection& c) {
  c.answers.push_back({"SELECT MIN", db::Recordset({"MINDATE"}, {{db::Value("2019/10/01")}})});
  c.answers.push_back({"SELECT MAIN", db::Recordset({"REDUCEDKBN", "RATE", "OLDRATE"},
                                                    {{db::Value(0), db::Value(10.0), db::Value(8.0)},
                                                     {db::Value(1), db::Value(8.0), db::Value(0.0)}})});
}

TEST(StatementText, DatesAreDelimitedByTheDialect) {
  struct Case {
    int dialect;
    std::string literal;
  };
  for (const Case& c : {Case{0, "'2024/05/01'"}, Case{1, "#2024/05/01#"}}) {
    RecordingConnection db;
    AddTaxAnswers(db);
    clsZeiInfo info;
    info.SetDb(db, c.dialect);
    info.SetKijyun(vb::DateSerialOf(2024, 5, 1));
    info.GetData();
    GetNormalTaxRate(db, c.dialect, vb::DateSerialOf(2024, 5, 1));
    ASSERT_EQ(db.statements.size(), 3u);
    EXPECT_EQ(db.statements[0], "SELECT MIN([FROM_DATE]) AS MINDATE FROM [TAX] WHERE [REDUCEDKBN] = 1");
    EXPECT_EQ(db.statements[1], kGetData + c.literal + ") ORDER BY MAIN.[REDUCEDKBN]");
    EXPECT_EQ(db.statements[2], "SELECT [RATE] FROM [TAX] WHERE [FROM_DATE] <= " + c.literal +
                                    " AND [REDUCEDKBN] = 0 ORDER BY [FROM_DATE] DESC");
  }
}

TEST(StatementText, CalcReadsOnceAndRewritesChumonT) {
  RecordingConnection db;
  AddTaxAnswers(db);
  const std::vector<std::string> names = {"受注日", "出荷予定日", "出荷日", "請求日", "送料", "決済手数料",
                                          "ポイント利用８％", "ポイント利用１０％", "SHIPPING_TAXKBN",
                                          "HANDLING_TAXKBN", "TAX_CALKBN", "TAX_INCLUDES_DECLARED",
                                          "ITEM_PRICE", "REDUCEDKBN", "ITEM_TAX"};
  auto row = [](db::Value price, db::Value reduced) {
    return std::vector<db::Value>{db::Value("2024/05/01"), {}, {}, {}, db::Value(0), db::Value(0), db::Value(0),
                                  db::Value(0), db::Value(0), db::Value(0), db::Value(0), db::Value(0),
                                  price, reduced, db::Value(0)};
  };
  db.answers.push_back({"SELECT [受注日]", db::Recordset(names, {row(db::Value(1000), db::Value(0)),
                                                                row(db::Value("500"), db::Value(1))})});
  clsCalcChumonT calc(settings::Settings(settings::StorePaths::InFolder("/nonexistent/lupin")));
  calc.SetDb(db);
  calc.SetId(7);
  calc.Calc();
  ASSERT_EQ(db.statements.size(), 5u);
  EXPECT_EQ(db.statements[1],
            "SELECT [受注日],[出荷予定日],[出荷日],[請求日],[送料],[決済手数料],[ポイント利用８％],"
            "[ポイント利用１０％],[SHIPPING_TAXKBN],[HANDLING_TAXKBN],[TAX_CALKBN],[TAX_INCLUDES_DECLARED],"
            "[ITEM_PRICE],[CHUMON_D].[REDUCEDKBN],[ITEM_TAX] FROM ([CHUMON] LEFT OUTER JOIN [SHOP] ON "
            "[SHOP].[SHOP_ID] = [CHUMON].[ショップID]) LEFT OUTER JOIN [CHUMON_D] ON [CHUMON_D].[ID] = "
            "[CHUMON].[ID] WHERE [CHUMON].[ID] = 7");
  EXPECT_EQ(db.statements[3], "DELETE FROM [CHUMON_T] WHERE [ID] = 7");
  EXPECT_EQ(db.statements[4],
            "INSERT INTO [CHUMON_T]( [ID],[ZEIRATE1],[ZEIRATE1KIN],[ZEIRATE1ZEI],[ZEIRATE2],[ZEIRATE2KIN],"
            "[ZEIRATE2ZEI],[ZEIRATE3],[ZEIRATE3KIN],[ZEIRATE3ZEI])VALUES(7,0.1,1100,100,0.08,540,40,0,0,0)");
}

}  // namespace
}  // namespace lupin::money
