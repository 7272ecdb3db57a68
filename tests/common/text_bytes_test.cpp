#include <gtest/gtest.h>

#include <string>

#include "common/text.h"

namespace lupin::text {
namespace {

struct LenCase {
  const char* text;
  int bytes;
};

// Characters outside the code page count one byte, as the "?" they are written as.
TEST(ByteLen, CountsShiftJisBytes) {
  const LenCase cases[] = {
      {"", 0}, {"ｶﾞ", 2}, {"東京都港区1-2-3 ﾋﾞﾙ4F", 10 + 5 + 1 + 3 + 2}, {"①㈱", 4}, {"😀", 1}, {"€€", 2}, {"😀€", 2},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ByteLen(c.text), c.bytes) << c.text;
    EXPECT_EQ(static_cast<int>(ToCp932(c.text).bytes.size()), c.bytes) << c.text;
  }
}

struct LeftCase {
  const char* text;
  int count;
  const char* expected;
};

TEST(ByteLeft, NeverCutsADoubleByteCharacter) {
  const LeftCase cases[] = {
      {"東京都abc", 5, "東京"}, {"aあb", 2, "a"}, {"東京", -3, ""},
      {"\u301Cx", 3, "～x"},  // what comes back is what CP932 holds
      {"😀ab", 2, "?a"},
  };
  for (const auto& c : cases) EXPECT_EQ(ByteLeft(c.text, c.count), c.expected) << c.text << " " << c.count;
}

struct MidCase {
  const char* text;
  int start;
  int count;
  const char* expected;
};

TEST(ByteMid, TakesBytesFromAOneBasedStart) {
  const MidCase cases[] = {
      {"東京都港区", 3, 4, "京都"}, {"東京都港区", 7, 0, "港区"}, {"東京都港区", 11, 0, ""}, {"ｱｲｳｴ", 2, 2, "ｲｳ"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ByteMid(c.text, c.start, c.count), c.expected) << c.text << " " << c.start << " " << c.count;
  }
}

TEST(ByteMid, LeftAndMidTogetherGiveBackTheText) {
  const char* text = "東京都千代田区丸の内1-2-3ﾋﾞﾙ";
  for (int n = 1; n < ByteLen(text); ++n) {
    const std::string left = ByteLeft(text, n);
    EXPECT_EQ(left + ByteMid(text, ByteLen(left) + 1), text) << n;
  }
}

struct ClassCase {
  const char* text;
  int position;
  int expected;
};

TEST(ByteClass, FollowsTheClassTable) {
  const ClassCase cases[] = {
      {"", 1, 0},    {"abc", 0, 4},     {"abc", 4, 0},  // empty, position 0, past the end
      {"A", 1, 0},   {"アA", 2, 3},     {"aA", 2, 0},   // 64..126 after a lead byte, else 0
      {"\uE000", 1, 3}, {"aｱ", 2, 0},   {"東京", 3, 2}, {"東京", 4, 3}, {"\x7F", 1, 4},
  };
  for (const auto& c : cases) EXPECT_EQ(ByteClass(c.text, c.position), c.expected) << c.text << " @" << c.position;
}

struct InStrCase {
  const char* text;
  const char* find;
  int start;
  int compare;
  int expected;
};

TEST(ByteInStr, ReportsTheBytePositionOfTheFirstMatch) {
  const InStrCase cases[] = {
      {"東京都　港区", " ", 1, 1, 7}, {"東京都　港区", " ", 1, 0, 0},
      {" abc", " ", 1, 0, 0},  // a match at the first character reports 0
      {"ab ab", "ab", 3, 0, 0},  // start has no effect: the walk begins at character 1
      {"株式会社ＡＢＣ", "abc", 1, 1, 9},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ByteInStr(c.text, c.find, c.start, c.compare), c.expected) << c.text << " / " << c.find;
  }
}

struct LatinCase {
  const char* text;
  int mode;
  bool expected;
};

TEST(IsLatinText, AcceptsLettersOnlyInTheirMode) {
  const LatinCase cases[] = {
      {"", 7, true}, {"ａｂｃ", 0, false}, {"ａｂｃ", 1, true}, {"ab1", 1, false}, {"abc", 2, false}, {"a b", 0, false},
  };
  for (const auto& c : cases) EXPECT_EQ(IsLatinText(c.text, c.mode), c.expected) << c.text << " mode " << c.mode;
}

std::string Hex(const std::string& bytes) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string out;
  for (unsigned char c : bytes) out += {kDigits[c >> 4], kDigits[c & 15]};
  return out;
}

struct EncodeCase {
  const char* utf8;
  const char* hex;
};

TEST(Cp932, EncodesWithTheWindowsTable) {
  const EncodeCase cases[] = {
      {"～", "8160"}, {"①", "8740"}, {"髙", "FBFC"},
      // JIS forms that Japanese text carries in from other systems
      {"\u301C", "8160"}, {"\u2212", "817C"}, {"¬", "81CA"}, {"A\\~", "415C7E"},
      // outside the code page: one "?" each
      {"😀x", "3F78"}, {"\xFF", "3F"},
  };
  for (const auto& c : cases) EXPECT_EQ(Hex(ToCp932(c.utf8).bytes), c.hex) << c.utf8;
}

TEST(Cp932, RoundTripKeepsEveryCharacterOfTheCodePage) {
  const std::string samples[] = {"東京都千代田区丸の内１－２－３", "ｶﾌﾞｼｷｶﾞｲｼｬ ｱｲｳ", "①②⑳ⅠⅩ㈱㈲№℡", "髙橋 﨑山 德永",
                                 "～∥－￠￡￢", "abc XYZ 0123 !\"#$%&'()*+,-./"};
  for (const std::string& s : samples) EXPECT_EQ(FromCp932(ToCp932(s).bytes), s);
}

struct DecodeCase {
  std::string bytes;
  std::string utf8;
};

TEST(Cp932, InvalidBytesBecomeReplacementCharacters) {
  const DecodeCase cases[] = {
      {"\xB1\xDE", "ｱﾞ"}, {"\x80", "\uFFFD"},
      {"a\x82", "a\uFFFD"},      // lead byte at the very end
      {"\x82 b", "\uFFFD b"},    // lead byte before a non-trail byte
      {"\x85\x40z", "\uFFFDz"},  // well-formed pair the table lacks
      {std::string("\0x", 2), std::string("\0x", 2)},
  };
  for (const auto& c : cases) EXPECT_EQ(FromCp932(c.bytes), c.utf8) << Hex(c.bytes);
}

}  // namespace
}  // namespace lupin::text
