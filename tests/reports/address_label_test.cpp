// Address labels: start place and duplicates as whole pages, the postcode mark, prospects from
// customers, and the customer barcode read back from the rendered page bar by bar.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "report_fixture.h"
#include "engine/render_png.h"
#include "engine/text_fit.h"
#include "reports/documents/address_label.h"
#include "reports/slips/customer_barcode.h"

namespace lupin::reports::testing {
namespace {

class AddressLabelTest : public ReportDb {
 protected:
  // Ten orders; 3 and 7 repeat the name and telephone of 1, 9 has no postcode (so neither mark nor
  // barcode, which the golden dump of StartPlaceAndDuplicates holds), 10 no name or tel.
  void InsertOrders() {
    const char* names[] = {"山田 太郎", "佐藤 花子", "山田 太郎", "鈴木 一郎", "高橋 三郎",
                           "田中 次郎", "山田 太郎", "伊藤 四郎", "渡辺 五郎", ""};
    for (int i = 0; i < 10; ++i) {
      Order order;
      order.id = i + 1;
      order.name = names[i];
      order.tel = i == 9 ? "" : i == 0 || i == 2 || i == 6 ? "03-1111-1111" : "06-2222-000" + std::to_string(i);
      order.postcode = i == 8 ? "" : "100-0001";
      order.address = i == 1 ? "北海道札幌市中央区北一条西１－１ 札幌第一ビルディング南館１５階" : "東京都千代田区千代田 一丁目１－１";
      Insert(order);
    }
  }
  // Per page, the names of the places in placing order ("" for a blank place).
  std::vector<std::vector<std::string>> Names(const engine::PageCollection& pages) {
    std::vector<std::vector<std::string>> sheets;
    for (const auto& page : pages.Pages()) sheets.push_back(TextsOf(page, "lblName"));
    return sheets;
  }
};

// A three-line address ran into the company line, the company lines into the name.
TEST_P(AddressLabelTest, AddressesOfOneToThreeLinesAndLongCompaniesStayInTheirBands) {
  const char* addresses[] = {"東京都千代田区千代田1-1", "北海道札幌市中央区北一条西１－１ 札幌第一ビルディング南館１５階",
                             "東京都千代田区神田駿河台四丁目六番地　御茶ノ水ソラシティアカデミア十五階　総合受付センター気付"};
  for (int i = 0; i < 3; ++i) {
    Order order;
    order.id = i + 1;
    order.address = addresses[i];
    Insert(order);
  }
  Db().Execute("UPDATE [WK_PRINT] SET [COMPANY] = 'ルパン・エンタープライズ・インターナショナル株式会社'");
  Db().Execute("UPDATE [CHUMON] SET [所属] = '経営企画本部 第一グループ'");
  const auto pages = Run(22);
  ASSERT_EQ(pages.Pages().size(), 1u);
  const auto& page = pages.Pages()[0];
  const std::string third = TextsOf(page, "lblAddress").at(2);
  EXPECT_EQ(std::count(third.begin(), third.end(), '\n'), 2) << "the third label's address takes three lines: " << third;
  engine::TextFitCheck fit;
  for (const auto& cut : fit.Check(page)) ADD_FAILURE() << cut.name << " (" << cut.problem << "): " << cut.text;
  for (const auto& pair : engine::OverlappingTextBoxes(page)) ADD_FAILURE() << pair.first << " overlaps " << pair.second;
}

TEST_P(AddressLabelTest, StartPlaceAndDuplicates) {
  InsertOrders();
  using Sheets = std::vector<std::vector<std::string>>;
  const std::vector<std::string> all = {"山田 太郎", "佐藤 花子", "山田 太郎", "鈴木 一郎", "高橋 三郎",
                                        "田中 次郎", "山田 太郎", "伊藤 四郎", "渡辺 五郎", ""};
  const std::vector<std::string> once = {"山田 太郎", "佐藤 花子", "鈴木 一郎", "高橋 三郎", "田中 次郎",
                                         "伊藤 四郎", "渡辺 五郎", ""};
  const auto blank_then = [](int blanks, std::vector<std::string> names) {
    names.insert(names.begin(), static_cast<std::size_t>(blanks), "");
    return names;
  };
  struct Case {
    int start;
    bool dedupe;
    Sheets sheets;
  };
  const std::vector<std::string> start5 = blank_then(4, all);
  const Case cases[] = {
      {1, false, {all}},
      {1, true, {once}},
      {5, true, {blank_then(4, once)}},
      {5, false, {{start5.begin(), start5.begin() + 12}, {start5.begin() + 12, start5.end()}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.start) + (c.dedupe ? " without duplicates" : " with duplicates"));
    entry::RunValues run;
    run.start_position = c.start;
    run.dedupe = c.dedupe;
    const auto pages = Run(22, run);
    EXPECT_EQ(Names(pages), c.sheets);
    if (c.start == 5 && !c.dedupe) ExpectDump(pages, "label_start5.json");
  }
}

TEST_P(AddressLabelTest, ProspectsComeFromCustomersByTheStagedNumber) {
  InsertCustomer({501, "有限会社見込", "総務課", "見込 一郎", "530-0001", "大阪府大阪市北区梅田３丁目１－３"});
  InsertCustomer({502, "", "", "見込 二郎", "060-0001", "北海道札幌市中央区北一条西２－１", ""});
  InsertCustomer({503, "", "", "他端末", "060-0001", "北海道", "", "WS2"});
  const auto pages = Run(23);
  ASSERT_EQ(pages.Pages().size(), 1u);
  const auto& page = pages.Pages()[0];
  EXPECT_EQ(TextsOf(page, "lblName"), (std::vector<std::string>{"見込 一郎", "見込 二郎"}));
  EXPECT_EQ(TextsOf(page, "lblCompany"), (std::vector<std::string>{"有限会社見込", ""}));
  EXPECT_EQ(TextsOf(page, "lblCompany2"), (std::vector<std::string>{"総務課", ""}));
  EXPECT_EQ(TextsOf(page, "BarCode"), (std::vector<std::string>{"53000013-1-3", "06000012-1"}));
}

// The published bar table of the customer barcode: per character three bars, 1 long, 2 upper
// half, 3 lower half, 4 timing only. Letters are a control character and a digit.
const std::map<char, std::string>& BarTable() {
  static const std::map<char, std::string> table = {
      {'1', "114"}, {'2', "132"}, {'3', "312"}, {'4', "123"}, {'5', "141"}, {'6', "321"}, {'7', "213"},
      {'8', "231"}, {'9', "411"}, {'0', "144"}, {'-', "414"}, {'a', "324"}, {'b', "342"}, {'c', "234"},
      {'d', "432"}, {'e', "243"}, {'f', "423"}, {'g', "441"}, {'h', "111"}};
  return table;
}

// The bars the data must give: start, 20 characters padded with CC4, check character, stop.
std::string ExpectedBars(const std::string& data) {
  std::string codes;
  for (const char c : data) {
    if (c >= 'A' && c <= 'Z') {
      const int n = c - 'A';
      codes += static_cast<char>('a' + n / 10);
      codes += static_cast<char>('0' + n % 10);
    } else {
      codes += c;
    }
  }
  codes.resize(20, 'd');
  int sum = 0;
  for (const char c : codes) sum += c >= '0' && c <= '9' ? c - '0' : c == '-' ? 10 : 11 + (c - 'a');
  const int check = (19 - sum % 19) % 19;
  const char check_code = check <= 9 ? static_cast<char>('0' + check) : check == 10 ? '-' : static_cast<char>('a' + check - 11);
  std::string bars = "13";
  for (const char c : codes) bars += BarTable().at(c);
  return bars + BarTable().at(check_code) + "31";
}

// The bars of the box as drawn: each run of inked columns is a bar; ink in its top and bottom
// quarter tells its kind.
std::string BarsOnPage(const engine::RasterImage& image, int left, int top, int width, int height) {
  const auto inked = [&](int x, int y) { return (image.At(x, y) & 0xFF) < 128; };
  std::string bars;
  bool in_bar = false;
  bool upper = false, lower = false;
  for (int x = left; x <= left + width; ++x) {
    bool column = false;
    for (int y = top; y < top + height; ++y) column = column || inked(x, y);
    if (column) {
      in_bar = true;
      for (int y = top; y < top + height / 5; ++y) upper = upper || inked(x, y);
      for (int y = top + height * 4 / 5; y < top + height; ++y) lower = lower || inked(x, y);
    } else if (in_bar) {
      bars += upper && lower ? '1' : upper ? '2' : lower ? '3' : '4';
      in_bar = upper = lower = false;
    }
  }
  return bars;
}

TEST_P(AddressLabelTest, TheBarsOnTheRenderedSheetFollowTheBarTable) {
  const std::pair<const char*, const char*> examples[] = {
      {"100-0001", "東京都千代田区千代田 一丁目１－１"},
      {"150-0002", "東京都渋谷区渋谷三丁目五番地 Ａ棟３０１"},
      {"530-0001", "大阪府大阪市北区梅田２０２号"}};
  for (int i = 0; i < 3; ++i) {
    Order order;
    order.id = i + 1;
    order.postcode = examples[i].first;
    order.address = examples[i].second;
    Insert(order);
  }
  const auto pages = Run(22);
  ASSERT_EQ(pages.Pages().size(), 1u);
  const auto& page = pages.Pages()[0];
  constexpr double kDpi = 300;
  engine::PageRasterizer rasterizer;
  std::vector<std::string> problems;
  const engine::RasterImage image = rasterizer.Render(page, kDpi, problems);
  EXPECT_TRUE(problems.empty()) << problems.front();
  const auto px = [&](std::int32_t twips) { return static_cast<int>(twips * kDpi / 1440.0); };
  int checked = 0;
  for (const auto& item : page.items) {
    if (item.name != "BarCode") continue;
    const std::string data = MakeCustomerBarcode(examples[checked].first, examples[checked].second);
    SCOPED_TRACE(data);
    ASSERT_FALSE(data.empty());
    const std::string drawn = BarsOnPage(image, px(item.left) - 2, px(item.top) - 2, px(item.width) + 4, px(item.height) + 4);
    EXPECT_EQ(drawn.size(), 67u);
    EXPECT_EQ(drawn, ExpectedBars(data));
    ++checked;
  }
  EXPECT_EQ(checked, 3);
}

LUPIN_INSTANTIATE_ENGINES(AddressLabelTest);

TEST(SeenPairs, NameAndTelephoneTogetherMakeADuplicate) {
  SeenPairs seen;
  EXPECT_FALSE(seen.CheckAndAdd("山田", "0311"));
  EXPECT_FALSE(seen.CheckAndAdd("山田", "0322"));
  EXPECT_FALSE(seen.CheckAndAdd("", ""));
  EXPECT_FALSE(seen.CheckAndAdd("", "")) << "empty pairs are never duplicates";
  EXPECT_TRUE(seen.CheckAndAdd("山田", "0311"));
  EXPECT_FALSE(seen.CheckAndAdd("", "0311"));
  EXPECT_TRUE(seen.CheckAndAdd("", "0311"));
}

}  // namespace
}  // namespace lupin::reports::testing
