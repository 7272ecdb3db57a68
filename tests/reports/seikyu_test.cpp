// The billing statement: WK_SEIKYU as report 36 builds it, the pages printed from it, the OCR line
// of its payment slip, and the billing groups that report 24's rule writes from that table.
#include <gtest/gtest.h>

#include "reports/documents/seikyu.h"
#include "reports/documents/seikyu_ocr.h"
#include "reports/documents/seikyu_work.h"
#include "common/vb.h"
#include "report_fixture.h"
#include "run/ledger.h"

namespace lupin::reports {
namespace {

using testing::Lines;
using testing::Order;
using testing::Shown;

class SeikyuTest : public testing::ReportDb {
 protected:
  engine::PageCollection RunStatement() {
    auto context = NoteContext(36);
    return Run(*context, "rptSeikyuWell");
  }
  // WK_SEIKYU of a workstation as "ID/ORD ID_STRING 請求額 CNT" per row.
  std::vector<std::string> Rows(const std::string& client = "WS1") {
    std::vector<std::string> rows;
    auto rs = Db().Open("SELECT [ID],[ORD],[ID_STRING],[請求額],[CNT] FROM [WK_SEIKYU] WHERE [CLIENT_NAME] = '" + client +
                        "' ORDER BY [ID],[ORD]");
    for (; !rs.Eof(); rs.MoveNext())
      rows.push_back(rs["ID"].Text() + "/" + rs["ORD"].Text() + " " + (rs["ID_STRING"].IsNull() ? "NULL" : rs["ID_STRING"].Text()) +
                     " " + rs["請求額"].Text() + " " + rs["CNT"].Text());
    return rows;
  }
};

Order Statement(int id, int lines, const std::string& bill_tel = "03-1234-5678") {
  Order order = testing::DocumentOrder(id, Lines(lines));
  order.bill_tel = bill_tel;
  return order;
}

TEST_P(SeikyuTest, OnePagePerTenLinesAndTheLastPageNamesTheOrder) {
  Order eleven = Statement(4011, 11);
  Order ten = Statement(4010, 10);
  Insert(ten);
  Insert(eleven);
  Insert(Statement(4020, 20));
  // A stale row of this workstation goes, another workstation's stays.
  Db().Execute("INSERT INTO [WK_SEIKYU]([ID],[ORD],[CLIENT_NAME]) VALUES(9,1,'WS1')");
  Db().Execute("INSERT INTO [WK_SEIKYU]([ID],[ORD],[ID_STRING],[CLIENT_NAME]) VALUES(8,1,'8','WS2')");
  Db().Execute("INSERT INTO [PRINTED]([REPORT_NO],[ID],[UPDATE],[CNT]) VALUES(36,4011,20240601,3)");
  const auto pages = RunStatement();
  const std::string t10 = std::to_string(ten.Billed()), t11 = std::to_string(eleven.Billed()),
                    t20 = std::to_string(Statement(4020, 20).Billed());
  EXPECT_EQ(Rows(), (std::vector<std::string>{"4010/1 4010 " + t10 + " 0", "4011/1 NULL " + t11 + " 3",
                                               "4011/2 4011 " + t11 + " 3", "4020/1 NULL " + t20 + " 0",
                                               "4020/2 4020 " + t20 + " 0"}));
  EXPECT_EQ(Rows("WS2"), std::vector<std::string>{"8/1 8  "});
  ASSERT_EQ(pages.Pages().size(), 5u);
  EXPECT_EQ(Shown(pages.Pages()[0], "lblPageNo"), "<hidden>") << "a one-page statement has no mark";
  EXPECT_EQ(Shown(pages.Pages()[1], "lblPageNo"), "1/2");
  EXPECT_EQ(Shown(pages.Pages()[2], "lblNo1"), "11");
}

TEST_P(SeikyuTest, ACustomersOrdersAreNeverSummedIntoOneStatement) {
  const Order orders[] = {Statement(4100, 3, "03-9999-0000"), Statement(4101, 2, "03-9999-0000"), Statement(4102, 1, "03-1111-0000")};
  for (const auto& order : orders) Insert(order);
  const auto pages = RunStatement();
  ASSERT_EQ(pages.Pages().size(), 3u);
  for (std::size_t i = 0; i < 3; ++i) {
    const auto& page = pages.Pages()[i];
    EXPECT_EQ(Shown(page, "fldID"), std::to_string(orders[i].id)) << "printed by order number";
    EXPECT_EQ(Shown(page, "lblSEK_GAKU"), vb::Format(orders[i].Billed(), "#,##0"));
  }
  for (const auto& row : Rows()) EXPECT_EQ(row.find(','), std::string::npos) << row;
}

TEST_P(SeikyuTest, WhatEachPageShows) {
  Order long_text = Statement(4201, 11);
  long_text.lines[1].name = std::string(45, 'x');  // 45 + 3 + colour + 3 + size: cut at 50
  long_text.lines[1].color = "紺";
  long_text.lines[1].size = "XL";
  Order included = Statement(4202, 2);
  included.tax_included = true;
  included.gift_name = "佐藤 花子";
  included.bill_company = "見本商事株式会社";
  included.bill_department = "経理部";
  included.bill_name = "経理 花子";
  Insert(long_text);
  Insert(included);
  ExpectShown(RunStatement(), "seikyu/statements.txt");
}

TEST_P(SeikyuTest, ReportTwentyFourBooksTheStatementsOfReportThirtySix) {
  Insert(Statement(4301, 12));
  Insert(Statement(4302, 1));
  Db().Execute("INSERT INTO [SEIKYU_S] VALUES(4302,4000)");  // an old group of 4302 is replaced
  RunStatement();
  const auto result = run::WritePreviewLedger(Db(), "WS1", 24, false, "20240601");
  ASSERT_TRUE(result.ok) << result.error;
  std::vector<std::string> groups;
  for (auto rs = Db().Open("SELECT [注文番号],[請求NO] FROM [SEIKYU_S] ORDER BY [注文番号]"); !rs.Eof(); rs.MoveNext())
    groups.push_back(rs.Field(0).Text() + ":" + rs.Field(1).Text());
  // The multi-page order is booked once, from its last page; each order is its own statement.
  EXPECT_EQ(groups, (std::vector<std::string>{"4301:4301", "4302:4302"}));
  auto printed = Db().Open("SELECT COUNT(*) FROM [PRINTED] WHERE [REPORT_NO] = 24");
  EXPECT_EQ(printed.Field(0).Text(), "2");
}

LUPIN_INSTANTIATE_ENGINES(SeikyuTest);

// The check digit the post office's reader expects, worked out here from the printed blocks.
int CheckDigitOf(const std::string& b5, const std::string& b6, const std::string& b8) {
  int total = 0;
  for (const std::string& block : {b5, b6, b8}) {
    EXPECT_EQ(block.size(), 12u) << block;
    for (std::size_t place = 1; place <= block.size(); ++place) total += (block[place - 1] - '0') * (place % 2 == 0 ? 3 : 1);
  }
  return (10 - total % 10) % 10;
}

TEST(SeikyuOcr, BlocksAndCheckDigit) {
  const struct {
    const char* account;
    const char* id;
    const char* count;
    long amount;
    const char* b5;
    const char* b6;
    const char* b8;
    const char* b7;
  } cases[] = {
      // Worked by hand: 91 + 20 + 143 = 254, check 6.
      {"00120-3-456789", "5", "0", 113768, "500120456789", "630000000050", "856789113768", "7001204567896"},
      {"00120-3-456789", "1234567890", "12", 5400, "500120456789", "632345678902", "856789005400", nullptr},
      {"01230-4-5678 ルパン", "77", "3", 1234567, "501230005678", "640000000773", "845678234567", nullptr},
      {"", "1", "1", 0, "500000000000", "600000000011", "899999000000", nullptr},
      {"00100-1-1", "999", "0", 980, "500100000001", "610000009990", "890011000980", nullptr},
  };
  for (const auto& c : cases) {
    const OcrLine line = MakeOcrLine(ParseSlipAccount(c.account), c.id, c.count, c.amount);
    EXPECT_EQ(line.block5, c.b5) << c.account;
    EXPECT_EQ(line.block6, c.b6) << c.account;
    EXPECT_EQ(line.block8, c.b8) << c.account;
    const std::string member = std::string(c.b5).substr(1);
    EXPECT_EQ(line.block7, "7" + member + std::to_string(CheckDigitOf(c.b5, c.b6, c.b8))) << c.account;
    if (c.b7 != nullptr) {
      EXPECT_EQ(line.block7, c.b7);
    }
  }
}

TEST(SeikyuLineText, PartsJoinedAndCut) {
  const std::string long_name(45, 'x');
  const struct {
    std::string name, color, size;
    bool name_only;
    std::string text;
  } cases[] = {
      {"緑茶", "白", "L", false, "緑茶   白   L"},
      {"緑茶", "", "L", false, "緑茶   L"},
      {"", "白", "", false, "白"},
      {"緑茶", "白", "L", true, "緑茶"},
      {long_name, "紺", "XL", false, long_name + "   紺 "},
  };
  for (const auto& c : cases) EXPECT_EQ(SeikyuLineText(c.name, c.color, c.size, c.name_only), c.text) << c.name;
}

}  // namespace
}  // namespace lupin::reports
