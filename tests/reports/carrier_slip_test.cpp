// The slips of Sagawa, Nippon Express, Yu-Pack, Fukuyama and Seino on a real database: one golden
// page dump per designer from the shared orders, one per time-slot table with every band form it
// knows, and the rules a dump would hide in its bulk.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "engine/display.h"
#include "engine/render_png.h"
#include "engine/text_fit.h"
#include "reports/slips/slip_frame.h"
#include "report_fixture.h"

namespace lupin::reports::testing {
namespace {

// The orders every designer prints: plain, gifts with the orderer and with the shop sending,
// company only, department only with a short postcode, long names with a two-line sender, and on
// collect forms six goods and a stamp on an amount below 200. The telephones take every layout
// of the 13 boxes.
std::vector<Order> SharedOrders(bool collect) {
  const auto gift = [](const std::string& shop, int id) {
    Order o = SlipGift(shop, id);
    o.tel = "090-123-4567";
    return o;
  };
  Order plain = SlipOrder(4001), company_only = SlipOrder(4003), department_only = SlipOrder(4004),
        long_names = gift("S0", 4005);
  plain.time_band = "午前中";
  company_only.company = "株式会社ルパン商事";
  company_only.tel = "0312345678";
  company_only.time_band = "PM2-4";
  department_only.department = "経理部";
  department_only.postcode = "530-01";
  department_only.tel = "03-123-456";
  department_only.time_band = "指定なし";
  department_only.shipped = "";
  long_names.company.clear();
  long_names.name = kLongName;
  long_names.address = kLongAddress;
  long_names.gift_company = kLongCompany;
  long_names.gift_department = "経営企画本部 第一グループ";
  long_names.gift_name = "ルパン・エンタープライズ株式会社 ご担当 佐藤 花子 様";
  long_names.gift_address = kLongAddress;
  std::vector<Order> orders = {plain, gift("S0", 4002), company_only, department_only, long_names,
                                   gift("S2", 4006)};
  if (collect) {
    Order six = SlipOrder(4007), stamp = SlipOrder(4008);
    six.lines = SlipGoods(6);
    six.amount = 30000;
    six.points = 1500;
    six.time_band = "18-20";
    stamp.amount = 150;
    stamp.tax = 13;
    stamp.inshi = 1;
    stamp.shop = "S0";
    stamp.lines = SlipGoods(2);
    orders.push_back(six);
    orders.push_back(stamp);
  }
  return orders;
}

struct Designer {
  const char* object;
  int report_no;
  bool collect;
};

const Designer kDesigners[] = {
    {"rptSagawa", 18, false},         {"rptSagawa_Colect", 19, true},     {"rptSagawa2010", 51, false},
    {"rptSagawa_Colect2010", 52, true}, {"rptNittu", 16, false},          {"rptNittu_Colect", 17, true},
    {"rptNittuNew", 42, false},       {"rptNittu_ColectNew", 43, true},   {"rptYupak", 20, false},
    {"rptYupak_Colect", 21, true},    {"rptYupak_ColectNew", 40, true},   {"rptYupak_ColectNewE", 41, true},
    {"rptYupak2010", 47, false},      {"rptYupak_Colect2010", 48, true},  {"rptYupak_ColectE2010", 49, true},
    {"rptFukuyama", 32, true},        {"rptFukuyamaNew", 53, false},      {"rptFukuyamaColectNew", 50, true},
    {"rptSeino", 33, false},          {"rptSeinoColect", 34, true},
};

class CarrierSlips : public ReportDb {
 protected:
  engine::PageCollection RunForm(int report_no, const std::string& object = "") {
    auto context = SlipContext(report_no);
    context->current.report_name = object;
    context->current.fld_txt[0] = "00120-3-456";
    context->current.fld_txt[1] = "ルパン堂";
    return Run(*context, object);
  }
};

TEST_P(CarrierSlips, PageDumpsOfEveryDesigner) {
  for (const Designer& d : kDesigners) {
    SCOPED_TRACE(d.object);
    ClearOrders();
    const auto orders = SharedOrders(d.collect);
    for (const auto& order : orders) Insert(order);
    const auto pages = RunForm(d.report_no, d.object);
    ASSERT_EQ(pages.Pages().size(), orders.size());
    ExpectDump(pages, std::string("slips/") + d.object + ".json");
  }
}

// Ordinary orders print whole and apart on every form: 13-character telephones (the Nippon
// Express forms lost the last digit of one), companies, gifts, six goods. Only the long names of
// order 4005 are beyond what a form holds, which the line-breaking rules decide.
TEST_P(CarrierSlips, OrdinaryOrdersPrintWholeAndApart) {
  engine::TextFitCheck fit;
  for (const Designer& d : kDesigners) {
    SCOPED_TRACE(d.object);
    ClearOrders();
    for (Order order : SharedOrders(d.collect)) {
      if (order.id == 4005) continue;
      order.tel = "080-1478-1960";
      if (!order.gift_name.empty()) order.gift_tel = "0120-123-4567";
      Insert(order);
    }
    const auto pages = RunForm(d.report_no, d.object);
    for (const auto& page : pages.Pages()) {
      for (const auto& cut : fit.Check(page)) ADD_FAILURE() << "page " << page.number << " " << cut.name << " (" << cut.problem << "): " << cut.text;
      for (const auto& pair : engine::OverlappingTextBoxes(page))
        ADD_FAILURE() << "page " << page.number << " " << pair.first << " overlaps " << pair.second;
    }
  }
}

// Each table's bands, its morning forms, "no preference", and forms it has no box for.
TEST_P(CarrierSlips, EveryTimeBandOfEachSlotTable) {
  const struct {
    const char* object;
    int report_no;
    std::vector<const char*> bands;
  } tables[] = {
      {"rptNittu", 16, {"午前中", "8-12", "AM9-12", "指定なし", "12-16", "16-19", "19-22", "PM0-4", "PM4-7", "PM7-10", "19-21"}},
      {"rptNittuNew", 42, {"午前中", "希望無し", "12-14", "14-16", "16-18", "18-20", "20-21", "PM0-2", "PM2-4", "PM4-6",
                           "PM6-8", "PM8-9", "19-21"}},
      {"rptYupak", 20, {"午前中", "13-16", "17-19", "19-21", "PM0-4", "PM5-7", "PM7-9", "12-14"}},
      {"rptYupak_ColectNew", 40, {"AM9-12", "12-14", "14-17", "17-19", "19-21", "PM0-2", "PM2-5", "PM5-7", "PM7-9",
                                  "14-16"}},
      {"rptYupak2010", 47, {"午前中", "12-14", "14-16", "16-18", "18-20", "20-21", "PM0-2", "PM2-4", "PM4-6", "PM6-8",
                            "PM8-9", "19-21", "指定なし"}},
      {"rptFukuyamaNew", 53, {"午前中", "12-14", "14-16", "16-18", "18-21", "PM2-4", "指定無し"}},
  };
  for (const auto& table : tables) {
    SCOPED_TRACE(table.object);
    ClearOrders();
    int id = 5000;
    for (const char* band : table.bands) {
      Order order = SlipOrder(++id);
      order.time_band = band;
      Insert(order);
    }
    const auto pages = RunForm(table.report_no, table.object);
    ASSERT_EQ(pages.Pages().size(), table.bands.size());
    ExpectDump(pages, std::string("slips/time_bands_") + table.object + ".json");
  }
}


TEST_P(CarrierSlips, OneFukuyamaDesignerServesThePlainAndTheCollectSlip) {
  Insert(SlipOrder());
  for (const int report_no : {31, 32}) {
    const auto pages = RunForm(report_no);
    ASSERT_EQ(pages.Pages().size(), 1u);
    EXPECT_EQ(ItemOn(pages.Pages()[0], "fldSEK_GAKU").visible, report_no == 32) << report_no;
  }
}

TEST_P(CarrierSlips, PaperOfEachFamily) {
  Insert(SlipOrder());
  const struct {
    const char* object;
    std::int16_t orientation;
    std::int32_t width, height;
  } cases[] = {
      {"rptSagawa", 1, 10773, 5761},     {"rptSagawa", 2, 5761, 10773},      {"rptNittu_Colect", 2, 6481, 13324},
      {"rptYupak", 1, 11057, 7201},      {"rptFukuyama", 2, 5761, 12758},
      // The plain Seino form in the other orientation changes only its width.
      {"rptSeino", 2, 5761, 6481},       {"rptSeinoColect", 2, 6481, 12758},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.object) + " orientation " + std::to_string(c.orientation));
    auto context = SlipContext(18);
    context->current.orientation = c.orientation;
    auto report = registry_.Create(c.object, *context);
    engine::ApplyReportSettings(*report, context->current);
    engine::PageCollection pages;
    ASSERT_TRUE(report->Run(pages).ok);
    EXPECT_EQ(report->Printer.PaperWidth, c.width);
    EXPECT_EQ(report->Printer.PaperHeight, c.height);
  }
}

TEST_P(CarrierSlips, FormsWithTheSenderPrintedHideTheSenderBoxes) {
  Insert(SlipOrder());
  for (const char* object : {"rptSagawa2010", "rptNittuNew", "rptYupak"}) {
    SCOPED_TRACE(object);
    auto context = SlipContext(18, 1);
    const auto pages = Run(*context, object);
    ASSERT_EQ(pages.Pages().size(), 1u);
    const auto& page = pages.Pages()[0];
    for (const char* sender : {"lblJusyo2", "lblName2", "lblNameSub2"}) EXPECT_FALSE(ItemOn(page, sender).visible) << sender;
    EXPECT_TRUE(ItemOn(page, "lblName").visible);
  }
}

LUPIN_INSTANTIATE_ENGINES(CarrierSlips);

}  // namespace
}  // namespace lupin::reports::testing
