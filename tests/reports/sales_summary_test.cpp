// The sales summaries against sums worked out here from the fixture orders, period by period, and
// the repeat rate's cut.
#include <gtest/gtest.h>

#include <cmath>

#include "common/vb.h"
#include "report_fixture.h"
#include "reports/documents/sales_summary.h"

namespace lupin::reports::testing {
namespace {

class SalesSummaryTest : public ReportDb {
 protected:
  void SetUp() override {
    ReportDb::SetUp();
    const auto order = [](int id, int customer, std::string shipped, std::vector<OrderLine> lines) {
      Order o;
      o.id = id;
      o.customer = customer;
      o.shipped = std::move(shipped);
      o.lines = std::move(lines);
      return o;
    };
    const std::vector<OrderLine> one = {{"A-100", "緑茶", 1200, 1}};
    const std::vector<OrderLine> two = {{"A-100", "緑茶", 1200, 2}, {"B-200", "湯呑", 2500, 1.5}};
    orders_ = {
        order(1, 10, "2024/05/20", one),  // before the period: makes 10's June orders repeats
        order(2, 10, "2024/06/03", two),
        order(3, 20, "2024/06/03", one),  // a first order
        order(4, 30, "2024/06/05", one),  // a new customer's two orders on one day
        order(5, 30, "2024/06/05", two),
        order(6, 0, "2024/06/05", two),   // no customer: never a repeat
        order(7, 20, "2024/06/12", one),
        order(8, 40, "", one),            // not shipped: outside every period
        order(9, 40, "2024/06/28", one),
        order(10, 50, "2024/07/02", one),
    };
    for (const auto& o : orders_) Insert(o);
  }

  struct Row {
    std::string target, ninzu, tanka, qty, kingaku, rate;
  };

  // What each period must show, worked out from orders_ directly.
  std::vector<Row> Expected(SummaryPeriod period, const std::string& from, const std::string& to, Row& total) {
    const auto from_date = *vb::CDate(from), to_date = *vb::CDate(to);
    vb::DateSerial start = from_date;
    int year = 0, month = 0, day = 0;
    vb::SplitDate(from_date, year, month, day);
    if (period == SummaryPeriod::Week) start = from_date - (vb::Weekday(from_date) - 1);
    if (period == SummaryPeriod::Month) start = vb::DateSerialOf(year, month, 1);
    std::vector<vb::DateSerial> starts;
    for (vb::DateSerial d = start; d <= to_date;
         d = period == SummaryPeriod::Day ? d + 1 : period == SummaryPeriod::Week ? d + 7 : vb::DateAdd("m", 1, d))
      starts.push_back(d);
    std::vector<Row> rows;
    long all_orders = 0, all_repeats = 0;
    double all_qty = 0, all_amount = 0;
    for (std::size_t i = 0; i < starts.size(); ++i) {
      const std::string first = vb::FormatDate(starts[i], "YYYY/MM/DD");
      const std::string last = i + 1 < starts.size() ? vb::FormatDate(starts[i + 1] - 1, "YYYY/MM/DD") : to;
      long orders = 0, repeats = 0;
      double qty = 0, amount = 0;
      for (const auto& o : orders_) {
        if (o.shipped.empty() || o.shipped < from || o.shipped > to || o.shipped < first || o.shipped > last) continue;
        ++orders;
        amount += o.Billed();
        for (const auto& line : o.lines) qty += line.quantity;
        if (o.customer == 0) continue;
        for (const auto& earlier : orders_)
          if (earlier.customer == o.customer && (earlier.shipped < o.shipped || (earlier.shipped == o.shipped && earlier.id < o.id))) {
            ++repeats;
            break;
          }
      }
      const std::string target = period == SummaryPeriod::Month  ? vb::FormatDate(starts[i], "YYYY/MM")
                                 : period == SummaryPeriod::Week ? first + "の週"
                                                                 : first;
      const double rate = orders ? std::floor(static_cast<double>(repeats) * 1000.0 / static_cast<double>(orders)) / 10.0 : 0;
      rows.push_back({target, vb::Format(orders, "#,##0"), vb::Format(orders ? amount / orders : 0, "#,##0"),
                      vb::Format(qty, "#,##0"), vb::Format(amount, "#,##0"), vb::Format(rate, "0.0") + "%"});
      all_orders += orders;
      all_repeats += repeats;
      all_qty += qty;
      all_amount += amount;
    }
    const double rate = all_orders ? std::floor(static_cast<double>(all_repeats) * 1000.0 / static_cast<double>(all_orders)) / 10.0 : 0;
    total = {"合計", vb::Format(all_orders, "#,##0"), all_orders ? vb::Format(all_amount / all_orders, "#,##0") : "0",
             vb::Format(all_qty, "#,##0"), vb::Format(all_amount, "#,##0"), vb::Format(rate, "0.0") + "%"};
    return rows;
  }

  std::vector<Order> orders_;
};

TEST_P(SalesSummaryTest, EveryPeriodMatchesTheSumsOfItsOrders) {
  struct Case {
    std::int32_t report_no;
    SummaryPeriod period;
    const char *from, *to;
  };
  for (const Case& c : {Case{44, SummaryPeriod::Day, "2024/06/01", "2024/06/30"},
                        Case{45, SummaryPeriod::Week, "2024/06/01", "2024/06/30"},
                        Case{46, SummaryPeriod::Month, "2024/05/15", "2024/07/10"}}) {
    SCOPED_TRACE(c.report_no);
    entry::RunValues run;
    run.sales_summary.date_from = c.from;
    run.sales_summary.date_to = c.to;
    const auto pages = Run(c.report_no, run);
    std::vector<std::string> targets, ninzu, tanka, qty, kingaku, rate;
    for (const auto& page : pages.Pages()) {
      for (const auto& [name, texts] : {std::pair{"lblTarget", &targets}, {"fldNinzu", &ninzu}, {"fldTanka", &tanka},
                                        {"fldQty", &qty}, {"fldKingaku", &kingaku}, {"fldRepeatRate", &rate}})
        for (const auto& text : TextsOf(page, name)) texts->push_back(text);
    }
    Row total;
    const auto expected = Expected(c.period, c.from, c.to, total);
    ASSERT_EQ(targets.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
      SCOPED_TRACE(expected[i].target);
      EXPECT_EQ(targets[i], expected[i].target);
      EXPECT_EQ(ninzu[i], expected[i].ninzu);
      EXPECT_EQ(tanka[i], expected[i].tanka);
      EXPECT_EQ(qty[i], expected[i].qty);
      EXPECT_EQ(kingaku[i], expected[i].kingaku);
      EXPECT_EQ(rate[i], expected[i].rate);
    }
    const auto& last = pages.Pages().back();
    EXPECT_EQ(Shown(last, "fldSumNinzu"), total.ninzu);
    EXPECT_EQ(Shown(last, "fldSumTanka"), total.tanka);
    EXPECT_EQ(Shown(last, "fldSumQty"), total.qty);
    EXPECT_EQ(Shown(last, "fldSumKingaku"), total.kingaku);
    EXPECT_EQ(Shown(last, "fldSumRepeatRate"), total.rate);
  }
}

TEST_P(SalesSummaryTest, TheMonthlyPageAsAWhole) {
  entry::RunValues run;
  run.sales_summary.date_from = "2024/04/01";
  run.sales_summary.date_to = "2024/07/31";
  ExpectDump(Run(46, run), "uriage_46_months.json");
}

LUPIN_INSTANTIATE_ENGINES(SalesSummaryTest);

TEST(RepeatRate, IsCutAtOneDecimal) {
  const std::tuple<long, long, double> cases[] = {{1, 3, 33.3}, {2, 3, 66.6}, {1, 7, 14.2}, {0, 5, 0}, {5, 0, 0}, {3, 3, 100}};
  for (const auto& [repeats, orders, rate] : cases) EXPECT_DOUBLE_EQ(RepeatRate(repeats, orders), rate) << repeats << "/" << orders;
}

}  // namespace
}  // namespace lupin::reports::testing
