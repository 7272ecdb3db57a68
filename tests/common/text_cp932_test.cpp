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

TEST(Cp932, ByteLenCountsMissingCharactersAsOneByte) {
  EXPECT_EQ(ByteLen("😀"), 1);
  EXPECT_EQ(ByteLen("€€"), 2);
  EXPECT_EQ(static_cast<int>(ToCp932("😀€").bytes.size()), ByteLen("😀€"));
}

}  // namespace
}  // namespace lupin::text
