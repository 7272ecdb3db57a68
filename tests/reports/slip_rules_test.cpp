// The pure rules of the slips: the 13 telephone boxes, account and amount boxes, and on the Yamato
// slip the time-of-day rings for the forms operators type, the item column, postcode boxes, the
// report field split, the date box and the shop's addressee flag.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "common/text.h"
#include "reports/slips/slip_item_block.h"
#include "reports/slips/yamato_text.h"
#include "reports/slips/slip_boxes.h"
#include "reports/slips/yamato_slip.h"
#include "reports/slips/yupak_slip.h"

namespace lupin::reports {
namespace {

struct TimeCase {
  const char* typed;
  int mark;
};

TEST(YamatoTimeMark, EveryFormOperatorsType) {
  const TimeCase cases[] = {
      {"", 0}, {"　午前中　", 1}, {"指定無し", 0}, {"12-14", 2}, {"20-21", 6}, {"8-12", 1}, {"１４～１６", 3},
      {"14時～16時", 3}, {"０９：００－１２：００", 1},
      // Bands this form has no box for
      {"19-21", 0}, {"1416", 0},
      // Morning and afternoon prefixes, either case and width, the prefix repeated or not
      {"am9～am12", 1}, {"AM-12", 1}, {"AM10-12", 0}, {"ＰＭ２－４", 3}, {"PM2-PM4", 3}, {"PM8-9", 6}, {"PM12-2", 0},
  };
  const TimeSlotTable slots = YamatoSpec("rptYamatoNew").time_slots;
  for (const auto& c : cases)
    EXPECT_EQ(slots.MarkFor(c.typed), c.mark == 0 ? "" : "shpDelivery" + std::to_string(c.mark)) << "'" << c.typed << "'";
}

std::string Blanks(int n) { return std::string(static_cast<std::size_t>(n), ' '); }

struct ItemCase {
  const char* label;
  std::vector<ItemLine> lines;
  std::string block;
};

TEST(YamatoItemBlock, LinesQuantitiesAndOverflow) {
  const std::string tea = "緑茶";                    // 4 bytes
  const std::string astride = std::string(24, 'x') + "茶";  // the kanji's lead byte is byte 25
  const std::string inside = std::string(23, 'x') + "茶葉";   // byte 25 is 茶's trail byte
  const ItemCase cases[] = {
      {"one whole quantity", {{tea, 2}}, tea + Blanks(21) + Blanks(7) + "2\r\n"},
      {"a fraction anywhere gives every line two decimals",
       {{"A", 1}, {"B", 2.5}},
       "A" + Blanks(24) + Blanks(4) + "1.00\r\n" + "B" + Blanks(24) + Blanks(4) + "2.50\r\n"},
      {"double-byte character astride the column moves to the quantity",
       {{astride, 3}},
       std::string(24, 'x') + Blanks(8) + "3\r\n"},
      {"double-byte character inside the column stays",
       {{inside, 3}},
       std::string(23, 'x') + "茶" + Blanks(7) + "3\r\n"},
      {"long plain name is cut at 25 bytes", {{std::string(30, 'y'), 12}}, std::string(25, 'y') + Blanks(6) + "12\r\n"},
  };
  for (const auto& c : cases) EXPECT_EQ(ItemBlock(c.lines), c.block) << c.label;
}

struct OverflowCase {
  int goods;
  const char* tail;  // what follows the last printed line
};

TEST(YamatoItemBlock, FiveLinesThenACountOfTheRest) {
  const OverflowCase cases[] = {{5, ""}, {6, "他1商品"}, {15, "他10商品"}};
  for (const auto& c : cases) {
    std::vector<ItemLine> lines;
    for (int i = 0; i < c.goods; ++i) lines.push_back({"品" + std::to_string(i), 1.0 + i});
    const std::string block = ItemBlock(lines);
    const std::size_t last = block.rfind("\r\n");
    ASSERT_NE(last, std::string::npos);
    EXPECT_EQ(block.substr(last + 2), c.tail) << c.goods;
    // Fixed pitch: every printed line is 33 bytes.
    int printed = 0;
    for (std::size_t from = 0, at; (at = block.find("\r\n", from)) != std::string::npos; from = at + 2) {
      EXPECT_EQ(text::ByteLen(block.substr(from, at - from)), 33) << c.goods;
      ++printed;
    }
    EXPECT_EQ(printed, std::min(c.goods, kItemBlockLines));
  }
}

TEST(YamatoText, PostcodeBoxText) {
  const std::pair<const char*, const char*> cases[] = {
      {"123-4567", "1234567"},
      {"１２３－４５６７", "１２３４５６７"},
      {"123", "123"},
  };
  for (const auto& [postcode, text] : cases) EXPECT_EQ(PostcodeBoxText(postcode), text) << postcode;
}

struct MemoCase {
  const char* text;
  const char* memo2;
  const char* memo3;
};

TEST(YamatoText, SecondFieldSplitsAtItsFirstHyphen) {
  const MemoCase cases[] = {
      {"031234567801-01", "031234567801", "01"}, {"0312345678", "", ""}, {"-01", "", "-"},
      {"031234567801-", "031234567801-", ""},     {"a-b-c", "a", "b-c"},
  };
  for (const auto& c : cases) {
    const MemoPieces pieces = SplitMemo2(c.text);
    EXPECT_EQ(pieces.memo2, c.memo2) << c.text;
    EXPECT_EQ(pieces.memo3, c.memo3) << c.text;
  }
}

TEST(YamatoText, DeliveryDateAndAtena) {
  const std::pair<const char*, const char*> dates[] = {
      {"2024/6/5", "06   05"}, {"未定", ""}, {"20240605", ""}};
  for (const auto& [typed, shown] : dates) EXPECT_EQ(DeliveryDateText(typed), shown) << typed;

  const std::pair<const char*, int> flags[] = {{"", 0}, {"255", 255}, {"256", 0}, {"-1", 0}, {"2.5", 2}, {"3.5", 4}};
  for (const auto& [stored, byte] : flags) EXPECT_EQ(AtenaByte(stored), byte) << stored;
}

}  // namespace
}  // namespace lupin::reports

namespace lupin::reports {
namespace {

TEST(SlipBoxes, TelephoneLayouts) {
  const struct {
    const char* tel;
    const char* boxes;  // one character a box, '.' for an empty one
  } cases[] = {
      {"03-1234-5678", "03...12345678"},
      // The exchange number is right-aligned so the subscriber number keeps its columns.
      {"090-123-4567", "090...1234567"},
      {"0120-12-3456", "0120...123456"},
      {"0312345678", "...0312345678"},
      // A subscriber number of three digits is not the form's layout: plain, right-aligned.
      {"03-123-456", ".....03123456"},
      {"012345-1-2345", "..01234512345"},
      {"", "............."},
  };
  for (const auto& c : cases) EXPECT_EQ(text::TextReplace(TelBoxText(c.tel), " ", "."), c.boxes) << c.tel;
}

TEST(SlipBoxes, AccountDigitsAndAmounts) {
  const struct {
    const char* account;
    int boxes;
    const char* shown;
  } accounts[] = {
      {"00120-3-456", 13, "001203....456"},
      {"0012034567890", 13, "0012034567890"},
      {"00120-3-456", 14, "001203.....456"},
  };
  for (const auto& c : accounts) EXPECT_EQ(text::TextReplace(AccountBoxText(c.account, c.boxes), " ", "."), c.shown) << c.account;
  EXPECT_EQ(PostcodeDigits("５３０－０００１"), "5300001");
}

}  // namespace
}  // namespace lupin::reports
