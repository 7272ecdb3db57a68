// The delivery notes on a real database: what each form shows, against golden files, for the
// paging, masks, gifts, reduced rates and the variants; and the rules the pages do not show.
#include <gtest/gtest.h>

#include "engine/display.h"
#include "engine/text_wrap.h"
#include "reports/documents/nouhin.h"
#include "report_fixture.h"
#include "support/counting_connection.h"

namespace lupin::reports {
namespace {

using testing::DocumentOrder;
using testing::Lines;
using testing::Order;
using testing::Shown;

class NouhinTest : public testing::ReportDb {};

struct GoldenCase {
  const char* golden;
  const char* object;
  std::vector<Order> orders;
  std::string command = "";
  std::string format = "";
};

std::vector<GoldenCase> Cases() {
  Order gap = DocumentOrder(1107, Lines(8));
  gap.lines[5].id.clear();  // line 6 empty, 7 and 8 filled: the order ends at line 5
  Order override_first = DocumentOrder(1116, Lines(16));
  override_first.biko1 = "お試しセット（一覧で変更）";
  override_first.bill_company = "見本商事株式会社";
  override_first.bill_department = "経理部";
  override_first.bill_name = "経理 花子";

  Order included = DocumentOrder(1201, Lines(3));
  included.tax_included = true;
  included.points = 500;
  included.lines[1].tax_kbn = 1;
  included.lines[2].name = "特選 宇治抹茶 缶入り 100g ギフト箱入り 熨斗対応";  // above 75 bytes: two points smaller
  Order no_charges = DocumentOrder(1202, Lines(2));
  no_charges.postage = 0;
  no_charges.fee = 0;

  Order gift_atena = DocumentOrder(1301, Lines(2));
  gift_atena.shop = "S2";
  gift_atena.gift_company = "贈答商事";
  gift_atena.gift_name = "佐藤 花子";
  gift_atena.gift_postcode = "530-0001";
  gift_atena.gift_address = "大阪府大阪市北区梅田1-1";
  gift_atena.gift_tel = "06-1111-2222";
  Order gift_plain = gift_atena;
  gift_plain.id = 1302;
  gift_plain.customer = 502;
  gift_plain.shop = "S1";
  Order no_gift_atena = DocumentOrder(1303, Lines(1));
  no_gift_atena.shop = "S2";

  Order reduced = DocumentOrder(1401, Lines(7));
  reduced.lines[6].reduced = 1;
  reduced.lines[0].reduced = 1;
  reduced.points = 300;
  Order before = DocumentOrder(1402, Lines(2));
  before.ordered = before.planned = before.shipped = before.bill_date = "2019/09/30";
  before.lines[0].reduced = 1;

  Order points = DocumentOrder(1501, Lines(2));
  points.points = 700;

  Order hidden = gift_atena;
  hidden.id = 1601;
  hidden.tax_included = true;
  hidden.lines = Lines(6);
  hidden.lines[0].reduced = 1;

  Order invoice_s1 = reduced;
  invoice_s1.id = 1701;
  Order invoice_s2 = DocumentOrder(1702, Lines(2));
  invoice_s2.shop = "S2";
  invoice_s2.lines[1].reduced = 1;

  return {
      {"nouhin/lines.txt", "rptNouhin",
       {DocumentOrder(1101, Lines(1)), DocumentOrder(1105, Lines(5)), DocumentOrder(1106, Lines(6)), DocumentOrder(1111, Lines(11)), override_first,
        DocumentOrder(1120, Lines(20)), gap}},
      {"nouhin/tax_included.txt", "rptNouhin", {included, no_charges}},
      {"nouhin/gift.txt", "rptNouhin", {gift_atena, gift_plain, no_gift_atena}},
      {"nouhin/reduced.txt", "rptNouhin", {reduced, before}},
      {"nouhin/nohinoldver.txt", "rptNouhin", {points}, "-a -nohinoldver"},
      {"nouhin/format_hidden.txt", "rptNouhin", {hidden}, "",
       "<field=lblMask1><visible>0</visible></field>\r\n<field=lblOrder2><visible>0</visible></field>\r\n"
       "<field=lblReducedKbn1><visible>0</visible></field>\r\n<field=lblReducedWord1><visible>0</visible></field>\r\n"
       "<field=lblCompany><visible>0</visible></field>"},
      {"nouhin/invoice.txt", "rptNouhinInvoice", {invoice_s1, invoice_s2}},
  };
}

TEST_P(NouhinTest, WhatEachFormShows) {
  for (const auto& c : Cases()) {
    ClearOrders();
    std::filesystem::remove_all(home_ / "Format");
    for (const auto& order : c.orders) Insert(order);
    const int number = std::string(c.object) == "rptNouhin" ? 0 : 56;
    if (!c.format.empty()) WriteFormat(number, c.format);
    auto context = NoteContext(number);
    context->command = c.command;
    ExpectShown(Run(*context, c.object), c.golden);
  }
}

TEST_P(NouhinTest, PageLayout) {
  Order order = DocumentOrder(1001, Lines(3));
  order.lines[2].reduced = 1;
  order.points = 200;
  Insert(order);
  auto context = NoteContext(0);
  ExpectDump(Run(*context, "rptNouhin"), "nouhin/page.json");
}

TEST_P(NouhinTest, PreprintedPaperPrintsOnlyData) {
  Insert(DocumentOrder(1001, Lines(2)));
  auto context = NoteContext(0, 1);
  const auto pages = Run(*context, "rptNouhin");
  ASSERT_EQ(pages.Pages().size(), 1u);
  int drawn = 0;
  for (const auto& item : pages.Pages()[0].items) {
    const bool caption = item.kind == engine::ItemKind::Label && item.name.rfind("lbl", 0) != 0 &&
                         item.name.rfind("Lbl", 0) != 0;
    if (item.visible && (item.kind == engine::ItemKind::Line || item.kind == engine::ItemKind::Shape || caption)) ++drawn;
  }
  EXPECT_EQ(drawn, 0);
  EXPECT_EQ(Shown(pages.Pages()[0], "fldID"), "1001");
  EXPECT_EQ(Shown(pages.Pages()[0], "LblName2"), "山田 太郎　様") << "a label named Lbl… is data";
}

TEST_P(NouhinTest, WorkstationsAndTheStatement) {
  Order other = DocumentOrder(2002, Lines(1));
  other.client = "WS2";
  Insert(DocumentOrder(2001, Lines(1)));
  Insert(other);
  auto context = NoteContext(0);
  const auto pages = Run(*context, "rptNouhin");
  ASSERT_EQ(pages.Pages().size(), 1u);
  EXPECT_EQ(Shown(pages.Pages()[0], "fldID"), "2001");

  engine::FallbackMeasurer measurer;
  rptNouhin note(*context, measurer);
  const std::string sql = note.Query();
  for (const char* piece :
       {"select a.*, [WK_PRINT].[COMPANY],[WK_PRINT].[SIMEI] , [WK_PRINT].[ORD_DATE], [WK_PRINT].[Date], ",
        " WHERE [CHUMON].[ショップID] = [SHOP].[SHOP_ID] Union SELECT",
        " AND ([商品ID6] IS NOT NULL) AND ([商品ID6] <> '') Union ", "[SHIPPING_TAXKBN],[HANDLING_TAXKBN],[TAX_RATE],2 as ord ,[受注日],[出荷予定日] From [CHUMON], [SHOP]",
        " AND ([商品ID16] IS NOT NULL) AND ([商品ID16] <> '')) a WHERE a.[ID] = [WK_PRINT].[ID] AND [WK_PRINT].[CLIENT_NAME] = 'WS1' order by a.id,a.ord"})
    EXPECT_NE(sql.find(piece), std::string::npos) << piece << "\n" << sql;
  EXPECT_EQ(sql.find("INVOICE"), std::string::npos);
  rptNouhinInvoice invoice(*context, measurer);
  EXPECT_NE(invoice.Query().find("[TAX_RATE],[INVOICE_NAME],[INVOICE_NO],4 as ord"), std::string::npos);
}

TEST_P(NouhinTest, LookupsThatCannotChangeAreAskedOncePerRun) {
  for (int id = 3001; id <= 3006; ++id) Insert(DocumentOrder(id, Lines(id == 3001 ? 16 : 3)));
  auto context = NoteContext(0);
  auto report = registry_.Create("rptNouhin", *context);
  engine::ApplyReportSettings(*report, context->current);
  engine::PageCollection pages;
  ASSERT_TRUE(report->Run(pages).ok);
  const auto counts = static_cast<NouhinReport&>(*report).Counts();
  EXPECT_EQ(pages.Pages().size(), 9u);
  EXPECT_EQ(counts.page_marks, 6) << "one per order, not per form";
  EXPECT_EQ(counts.units, 2) << "two items of one shop";
  EXPECT_EQ(counts.tax_dates, 1) << "every order has the same date after the reduced rate began";
  EXPECT_EQ(counts.reduced_flags, 6);
  EXPECT_EQ(counts.summaries, 3) << "the run's orders, their CHUMON_T rows, the orders to calculate";
}

// The reduced-rate summaries of a long run: without CHUMON_T rows each order is calculated and
// written, yet the run costs the same queries but one per batch, and prints the same pages.
TEST_P(NouhinTest, TaxSummariesOfALongRunAreReadAndWrittenABatchAtATime) {
  constexpr int kOrders = 520;  // two batches
  Db().BeginTrans();
  for (int n = 0; n < kOrders; ++n) {
    Order order = DocumentOrder(5000 + n, Lines(1));
    order.lines[0].reduced = n % 2;
    Insert(order);
  }
  Db().CommitTrans();
  auto context = NoteContext(0);
  lupin::testing::CountingConnection counting(Db());
  context->connection = &counting;
  const auto run = [&] {
    return lupin::testing::CostOf(counting, Db(), [&] {
      std::string reduced_words;
      const auto pages = Run(*context, "rptNouhin");
      for (const auto& page : pages.Pages()) reduced_words += Shown(page, "lblReducedWord1") + "\n";
      return reduced_words;
    });
  };
  const auto cold = run();
  EXPECT_EQ(Db().Open("SELECT COUNT(*) AS N FROM [CHUMON_T]")["N"].Long(), kOrders);
  const auto warm = run();
  EXPECT_EQ(cold.output, warm.output);
  EXPECT_NE(cold.output.find("8%対象"), std::string::npos);
  EXPECT_LE(cold.queries - warm.queries, 4) << "the TAX table once, the orders to calculate once a batch";
  if (GetParam() == db::Engine::Postgres) {
    EXPECT_LE(cold.round_trips - warm.round_trips, 12u) << "the 1,040 rewrites travel 200 statements a send";
  }
}

LUPIN_INSTANTIATE_ENGINES(NouhinTest);

TEST(ReducedSummaryText, PlainAndInvoiceForms) {
  const auto summary = [](std::array<const char*, 3> rate, std::array<std::int32_t, 3> kin,
                          std::array<std::int32_t, 3> zei) {
    RateSummary s;
    for (std::size_t i = 0; i < 3; ++i) s.rate[i] = rate[i], s.komikin[i] = kin[i], s.zeikin[i] = zei[i];
    return s;
  };
  const struct {
    RateSummary summary;
    bool invoice;
    const char* text;
  } cases[] = {
      {summary({"0.1", "0", "0"}, {11000, 0, 0}, {1000, 0, 0}), false, "軽は軽減税率(8%)の商品です。"},
      {summary({"0.1", "0.08", "0"}, {11000, 2160, 0}, {1000, 160, 0}), false,
       "軽は軽減税率(8%)の商品です。(10%対象 11,000円  8%対象 2,160円)"},
      {summary({"0", "0.08", "0.08"}, {0, 1080, 540}, {0, 80, 40}), false,
       "軽は軽減税率(8%)の商品です。(8%対象 1,080円  旧8%対象 540円)"},
      {summary({"0.1", "0.08", "0"}, {11000, 2160, 0}, {1000, 160, 0}), true,
       "軽は軽減税率(8%)の商品です。　10%対象 11,000円(消費税 1,000円)  8%対象 2,160円(消費税 160円)"},
      {summary({"0.1", "0", "0"}, {-300, 0, 0}, {-27, 0, 0}), true, "軽は軽減税率(8%)の商品です。　10%対象 -300円(消費税 -27円)"},
      {summary({"0.1", "0.08", "0"}, {-300, 0, 0}, {300, 0, 0}), false, "軽は軽減税率(8%)の商品です。"},
      {summary({"0.1", "0.085", "0"}, {0, 1085, 0}, {0, 85, 0}), false, "軽は軽減税率(8%)の商品です。(8.5%対象 1,085円)"},
  };
  for (const auto& c : cases) EXPECT_EQ(ReducedSummaryText(c.summary, c.invoice), c.text);
}

}  // namespace
}  // namespace lupin::reports
