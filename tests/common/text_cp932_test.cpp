#include <gtest/gtest.h>

#include <string>

#include "common/text.h"

namespace lupin::text {
namespace {

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

class ToCp932Table : public ::testing::TestWithParam<EncodeCase> {};

TEST_P(ToCp932Table, EncodesWithTheWindowsTable) {
  EXPECT_EQ(Hex(ToCp932(GetParam().utf8).bytes), GetParam().hex) << GetParam().utf8;
}

INSTANTIATE_TEST_SUITE_P(
    Cp932, ToCp932Table,
    ::testing::Values(EncodeCase{"～", "8160"}, EncodeCase{"－", "817C"}, EncodeCase{"①", "8740"},
                      EncodeCase{"㈱", "878A"}, EncodeCase{"髙", "FBFC"}, EncodeCase{"﨑", "FAB1"},
                      // JIS forms that Japanese text carries in from other systems
                      EncodeCase{"\u301C", "8160"}, EncodeCase{"\u2212", "817C"}, EncodeCase{"¬", "81CA"},
                      EncodeCase{"ｱﾞ", "B1DE"}, EncodeCase{"A\\~", "415C7E"}, EncodeCase{"東京", "938C8B9E"},
                      // outside the code page: one "?" each
                      EncodeCase{"€", "3F"}, EncodeCase{"😀x", "3F78"}, EncodeCase{"\xFF", "3F"}));

TEST(Cp932, RoundTripKeepsEveryCharacterOfTheCodePage) {
  const std::string samples[] = {"東京都千代田区丸の内１－２－３", "ｶﾌﾞｼｷｶﾞｲｼｬ ｱｲｳ", "①②⑳ⅠⅩ㈱㈲№℡", "髙橋 﨑山 德永",
                                 "～∥－￠￡￢", "abc XYZ 0123 !\"#$%&'()*+,-./"};
  for (const std::string& s : samples) EXPECT_EQ(FromCp932(ToCp932(s).bytes), s);
}

struct DecodeCase {
  std::string bytes;
  std::string utf8;
};

class FromCp932Table : public ::testing::TestWithParam<DecodeCase> {};

TEST_P(FromCp932Table, InvalidBytesBecomeReplacementCharacters) {
  EXPECT_EQ(FromCp932(GetParam().bytes), GetParam().utf8);
}

INSTANTIATE_TEST_SUITE_P(
    Cp932, FromCp932Table,
    ::testing::Values(DecodeCase{"\x81\x60\x87\x40", "～①"}, DecodeCase{"\xB1\xDE", "ｱﾞ"},
                      DecodeCase{"\x80", "\uFFFD"}, DecodeCase{"\xFF", "\uFFFD"},
                      DecodeCase{"a\x82", "a\uFFFD"},             // lead byte at the very end
                      DecodeCase{"\x82 b", "\uFFFD b"},           // lead byte before a non-trail byte
                      DecodeCase{"\x85\x40z", "\uFFFDz"},         // well-formed pair the table lacks
                      DecodeCase{std::string("\0x", 2), std::string("\0x", 2)}));

TEST(Cp932, ByteLenCountsMissingCharactersAsOneByte) {
  EXPECT_EQ(ByteLen("😀"), 1);
  EXPECT_EQ(ByteLen("€€"), 2);
  EXPECT_EQ(static_cast<int>(ToCp932("😀€").bytes.size()), ByteLen("😀€"));
}

}  // namespace
}  // namespace lupin::text
