// The Yamato slips on a real database: page dumps of whole slips against the golden files, and
// the rules a dump would hide in its bulk, one table each.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/display.h"
#include "reports/slips/yamato_slip.h"
#include "yamato_fixture.h"

namespace lupin::reports::testing {
namespace {

const std::string kLongAddress = "北海道札幌市中央区北一条西二十丁目1-23 ルパンレジデンス札幌大通公園前 1502号室";
const std::string kLongCompany = "ルパン・エンタープライズ・インターナショナル・ホールディングス株式会社";
const std::string kLongName = "ルパン・エンタープライズ・インターナショナル株式会社 代表取締役社長 山田 太郎";

std::vector<ItemLine> Goods(int count, double fraction = 0) {
  std::vector<ItemLine> goods;
  for (int i = 1; i <= count; ++i) goods.push_back({"有機緑茶 極上 100g 第" + std::to_string(i) + "便", i + (i == 2 ? fraction : 0)});
  return goods;
}

SlipOrder Gift(const std::string& shop) {
  SlipOrder o;
  o.company = "株式会社見本";
  o.shop = shop;
  o.gift_name = "佐藤 花子";
  o.gift_postcode = "530-0001";
  o.gift_address = "大阪府大阪市北区梅田1-1-1";
  o.gift_tel = "06-1234-5678";
  o.time_band = "14-16";
  return o;
}

struct GoldenCase {
  const char* golden;
  int report_no;
  int paper_type;
  std::vector<SlipOrder> orders;
  std::string format;  // <field=…> rows of a format file, "" for none
};

using YamatoGolden = YamatoDb;

TEST_P(YamatoGolden, PageDumps) {
  SlipOrder company_only, department_only, long_names, six, fraction, hidden_company2, plain;
  company_only.company = "株式会社ルパン商事";
  company_only.time_band = "午前中";
  department_only.department = "経理部";
  long_names.company = kLongCompany;
  long_names.department = "経営企画本部 第一グループ";
  long_names.name = kLongName;
  long_names.address = kLongAddress;
  six.goods = Goods(6);
  fraction.goods = Goods(3, 0.5);
  hidden_company2.company = "株式会社ルパン商事";
  hidden_company2.department = "経理部";
  plain.delivery_date = "";
  std::vector<SlipOrder> bands;
  int id = 2000;
  for (const char* band : {"午前中", "12-14", "１４～１６", "16〜18", "18~20", "20-21", "19-21", "09:00-12:00",
                           "AM9-12", "ＰＭ２－４", "PM4-PM6", "pm6～8", "PM8-9", "指定なし", ""}) {
    SlipOrder o;
    o.id = ++id;
    o.time_band = band;
    bands.push_back(o);
  }
  SlipOrder collect_a, collect_b;
  collect_a.amount = 12800;
  collect_b.id = 1002;
  collect_b.amount = 3240;
  const GoldenCase cases[] = {
      {"gift_shop_sends.json", 25, 0, {Gift("S1")}, ""},
      {"gift_orderer_sends.json", 25, 0, {Gift("S0")}, ""},
      {"company_only.json", 25, 0, {company_only}, ""},
      {"department_only.json", 25, 0, {department_only}, ""},
      {"long_names.json", 25, 0, {long_names}, ""},
      {"six_goods.json", 25, 0, {six}, ""},
      {"fractional_quantity.json", 25, 0, {fraction}, ""},
      {"format_hides_company2.json", 25, 0, {hidden_company2}, "<field=lblCompany2><visible>0</visible></field>"},
      {"time_bands.json", 25, 0, bands, ""},
      {"collect.json", 26, 0, {collect_a, collect_b}, ""},
      {"sender_printed_form.json", 25, 1, {plain}, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.golden);
    ClearOrders();
    std::filesystem::remove_all(home_ / "Format");
    if (!c.format.empty()) WriteFormat(c.report_no, c.format);
    for (const auto& order : c.orders) InsertOrder(order);
    auto context = MakeContext(c.report_no, c.paper_type);
    const auto pages = RunSlip(*context);
    ASSERT_EQ(pages.Pages().size(), c.orders.size());
    ExpectGolden(pages, c.golden);
  }
}

LUPIN_INSTANTIATE_ENGINES(YamatoGolden);

class YamatoSlipRules : public YamatoDb {
 protected:
  engine::Page OnePage(int report_no = 25, int paper_type = 0) {
    auto context = MakeContext(report_no, paper_type);
    const auto pages = RunSlip(*context);
    EXPECT_EQ(pages.Pages().size(), 1u);
    return pages.Pages().empty() ? engine::Page{} : pages.Pages().front();
  }
  std::string Caption(const engine::Page& page, const std::string& name) { return ItemOn(page, name).text; }
  bool Shown(const engine::Page& page, const std::string& name) { return ItemOn(page, name).visible; }
};

struct SenderCase {
  const char* label;
  bool gift;
  const char* shop;
  std::string orderer_company;
  const char* recipient;  // lblNAME
  const char* sender;     // lblSHOP_NAME
  const char* sender_postcode_box1;
  const char* company3;   // "" when nothing prints
};

TEST_P(YamatoSlipRules, WhoReceivesAndWhoSends) {
  const SenderCase cases[] = {
      {"no gift, shop is addressee", false, "S1", "株式会社見本", "山田 太郎", "ルパン堂 本店", "1", ""},
      {"no gift, shop is not addressee", false, "S0", "株式会社見本", "山田 太郎", "ルパン堂 本店", "1", ""},
      {"gift, shop is addressee", true, "S1", "株式会社見本", "佐藤 花子", "ルパン堂 本店", "1", ""},
      {"gift, orderer sends", true, "S0", "株式会社見本", "佐藤 花子", "山田 太郎", "1", "株式会社見本"},
      {"gift, orderer without company sends", true, "S0", "", "佐藤 花子", "山田 太郎", "1", ""},
      {"gift, unknown shop lets the orderer send", true, "S9", "株式会社見本", "佐藤 花子", "山田 太郎", "1", "株式会社見本"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    ClearOrders();
    SlipOrder order = c.gift ? Gift(c.shop) : SlipOrder{};
    order.shop = c.shop;
    order.company = c.orderer_company;
    InsertOrder(order);
    const auto page = OnePage();
    EXPECT_EQ(Caption(page, "lblNAME"), c.recipient);
    EXPECT_EQ(Caption(page, "lblSHOP_NAME"), c.sender);
    const bool orderer_sends = std::string(c.sender) == order.name;
    // The sender's address and telephone come with the sender.
    EXPECT_EQ(Caption(page, "lblJTEL"), orderer_sends ? order.tel : "03-9876-5432");
    EXPECT_EQ(Caption(page, "lblTEL"), c.gift ? order.gift_tel : order.tel);
    EXPECT_EQ(Caption(page, "lblYubin_1"), c.gift ? "5" : "1");
    EXPECT_EQ(Caption(page, "lblJYubin_1"), c.sender_postcode_box1);
    // What the sender's company line puts on paper.
    EXPECT_EQ(Shown(page, "lblCompany3") ? Caption(page, "lblCompany3") : "", c.company3);
  }
}

struct CompanyCase {
  const char* label;
  bool gift;
  std::string company, department;
  bool upper_shown;
  std::string upper, lower;  // lower "" with both hidden
};

TEST_P(YamatoSlipRules, CompanyBlock) {
  const CompanyCase cases[] = {
      {"neither", false, "", "", false, "", ""},
      {"company only", false, "株式会社ルパン商事", "", false, "", "株式会社ルパン商事"},
      {"department only", false, "", "経理部", false, "", "経理部"},
      {"both", false, "株式会社ルパン商事", "経理部", true, "株式会社ルパン商事", "経理部"},
      {"company only on the gift path", true, "株式会社ルパン商事", "", false, "", "株式会社ルパン商事"},
      {"both on the gift path", true, "株式会社ルパン商事", "経理部", true, "株式会社ルパン商事", "経理部"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    ClearOrders();
    SlipOrder order = c.gift ? Gift("S1") : SlipOrder{};
    (c.gift ? order.gift_company : order.company) = c.company;
    (c.gift ? order.gift_department : order.department) = c.department;
    InsertOrder(order);
    const auto page = OnePage();
    EXPECT_EQ(Shown(page, "lblCompany"), c.upper_shown);
    if (c.upper_shown) {
      EXPECT_EQ(Caption(page, "lblCompany"), c.upper);
    }
    EXPECT_EQ(Shown(page, "lblCompany2"), !c.lower.empty());
    if (!c.lower.empty()) {
      EXPECT_EQ(Caption(page, "lblCompany2"), c.lower);
    }
  }
}

TEST_P(YamatoSlipRules, FormatThatHidesAControlWinsOverTheRules) {
  // Rows that would show lblCompany2 by each branch of the company block, and a ring.
  WriteFormat(25, "<field=lblCompany2><visible>0</visible></field><field=shpDelivery3><visible>0</visible></field>");
  SlipOrder both, one;
  both.company = "株式会社ルパン商事";
  both.department = "経理部";
  both.time_band = "14-16";
  one.id = 1002;
  one.department = "経理部";
  one.time_band = "14-16";
  InsertOrder(both);
  InsertOrder(one);
  auto context = MakeContext(25);
  const auto pages = RunSlip(*context);
  ASSERT_EQ(pages.Pages().size(), 2u);
  for (const auto& page : pages.Pages()) {
    EXPECT_FALSE(ItemOn(page, "lblCompany2").visible) << page.number;
    EXPECT_FALSE(ItemOn(page, "shpDelivery3").visible) << page.number;
  }
  EXPECT_TRUE(ItemOn(pages.Pages()[0], "lblCompany").visible);
}

TEST_P(YamatoSlipRules, NamesAndDates) {
  SlipOrder long_name, trailing_break, gift_trailing, no_date;
  long_name.name = kLongName;
  trailing_break.id = 1002;
  trailing_break.name = "山田 太郎\r\n";
  gift_trailing = Gift("S1");
  gift_trailing.id = 1003;
  gift_trailing.gift_name = "佐藤 花子\r\n";
  no_date.id = 1004;
  no_date.delivery_date = "なるべく早く";
  for (const auto& order : {long_name, trailing_break, gift_trailing, no_date}) InsertOrder(order);
  auto context = MakeContext(25);
  const auto pages = RunSlip(*context);
  ASSERT_EQ(pages.Pages().size(), 4u);
  const auto& p = pages.Pages();
  // A name that would need two lines prints unbroken, as the column holds it.
  EXPECT_EQ(ItemOn(p[0], "lblNAME").text, kLongName);
  // The orderer's name goes through the line breaking, which drops the empty line; a gift name
  // is printed as it stands.
  EXPECT_EQ(ItemOn(p[1], "lblNAME").text, "山田 太郎");
  EXPECT_EQ(ItemOn(p[2], "lblNAME").text, "佐藤 花子\r\n");
  EXPECT_EQ(ItemOn(p[0], "lblDELIVERY_DATE").text, "06   05");
  EXPECT_EQ(ItemOn(p[3], "lblDELIVERY_DATE").text, "");
}

TEST_P(YamatoSlipRules, PaperTypeDecidesSenderBlockAndMemos) {
  InsertOrder(SlipOrder{});
  const auto plain = OnePage(25, 0);
  EXPECT_EQ(Caption(plain, "lblMemo1"), "0312345678");
  EXPECT_EQ(Caption(plain, "lblMemo2"), "031234567801");
  EXPECT_EQ(Caption(plain, "lblMemo3"), "01");
  const auto printed = OnePage(25, 1);
  for (const char* memo : {"lblMemo1", "lblMemo2", "lblMemo3"}) EXPECT_EQ(Caption(printed, memo), "") << memo;
  for (const char* sender : {"lblJJUSYO", "lblJTEL", "lblSHOP_NAME", "lblJYubin_1", "lblJYubin_7"}) {
    EXPECT_TRUE(Shown(plain, sender)) << sender;
    EXPECT_FALSE(Shown(printed, sender)) << sender;
  }
}

TEST_P(YamatoSlipRules, ItemOverrideFromTheComponentFolder) {
  SlipOrder order;
  order.goods = Goods(3);
  InsertOrder(order);
  auto context = MakeContext(25);
  context->default_item_name = "食品・雑貨";
  const auto pages = RunSlip(*context);
  ASSERT_EQ(pages.Pages().size(), 1u);
  EXPECT_EQ(ItemOn(pages.Pages()[0], "lblITEM").text, "食品・雑貨");
}

TEST_P(YamatoSlipRules, CollectAmountAndCustomerMode) {
  SlipOrder order;
  order.amount = 15430;
  order.shop = "S1";
  InsertOrder(order);
  auto orders = MakeContext(26);
  const auto collect = RunSlip(*orders);
  ASSERT_EQ(collect.Pages().size(), 1u);
  EXPECT_EQ(ItemOn(collect.Pages()[0], "fldSEK_GAKU").text, "15430");

  Db().Execute("DELETE FROM [WK_PRINT]");
  SlipCustomer customer;
  customer.department = "総務課";
  customer.company = "鈴木商店";
  InsertCustomer(customer);
  // The collect object ran an order before: its shop is the sender of the customer slip.
  auto customers = MakeContext(30);
  const auto pages = RunSlip(*customers);
  ASSERT_EQ(pages.Pages().size(), 1u);
  const auto& page = pages.Pages()[0];
  EXPECT_EQ(ItemOn(page, "fldSEK_GAKU").text, "");
  EXPECT_EQ(ItemOn(page, "lblITEM").text, "");
  EXPECT_EQ(ItemOn(page, "lblDELIVERY_DATE").text, "");
  EXPECT_EQ(ItemOn(page, "lblNAME").text, "鈴木 一郎");
  EXPECT_EQ(ItemOn(page, "lblTEL").text, "06-1111-2222");
  EXPECT_EQ(ItemOn(page, "lblCompany").text, "鈴木商店");
  EXPECT_EQ(ItemOn(page, "lblCompany2").text, "総務課");
  EXPECT_EQ(ItemOn(page, "lblSHOP_NAME").text, "ルパン堂 本店");
  EXPECT_EQ(ItemOn(page, "lblJTEL").text, "03-9876-5432");
  EXPECT_FALSE(ItemOn(page, "lblCompany3").visible);

  // The plain object has run no order yet: no sender.
  auto plain = MakeContext(29);
  const auto fresh = RunSlip(*plain);
  ASSERT_EQ(fresh.Pages().size(), 1u);
  EXPECT_EQ(ItemOn(fresh.Pages()[0], "lblSHOP_NAME").text, "");
  EXPECT_EQ(ItemOn(fresh.Pages()[0], "lblJJUSYO").text, "");
  EXPECT_EQ(ItemOn(fresh.Pages()[0], "lblNAME").text, "鈴木 一郎");
}

struct PaperCase {
  const char* label;
  int platform;
  std::int16_t orientation;
  std::int16_t paper_size;
  std::int32_t width, height;  // the printer's paper after the run
};

TEST_P(YamatoSlipRules, SlipPaper) {
  InsertOrder(SlipOrder{});
  const PaperCase cases[] = {
      {"portrait slip form", kPlatformOther, 1, 256, 11397, 6481},
      {"other orientation sets the height twice", kPlatformOther, 2, 256, 0, 11397},
      {"the NT family keeps the driver's paper", kPlatformNt, 1, 256, 0, 0},
      {"a standard paper is left alone", kPlatformOther, 1, 9, 0, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    auto context = MakeContext(25);
    context->current.orientation = c.orientation;
    context->current.paper_size = c.paper_size;
    auto report = registry_.Create("rptYamatoNew", *context);
    auto& slip = static_cast<YamatoSlip&>(*report);
    slip.platform_id = c.platform;
    engine::ApplyReportSettings(slip, context->current);
    engine::PageCollection pages;
    ASSERT_TRUE(slip.Run(pages).ok);
    EXPECT_EQ(slip.Printer.PaperWidth, c.width);
    EXPECT_EQ(slip.Printer.PaperHeight, c.height);
  }
}

TEST_P(YamatoSlipRules, QueryIsTheWorkstationsStagedRows) {
  SlipOrder mine, other;
  other.id = 1002;
  other.client = "WS2";
  other.name = "別端末 次郎";
  InsertOrder(mine);
  InsertOrder(other);
  auto context = MakeContext(25);
  auto report = registry_.Create("rptYamatoNew", *context);
  auto& slip = static_cast<YamatoSlip&>(*report);
  EXPECT_EQ(slip.Query(),
            "SELECT [CHUMON].*,[WK_PRINT].[COMPANY],[WK_PRINT].[SIMEI], [WK_PRINT].[ORD_DATE], [WK_PRINT].[DATE], "
            "[WK_PRINT].[BIKO1], [WK_PRINT].[BIKO2], [WK_PRINT].[ITEM_ID1], [WK_PRINT].[SEK_GAKU] FROM [CHUMON], "
            "[WK_PRINT] WHERE [CHUMON].[ID] = [WK_PRINT].[ID] AND [WK_PRINT].[CLIENT_NAME] = 'WS1'");
  engine::ApplyReportSettings(slip, context->current);
  engine::PageCollection pages;
  ASSERT_TRUE(slip.Run(pages).ok);
  ASSERT_EQ(pages.Pages().size(), 1u);
  EXPECT_EQ(ItemOn(pages.Pages()[0], "lblNAME").text, "山田 太郎");
  EXPECT_EQ(slip.RecordCount(), 1);

  auto customers = MakeContext(29);
  customers->login.client_name = "O'Neil";
  auto customer_report = registry_.Create("rptYamatoNew", *customers);
  EXPECT_EQ(static_cast<YamatoSlip&>(*customer_report).Query(),
            "SELECT [CUSTOMER].*,[WK_PRINT].[COMPANY],[WK_PRINT].[SIMEI] FROM [CUSTOMER],[WK_PRINT] "
            "WHERE [CUSTOMER].[顧客NO] = [WK_PRINT].[SEK_GAKU] AND [WK_PRINT].[CLIENT_NAME] = 'O''Neil'");
}

LUPIN_INSTANTIATE_ENGINES(YamatoSlipRules);

}  // namespace
}  // namespace lupin::reports::testing
