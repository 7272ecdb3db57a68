// Names that the engines or the bare-name statements would confuse. (That every name a statement
// uses exists is proved by the statements themselves, run on both engines by the tests that use them.)
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "entry/schema.h"

namespace lupin::entry {
namespace {

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

}  // namespace
}  // namespace lupin::entry
