// The line breaking over every address of the demo data, measured in the fonts and boxes of the
// Yamato slip: nothing is lost, every line fits, the prefecture is never cut.
#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "common/text.h"
#include "db/connection.h"
#include "engine/measure.h"
#include "demo/demo_data.h"
#include "demo/words.h"
#include "entry/schema.h"
#include "reports/slips/insert_crlf.h"

namespace lupin::reports {
namespace {

struct Box {
  const char* control;
  const char* font;
  double size;
  int width;
};

// The address boxes of the Yamato slip, recipient and sender.
constexpr Box kAddressBoxes[] = {{"lblADDRESS", "ＭＳ 明朝", 11.5, 3405}, {"lblJJUSYO", "ＭＳ 明朝", 11.5, 3465}};

engine::FontSpec FontOf(const Box& box) {
  engine::FontSpec font;
  font.name = box.font;
  font.size = box.size;
  return font;
}

std::vector<std::string> Column(db::Connection& connection, const std::string& sql) {
  std::vector<std::string> values;
  std::set<std::string> seen;
  for (auto rs = connection.Open(sql); !rs.Eof(); rs.MoveNext()) {
    const std::string value = rs.Field(0).Text();
    if (!value.empty() && seen.insert(value).second) values.push_back(value);
  }
  return values;
}

class DemoTexts : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    auto connection = db::OpenConnection("sqlite::memory:");
    entry::CreateSchema(*connection);
    demo::DemoOptions options;
    options.orders = 600;
    demo::FillDemoData(*connection, options);
    for (const char* sql : {"SELECT [住所] FROM [CHUMON]", "SELECT [贈答先住所] FROM [CHUMON]",
                            "SELECT [ショップ住所] FROM [CHUMON]", "SELECT [住所] FROM [CUSTOMER]"}) {
      for (std::string& address : Column(*connection, sql)) addresses_->push_back(std::move(address));
    }
  }
  static void TearDownTestSuite() { addresses_->clear(); }

  static std::vector<std::string>* addresses_;
  engine::PangoTextMeasurer measurer_;
};

std::vector<std::string>* DemoTexts::addresses_ = new std::vector<std::string>;

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t from = 0;
  while (true) {
    const std::size_t at = text.find("\r\n", from);
    lines.push_back(text.substr(from, at == std::string::npos ? std::string::npos : at - from));
    if (at == std::string::npos) return lines;
    from = at + 2;
  }
}

// The printing characters: blanks may become line breaks, line breaks may come and go.
std::u32string Printing(const std::string& text) {
  std::u32string out;
  for (char32_t c : text::ToU32(text)) {
    if (c != U' ' && c != U'　' && c != U'\r' && c != U'\n') out.push_back(c);
  }
  return out;
}

bool StartsUnbreakable(const std::string& line) {
  const std::u32string narrow = text::ToU32(text::ToNarrow(line));
  if (narrow.empty()) return false;
  const char32_t c = narrow.front();
  return (c >= U'0' && c <= U'9') || (c >= U'A' && c <= U'Z') || (c >= U'a' && c <= U'z');
}

TEST_F(DemoTexts, AddressesKeepEveryCharacterAndFitTheBoxes) {
  ASSERT_GT(addresses_->size(), 200u);
  for (const Box& box : kAddressBoxes) {
    int broken = 0;
    for (const std::string& address : *addresses_) {
      InsertCrLf crlf;
      crlf.LineBytes = crlf.FitLineBytes(measurer_, FontOf(box), box.width, address);
      // A fixed-pitch face of 11.5 points: 230 twips a full-width character, 115 a byte.
      ASSERT_EQ(crlf.LineBytes, static_cast<int>(std::nearbyint(box.width / 115.0 - 2))) << address;
      const std::string result = crlf.InsertCrLfAddress(address);
      SCOPED_TRACE(std::string(box.control) + ": " + address + " → " + result);
      EXPECT_EQ(Printing(result), Printing(address));
      const std::vector<std::string> lines = Lines(result);
      if (lines.size() > 1) ++broken;
      for (const std::string& line : lines) {
        EXPECT_FALSE(line.empty());
        if (text::ByteLen(line) > crlf.LineBytes) {
          EXPECT_TRUE(StartsUnbreakable(line)) << line;
        }
      }
      for (const auto& prefecture : demo::kPrefectures) {
        if (address.starts_with(prefecture.name)) {
          EXPECT_TRUE(lines.front().starts_with(prefecture.name));
        }
      }
    }
    // Most demo addresses are longer than one line of the box.
    EXPECT_GT(broken, static_cast<int>(addresses_->size()) / 4) << box.control;
  }
}

}  // namespace
}  // namespace lupin::reports
