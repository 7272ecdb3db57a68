// The Yamato slips on a real database: page dumps of whole slips against the golden files, and
// the rules a dump would hide in its bulk, one table each.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/display.h"
#include "reports/slips/slip_registration.h"
#include "reports/slips/yamato_slip.h"
#include "report_fixture.h"

namespace lupin::reports::testing {
namespace {

struct GoldenCase {
  const char* golden;
  int report_no;
  int paper_type;
  std::vector<Order> orders;
  std::string format;  // <field=…> rows of a format file, "" for none
};

using YamatoGolden = ReportDb;

TEST_P(YamatoGolden, PageDumps) {
  Order company_only = SlipOrder(), department_only = SlipOrder(), long_names = SlipOrder(), six = SlipOrder(),
        fraction = SlipOrder(), hidden_company2 = SlipOrder(), plain = SlipOrder();
  company_only.company = "株式会社ルパン商事";
  company_only.time_band = "午前中";
  department_only.department = "経理部";
  long_names.company = kLongCompany;
  long_names.department = "経営企画本部 第一グループ";
  long_names.name = kLongName;
  long_names.address = kLongAddress;
  six.lines = SlipGoods(6);
  fraction.lines = SlipGoods(3, 0.5);
  hidden_company2.company = "株式会社ルパン商事";
  hidden_company2.department = "経理部";
  plain.delivery_date = "";
  std::vector<Order> bands;
  int id = 2000;
  for (const char* band : {"午前中", "12-14", "１４～１６", "16〜18", "18~20", "20-21", "19-21", "09:00-12:00",
                           "AM9-12", "ＰＭ２－４", "PM4-PM6", "pm6～8", "PM8-9", "指定なし", ""}) {
    Order o = SlipOrder(++id);
    o.time_band = band;
    bands.push_back(o);
  }
  Order collect_b = SlipOrder(1002);
  collect_b.amount = 3240;
  const GoldenCase cases[] = {
      {"gift_shop_sends.json", 25, 0, {SlipGift("S2")}, ""},
      {"gift_orderer_sends.json", 25, 0, {SlipGift("S0")}, ""},
      {"company_only.json", 25, 0, {company_only}, ""},
      {"department_only.json", 25, 0, {department_only}, ""},
      {"long_names.json", 25, 0, {long_names}, ""},
      {"six_goods.json", 25, 0, {six}, ""},
      {"fractional_quantity.json", 25, 0, {fraction}, ""},
      {"format_hides_company2.json", 25, 0, {hidden_company2}, "<field=lblCompany2><visible>0</visible></field>"},
      {"time_bands.json", 25, 0, bands, ""},
      {"collect.json", 26, 0, {SlipOrder(), collect_b}, ""},
      {"sender_printed_form.json", 25, 1, {plain}, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.golden);
    ClearOrders();
    std::filesystem::remove_all(home_ / "Format");
    if (!c.format.empty()) WriteFormat(c.report_no, c.format);
    for (const auto& order : c.orders) Insert(order);
    auto context = SlipContext(c.report_no, c.paper_type);
    const auto pages = Run(*context);
    ASSERT_EQ(pages.Pages().size(), c.orders.size());
    ExpectDump(pages, std::string("yamato/") + c.golden);
  }
}

LUPIN_INSTANTIATE_ENGINES(YamatoGolden);

class YamatoSlipRules : public ReportDb {
 protected:
  std::vector<engine::Page> Pages(int report_no = 25, const std::string& default_item = "") {
    auto context = SlipContext(report_no);
    context->default_item_name = default_item;
    return Run(*context).Pages();
  }
};

const std::string& Text(const engine::Page& page, const std::string& name) { return ItemOn(page, name).text; }

TEST_P(YamatoSlipRules, WhoReceivesWhoSendsAndTheCompanyLines) {
  const struct {
    const char* label;
    bool gift;
    const char* shop;
    std::string orderer_company, company, department;  // the latter two the recipient's
    const char* sender;                                 // lblSHOP_NAME
    const char* company3;                               // the sender's company line, "" when hidden
    std::string upper, lower;                           // lblCompany and lblCompany2, "" when hidden
  } cases[] = {
      {"no gift: the shop sends even when it lets orderers send", false, "S0", "", "株式会社見本", "", "ルパン堂 本店",
       "", "", "株式会社見本"},
      {"an unknown shop lets the orderer send", true, "S9", "株式会社見本", "株式会社ルパン商事", "経理部", "山田 太郎",
       "株式会社見本", "株式会社ルパン商事", "経理部"},
      {"an orderer without company sends", true, "S0", "", "株式会社ルパン商事", "", "山田 太郎", "", "",
       "株式会社ルパン商事"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    ClearOrders();
    Order order = c.gift ? SlipGift(c.shop) : SlipOrder();
    order.shop = c.shop;
    order.company = c.gift ? c.orderer_company : c.company;
    (c.gift ? order.gift_company : order.company) = c.company;
    (c.gift ? order.gift_department : order.department) = c.department;
    Insert(order);
    const auto pages = Pages();
    ASSERT_EQ(pages.size(), 1u);
    const auto& page = pages[0];
    EXPECT_EQ(Text(page, "lblNAME"), c.gift ? order.gift_name : order.name);
    EXPECT_EQ(Text(page, "lblSHOP_NAME"), c.sender);
    // The sender's telephone comes with the sender.
    EXPECT_EQ(Text(page, "lblJTEL"), c.sender == order.name ? order.tel : "03-9876-5432");
    EXPECT_EQ(ItemOn(page, "lblCompany3").visible ? Text(page, "lblCompany3") : "", c.company3);
    EXPECT_EQ(ItemOn(page, "lblCompany").visible ? Text(page, "lblCompany") : "", c.upper);
    EXPECT_EQ(ItemOn(page, "lblCompany2").visible ? Text(page, "lblCompany2") : "", c.lower);
  }
}

TEST_P(YamatoSlipRules, NamesDatesAndTheItemOverride) {
  Order trailing_break = SlipOrder(), gift_trailing = SlipGift("S2");
  trailing_break.name = "山田 太郎\r\n";
  trailing_break.delivery_date = "なるべく早く";
  gift_trailing.id = 1002;
  gift_trailing.gift_name = "佐藤 花子\r\n";
  Insert(trailing_break);
  Insert(gift_trailing);
  const auto pages = Pages(25, "食品・雑貨");
  ASSERT_EQ(pages.size(), 2u);
  // The orderer's name goes through the line breaking, which drops the empty line; a gift name
  // is printed as it stands.
  EXPECT_EQ(Text(pages[0], "lblNAME"), "山田 太郎");
  EXPECT_EQ(Text(pages[1], "lblNAME"), "佐藤 花子\r\n");
  EXPECT_EQ(Text(pages[0], "lblDELIVERY_DATE"), "");
  EXPECT_EQ(Text(pages[0], "lblITEM"), "食品・雑貨");
}

TEST_P(YamatoSlipRules, CustomerModeTakesTheSenderOfTheLastCollectRun) {
  Insert(SlipOrder());
  ASSERT_EQ(Pages(26).size(), 1u);
  Db().Execute("DELETE FROM [WK_PRINT]");
  Customer customer;
  customer.company = "鈴木商店";
  customer.department = "総務課";
  InsertCustomer(customer);
  const auto collect = Pages(30);
  ASSERT_EQ(collect.size(), 1u);
  EXPECT_EQ(Text(collect[0], "fldSEK_GAKU"), "");
  EXPECT_EQ(Text(collect[0], "lblITEM"), "");
  EXPECT_EQ(Text(collect[0], "lblNAME"), "鈴木 一郎");
  EXPECT_EQ(Text(collect[0], "lblCompany2"), "総務課");
  EXPECT_EQ(Text(collect[0], "lblSHOP_NAME"), "ルパン堂 本店");
}

// A customer run in a process where no order run named the shop: the chosen shop sends, or the
// only one; with neither nothing is printed.
TEST_P(YamatoSlipRules, CustomerModeWithoutAnOrderRunTakesTheChosenOrOnlyShop) {
  Order order = SlipOrder();
  order.shop = "S0";
  order.staged = false;
  Insert(order);
  InsertCustomer(Customer{});
  const struct {
    const char* label;
    std::string chosen;
    bool only_shop;
    int paper_type;
    const char* sender;  // "" when the run stops
  } cases[] = {
      {"two shops, none chosen", "", false, 0, ""},
      {"the chosen shop", "S0", false, 0, "ルパン堂 本店"},
      {"a chosen shop without orders", "S2", false, 0, ""},
      {"the only shop", "", true, 0, "ルパン堂 本店"},
      {"a form with the sender printed needs none", "", false, 1, "-"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    if (c.only_shop) Db().Execute("DELETE FROM [SHOP] WHERE [SHOP_ID] <> 'S0'");
    engine::ReportRegistry fresh;
    RegisterYamatoReports(fresh);
    auto context = SlipContext(29, c.paper_type);
    context->run.shop = c.chosen;
    auto report = fresh.Create("rptYamatoNew", *context);
    engine::ApplyReportSettings(*report, context->current);
    engine::PageCollection pages;
    const auto result = report->Run(pages);
    if (std::string(c.sender).empty()) {
      EXPECT_FALSE(result.ok);
      EXPECT_EQ(result.fault.description, kNoSenderShopMessage);
      EXPECT_TRUE(pages.Pages().empty());
      continue;
    }
    ASSERT_TRUE(result.ok) << result.fault.description;
    ASSERT_EQ(pages.Pages().size(), 1u);
    if (c.paper_type == 0) {
      EXPECT_EQ(Text(pages.Pages()[0], "lblSHOP_NAME"), c.sender);
    }
  }
}

TEST_P(YamatoSlipRules, SlipPaper) {
  Insert(SlipOrder());
  const struct {
    const char* label;
    int platform;
    std::int16_t orientation, paper_size;
    std::int32_t width, height;  // the printer's paper after the run
  } cases[] = {
      {"portrait slip form", kPlatformOther, 1, 256, 11397, 6481},
      {"other orientation sets the height twice", kPlatformOther, 2, 256, 0, 11397},
      {"the NT family keeps the driver's paper", kPlatformNt, 1, 256, 0, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.label);
    auto context = SlipContext(25);
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
  auto orders = SlipContext(25);
  auto customers = SlipContext(29);
  customers->login.client_name = "O'Neil";
  EXPECT_EQ(static_cast<YamatoSlip&>(*registry_.Create("rptYamatoNew", *orders)).Query(),
            "SELECT [CHUMON].*,[WK_PRINT].[COMPANY],[WK_PRINT].[SIMEI], [WK_PRINT].[ORD_DATE], [WK_PRINT].[DATE], "
            "[WK_PRINT].[BIKO1], [WK_PRINT].[BIKO2], [WK_PRINT].[ITEM_ID1], [WK_PRINT].[SEK_GAKU] FROM [CHUMON], "
            "[WK_PRINT] WHERE [CHUMON].[ID] = [WK_PRINT].[ID] AND [WK_PRINT].[CLIENT_NAME] = 'WS1' ORDER BY [CHUMON].[ID] ");
  EXPECT_EQ(static_cast<YamatoSlip&>(*registry_.Create("rptYamatoNew", *customers)).Query(),
            "SELECT [CUSTOMER].*,[WK_PRINT].[COMPANY],[WK_PRINT].[SIMEI] FROM [CUSTOMER],[WK_PRINT] "
            "WHERE [CUSTOMER].[顧客NO] = [WK_PRINT].[SEK_GAKU] AND [WK_PRINT].[CLIENT_NAME] = 'O''Neil'"
            " ORDER BY [CUSTOMER].[郵便番号],[CUSTOMER].[顧客NO]");
}

LUPIN_INSTANTIATE_ENGINES(YamatoSlipRules);

}  // namespace
}  // namespace lupin::reports::testing
