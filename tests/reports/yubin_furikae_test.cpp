// The postal transfer form: account and amount boxes, the payer block and memos filled per order.
#include <gtest/gtest.h>

#include "report_fixture.h"

namespace lupin::reports {
namespace {

using testing::DocumentOrder;
using testing::Lines;
using testing::Order;
using testing::Shown;

using YubinFurikaeTest = testing::ReportDb;

std::string Boxes(const engine::Page& page, const std::string& prefix, int first, int last) {
  std::string text;
  for (int i = first; i <= last; ++i) {
    const std::string box = Shown(page, prefix + std::to_string(i));
    text += box.empty() || box == " " ? "_" : box;
  }
  return text;
}

TEST_P(YubinFurikaeTest, BoxesPayerAndMemos) {
  Order plain = DocumentOrder(5001, Lines(2));
  Order company = DocumentOrder(5002, Lines(9));
  company.bill_company = "見本商事株式会社";
  company.bill_department = "経理部";
  company.bill_name = "経理 花子";
  Insert(plain);
  Insert(company);
  auto context = NoteContext(1);
  context->current.memo = {"ご注文番号 <@ID@> のお支払い", "お届け先 <@氏名@> 様", "<いつもありがとうございます>"};
  const auto pages = Run(*context, "rptYubinFurikae");
  ASSERT_EQ(pages.Pages().size(), 2u);
  const auto& first = pages.Pages()[0];
  const auto& second = pages.Pages()[1];

  EXPECT_EQ(Boxes(first, "lblKoza_digit_", 1, 13), "001203_456789");
  EXPECT_EQ(Boxes(first, "lblKoza_digit_", 21, 25), "00120");
  // The receipt half's sixth box takes the amount's last character over the check character.
  EXPECT_EQ(Shown(first, "lblKoza_digit_26"), std::to_string(plain.Billed() % 10));
  ASSERT_EQ(plain.Billed(), 6718);
  ASSERT_EQ(company.Billed(), 21887);
  EXPECT_EQ(Boxes(first, "lblSek_gaku_", 2, 8), "___6718");
  EXPECT_EQ(Boxes(first, "lblSek_gaku_", 22, 28), "___6718");
  EXPECT_EQ(Boxes(second, "lblSek_gaku_", 2, 8), "__21887");

  EXPECT_EQ(Shown(first, "lblNAME"), "山田 太郎　様");
  EXPECT_EQ(Shown(first, "lblMemo3"), "");
  EXPECT_EQ(Shown(second, "lblNAME"), "");
  EXPECT_EQ(Shown(second, "lblMemo3"), "見本商事株式会社   経理部\r\n経理 花子　様");
  EXPECT_EQ(Shown(second, "lblMemo3_2"), Shown(second, "lblMemo3"));
  EXPECT_EQ(Shown(second, "fldTel2"), "03-1234-5678");

  EXPECT_EQ(Shown(first, "lblMemo1"), "ご注文番号 5001 のお支払い");
  EXPECT_EQ(Shown(second, "lblMemo1"), "ご注文番号 5002 のお支払い");
  EXPECT_EQ(Shown(second, "lblMemo2_1"), "お届け先 山田 太郎 様");
  EXPECT_EQ(Shown(second, "lblMemo2_2"), "<いつもありがとうございます>") << "no <@: printed as given";
  EXPECT_EQ(Shown(first, "lblADDRESS"), "東京都千代田区千代田1-1");
}

LUPIN_INSTANTIATE_ENGINES(YubinFurikaeTest);

}  // namespace
}  // namespace lupin::reports
