// Who sends the parcel, and the values that depend on gift, ATENA and cash on delivery.
#include <gtest/gtest.h>

#include <algorithm>

#include "db/recordset.h"
#include "ehiden_fixture.h"
#include "exchange/ehiden_order.h"

namespace lupin::exchange {
namespace {

using testing::Fields;

db::Recordset OrderRow(const Fields& fields) {
  std::vector<std::string> names;
  std::vector<db::Value> values;
  const Fields base = {{"ID", "7"}, {"住所", "東京都"}, {"電話番号", "０３－１"}, {"郵便番号", "１００"}, {"氏名", "客"},
                       {"会社名", ""}, {"ショップ名", "店"}, {"ショップ電話番号", "０６－２"},
                       {"ショップ郵便番号", "５３０"}, {"ショップ住所", "大阪府"}, {"支払方法", ""},
                       {"贈答先氏名", ""}, {"贈答先住所", "京都府"}, {"贈答先電話番号", "075"},
                       {"所属", ""}, {"贈答先会社名", ""}, {"贈答先所属", ""}, {"贈答先郵便番号", ""}, {"配達日", ""},
                       {"出荷予定日", ""}, {"配達時間帯", ""}, {"メールアドレス", ""}, {"商品名1", ""}, {"商品名2", ""},
                       {"商品名3", ""}, {"商品名4", ""}, {"商品名5", ""}};
  for (const auto& [name, value] : base) {
    names.push_back(name);
    values.emplace_back(value);
  }
  for (const auto& [name, value] : fields) {
    const auto at = std::find(names.begin(), names.end(), name);
    if (at != names.end()) {
      values[static_cast<std::size_t>(at - names.begin())] = db::Value(value);
    } else {
      names.push_back(name);
      values.emplace_back(value);
    }
  }
  return db::Recordset(std::move(names), {std::move(values)});
}

struct SenderCase {
  const char* what;
  Fields order;
  bool atena;
  EhidenGeneration generation;
  bool report_texts;
  std::string tel, zip, address, name0, name1, shipper_tel;
};

TEST(EhidenSender, CustomerSendsOnlyGiftsOfShopsWithoutAtena) {
  const Fields gift = {{"贈答先氏名", "贈り先"}};
  const Fields gift_company = {{"贈答先氏名", "贈り先"}, {"会社名", "ABC"}};
  const SenderCase cases[] = {
      {"own order: the report's texts", {}, false, EhidenGeneration::III, true, "045-9", "220", "神奈川県", "報告", "", "045-9"},
      {"own order: the shop when the report is empty", {}, false, EhidenGeneration::III, false, "06-2", "530", "大阪府", "店", "",
       "06-2"},
      {"gift, no ATENA: the customer, half-width", gift, false, EhidenGeneration::III, true, "03-1", "100", "東京都", "客", "",
       "045-9"},
      {"gift, no ATENA, company on the first line", gift_company, false, EhidenGeneration::II, true, "03-1", "100", "東京都",
       "ＡＢＣ             ", "客", "045-9"},
      {"first generation: the name alone", gift_company, false, EhidenGeneration::I, true, "03-1", "100", "東京都", "客", "",
       "045-9"},
      {"gift of an ATENA shop: the report", gift, true, EhidenGeneration::III, true, "045-9", "220", "神奈川県", "報告", "",
       "045-9"},
      {"gift of an ATENA shop: the shop", gift, true, EhidenGeneration::I, false, "06-2", "530", "大阪府", "店", "", "06-2"},
  };
  for (const auto& c : cases) {
    EhidenSetup setup;
    setup.generation = c.generation;
    if (c.report_texts) setup.sender = EhidenSenderTexts::From({" 報告 ", "２２０", "０４５－９", "", "神奈川県"});
    const auto result = ReadEhidenOrder(OrderRow(c.order), {"", "受取人", "100", "10"}, c.atena, setup);
    ASSERT_EQ(result.code, 0) << c.what << ": " << result.message;
    const EhidenOrder& o = result.order;
    EXPECT_EQ(o.sender_tel, c.tel) << c.what;
    EXPECT_EQ(o.sender_zip, c.zip) << c.what;
    EXPECT_EQ(o.sender_address[0], c.address) << c.what;
    EXPECT_EQ(o.sender_name[0], c.name0) << c.what;
    EXPECT_EQ(o.sender_name[1], c.name1) << c.what;
    EXPECT_EQ(o.shipper_tel, c.shipper_tel) << c.what;
  }
}

TEST(EhidenOrderValues, CashOnDeliveryGiftAndItems) {
  const struct {
    const char* what;
    Fields order;
    std::string item_name;
    bool cod, gift;
    std::string amount, item1, item2, gift_shop, email;
  } cases[] = {
      {"代引き exactly", {{"支払方法", "代引き"}}, "", true, false, "100", "", "", "", ""},
      {"代引き with a blank is not", {{"支払方法", "代引き "}}, "", false, false, "", "", "", "", ""},
      {"begins with 代金引換", {{"支払方法", "代金引換（着払）"}}, "", true, false, "100", "", "", "", ""},
      {"hinmei replaces every item", {{"商品名1", "靴"}, {"商品名2", "鞄"}}, "雑貨", false, false, "", "雑貨", "", "", ""},
      {"items widened and cut", {{"商品名1", "abc"}, {"商品名2", std::string(40, 'x')}}, "", false, false, "", "ａｂｃ",
       std::string("ｘｘｘｘｘｘｘｘｘｘｘｘｘｘｘｘ"), "", ""},
      {"gift: shop name, no e-mail", {{"贈答先氏名", "贈"}, {"メールアドレス", "a@b"}, {"ショップ名", "店\r\n本館"}}, "",
       false, true, "", "", "", "店　本館", ""},
      {"own order: e-mail half-width", {{"メールアドレス", "ａ＠ｂ\r\nc"}}, "", false, false, "", "", "", "", "a@b c"},
  };
  for (const auto& c : cases) {
    EhidenSetup setup;
    setup.generation = EhidenGeneration::I;
    setup.item_name = c.item_name;
    const auto result = ReadEhidenOrder(OrderRow(c.order), {"", "受取人", " 100 ", "10"}, false, setup);
    ASSERT_EQ(result.code, 0) << c.what;
    EXPECT_EQ(result.order.is_cod, c.cod) << c.what;
    EXPECT_EQ(result.order.is_gift, c.gift) << c.what;
    EXPECT_EQ(result.order.amount, c.amount) << c.what;
    EXPECT_EQ(result.order.tax, c.cod ? "10" : "") << c.what;
    EXPECT_EQ(result.order.items[0], c.item1) << c.what;
    EXPECT_EQ(result.order.items[1], c.item2) << c.what;
    EXPECT_EQ(result.order.gift_shop_name, c.gift_shop) << c.what;
    EXPECT_EQ(result.order.email, c.email) << c.what;
  }
}

}  // namespace
}  // namespace lupin::exchange
