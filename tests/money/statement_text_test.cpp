// The statements the tax code sends, pinned to the text other programs of the package expect.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "db/connection.h"
#include "money/calc_chumon_t.h"
#include "money/tax_date.h"
#include "money/zei_info.h"

namespace lupin::money {
namespace {

// Records every statement; only the first day of the reduced rate has an answer, since
// without one the rates cannot be read at all.
class RecordingConnection : public db::Connection {
 public:
  std::vector<std::string> statements;

  long Execute(std::string_view sql) override {
    statements.emplace_back(sql);
    return 1;
  }
  db::Recordset Open(std::string_view sql) override {
    statements.emplace_back(sql);
    if (!sql.starts_with("SELECT MIN")) return {};
    return db::Recordset({"MINDATE"}, {{db::Value("2019/10/01")}});
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

TEST(StatementText, DatesAreDelimitedByTheDialect) {
  for (const auto& [dialect, literal] : {std::pair{0, "'2024/05/01'"}, std::pair{1, "#2024/05/01#"}}) {
    RecordingConnection db;
    clsZeiInfo info;
    info.SetDb(db, dialect);
    info.SetKijyun(vb::DateSerialOf(2024, 5, 1));
    info.GetData();
    GetNormalTaxRate(db, dialect, vb::DateSerialOf(2024, 5, 1));
    ASSERT_EQ(db.statements.size(), 3u);
    EXPECT_EQ(db.statements[0], "SELECT MIN([FROM_DATE]) AS MINDATE FROM [TAX] WHERE [REDUCEDKBN] = 1");
    EXPECT_EQ(db.statements[1], kGetData + std::string(literal) + ") ORDER BY MAIN.[REDUCEDKBN]");
    EXPECT_EQ(db.statements[2], "SELECT [RATE] FROM [TAX] WHERE [FROM_DATE] <= " + std::string(literal) +
                                    " AND [REDUCEDKBN] = 0 ORDER BY [FROM_DATE] DESC");
  }
}

// An order's own read, as other programs of the package log and expect it.
TEST(StatementText, OrderReadOfCalc) {
  RecordingConnection db;
  clsCalcChumonT calc{settings::Settings(settings::StorePaths::InFolder("/nonexistent"))};
  calc.SetDb(db);
  calc.SetId(42);
  EXPECT_THROW(calc.Calc(), std::exception);  // the recording answers no rows
  ASSERT_GE(db.statements.size(), 2u);
  EXPECT_EQ(db.statements[1],
            "SELECT [受注日],[出荷予定日],[出荷日],[請求日],[送料],[決済手数料],[ポイント利用８％],[ポイント利用１０％],"
            "[SHIPPING_TAXKBN],[HANDLING_TAXKBN],[TAX_CALKBN],[TAX_INCLUDES_DECLARED],[ITEM_PRICE],"
            "[CHUMON_D].[REDUCEDKBN],[ITEM_TAX] FROM ([CHUMON] LEFT OUTER JOIN [SHOP] ON [SHOP].[SHOP_ID] = "
            "[CHUMON].[ショップID]) LEFT OUTER JOIN [CHUMON_D] ON [CHUMON_D].[ID] = [CHUMON].[ID] "
            "WHERE [CHUMON].[ID] = 42");
}

}  // namespace
}  // namespace lupin::money
