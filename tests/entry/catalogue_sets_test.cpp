#include <gtest/gtest.h>

#include <set>
#include <utility>
#include <vector>

#include "entry/catalogue.h"

namespace lupin::entry {
namespace {

std::set<int> Range(int from, int to) {
  std::set<int> numbers;
  for (int n = from; n <= to; ++n) numbers.insert(n);
  return numbers;
}

std::set<int> Join(std::initializer_list<std::set<int>> parts) {
  std::set<int> all;
  for (const auto& part : parts) all.insert(part.begin(), part.end());
  return all;
}

struct SetCase {
  const char* name;
  bool (*member)(std::int32_t);
  std::set<int> expected;
};

class NamedSetTest : public ::testing::TestWithParam<SetCase> {};

TEST_P(NamedSetTest, MembersExactly) {
  for (int n = -3; n <= 130; ++n)
    EXPECT_EQ(GetParam().member(n), GetParam().expected.count(n) == 1) << GetParam().name << " " << n;
}

INSTANTIATE_TEST_SUITE_P(
    Sets, NamedSetTest,
    ::testing::Values(
        SetCase{"Waybill", IsWaybillReport, Join({{2, 3}, Range(16, 21), {25, 26}, Range(40, 43), Range(47, 49), {51, 52}})},
        SetCase{"Direct", IsDirectReport, {35, 44, 45, 46}},
        SetCase{"SalesSummary", IsSalesSummaryReport, {44, 45, 46}},
        SetCase{"File", IsFileReport, Join({Range(89, 99), {101, 102, 104}})},
        SetCase{"Collect", IsCollectReport,
                {3, 17, 19, 21, 26, 32, 34, 40, 41, 43, 48, 49, 50, 52, 89, 90, 91, 95, 96, 97, 102, 104}},
        SetCase{"SilentNone", IsSilentNoneReport, Range(9, 15)}),
    [](const auto& p) { return std::string(p.param.name); });

TEST(CatalogueTable, EveryNumberInOrderWithConsistentColumns) {
  ASSERT_EQ(CatalogueEnd() - CatalogueBegin(), 105);
  int expected_no = 0;
  for (const CatalogueEntry* e = CatalogueBegin(); e != CatalogueEnd(); ++e, ++expected_no) {
    SCOPED_TRACE(e->report_no);
    EXPECT_EQ(e->report_no, expected_no);
    EXPECT_EQ(&CatalogueOf(e->report_no), e);
    // A page report or file always names its object; a number without output names none.
    EXPECT_EQ(e->output == OutputKind::None, e->object.empty());
    if (e->output == OutputKind::File) {
      EXPECT_TRUE(e->object.starts_with("mod") || e->object.starts_with("cls"));
    } else if (e->output == OutputKind::Report) {
      EXPECT_TRUE(e->object.starts_with("rpt"));
    }
  }
}

TEST(LedgerReportNo, FileNumbersAreMapped) {
  const std::pair<int, int> cases[] = {{89, 95}, {96, 91}, {104, 91}, {97, 90}, {90, 90}, {25, 25}};
  for (const auto& [printed, stored] : cases) EXPECT_EQ(LedgerReportNo(printed), stored) << printed;
}

// The numbers delivered as customer reports are those reading customer rows.
TEST(CustomerReports, ReadCustomerRows) {
  std::vector<int> customer_sources;
  for (const CatalogueEntry* e = CatalogueBegin(); e != CatalogueEnd(); ++e) {
    if (e->source == SourceRows::Customers) customer_sources.push_back(e->report_no);
  }
  EXPECT_EQ(customer_sources, (std::vector<int>{23, 29, 30}));
}

}  // namespace
}  // namespace lupin::entry
