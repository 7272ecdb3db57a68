#include "common/width.h"

#include <array>

namespace lupin::text {

namespace {

constexpr char32_t kHalfVoiced = 0xFF9E;      // ﾞ
constexpr char32_t kHalfSemiVoiced = 0xFF9F;  // ﾟ

// Full-width form of each half-width katakana and punctuation mark U+FF61..U+FF9F.
constexpr std::array<char32_t, 0x3F> kWideKana = {
    0x3002, 0x300C, 0x300D, 0x3001, 0x30FB, 0x30F2, 0x30A1, 0x30A3, 0x30A5, 0x30A7, 0x30A9,
    0x30E3, 0x30E5, 0x30E7, 0x30C3, 0x30FC, 0x30A2, 0x30A4, 0x30A6, 0x30A8, 0x30AA, 0x30AB,
    0x30AD, 0x30AF, 0x30B1, 0x30B3, 0x30B5, 0x30B7, 0x30B9, 0x30BB, 0x30BD, 0x30BF, 0x30C1,
    0x30C4, 0x30C6, 0x30C8, 0x30CA, 0x30CB, 0x30CC, 0x30CD, 0x30CE, 0x30CF, 0x30D2, 0x30D5,
    0x30D8, 0x30DB, 0x30DE, 0x30DF, 0x30E0, 0x30E1, 0x30E2, 0x30E4, 0x30E6, 0x30E8, 0x30E9,
    0x30EA, 0x30EB, 0x30EC, 0x30ED, 0x30EF, 0x30F3, 0x309B, 0x309C};

char32_t WideKana(char32_t half) { return kWideKana[half - 0xFF61]; }

// ｶ..ﾄ, ﾊ..ﾎ take the voiced mark (ｳ as well, giving ヴ); ﾊ..ﾎ also the semi-voiced one.
bool TakesVoiced(char32_t half) { return (half >= 0xFF76 && half <= 0xFF84) || (half >= 0xFF8A && half <= 0xFF8E) || half == 0xFF73; }
bool TakesSemiVoiced(char32_t half) { return half >= 0xFF8A && half <= 0xFF8E; }

char32_t ComposedKana(char32_t half, char32_t mark) {
  if (mark == kHalfVoiced && TakesVoiced(half)) return half == 0xFF73 ? 0x30F4 : WideKana(half) + 1;
  if (mark == kHalfSemiVoiced && TakesSemiVoiced(half)) return WideKana(half) + 2;
  return 0;
}

// Half-width form of the full-width katakana block U+3000..U+30FF: base in the low half, a mark in
// the high half; 0 when the character has no half-width form.
struct NarrowTable {
  std::array<char32_t, 0x100> base{};
  std::array<char32_t, 0x100> mark{};
  NarrowTable() {
    for (char32_t half = 0xFF61; half <= 0xFF9F; ++half) {
      const char32_t wide = WideKana(half);
      base[wide - 0x3000] = half;
      if (TakesVoiced(half)) {
        const char32_t voiced = ComposedKana(half, kHalfVoiced);
        base[voiced - 0x3000] = half;
        mark[voiced - 0x3000] = kHalfVoiced;
      }
      if (TakesSemiVoiced(half)) {
        const char32_t semi = ComposedKana(half, kHalfSemiVoiced);
        base[semi - 0x3000] = half;
        mark[semi - 0x3000] = kHalfSemiVoiced;
      }
    }
    base[0] = U' ';
  }
};

const NarrowTable& Narrow() {
  static const NarrowTable table;
  return table;
}

}  // namespace

void AppendNarrow(std::u32string& out, char32_t code_point) {
  if (code_point >= 0xFF01 && code_point <= 0xFF5E) {
    out.push_back(code_point - 0xFF01 + 0x21);
    return;
  }
  if (code_point >= 0x3000 && code_point <= 0x30FF) {
    const std::size_t index = code_point - 0x3000;
    const NarrowTable& table = Narrow();
    if (table.base[index] != 0) {
      out.push_back(table.base[index]);
      if (table.mark[index] != 0) out.push_back(table.mark[index]);
      return;
    }
    // The JIS wave dash is the Windows ～.
    out.push_back(code_point == 0x301C ? U'~' : code_point);
    return;
  }
  switch (code_point) {
    case 0x2019: out.push_back(U'\''); return;  // ’ is what widening an apostrophe gives
    case 0x201D: out.push_back(U'"'); return;
    case 0x2212: out.push_back(U'-'); return;   // the JIS minus is the Windows －
    case 0xFFE5: out.push_back(0x00A5); return;  // ￥
    default: out.push_back(code_point); return;
  }
}

char32_t TakeWide(std::u32string_view text, std::size_t& pos) {
  const char32_t c = text[pos++];
  if (c >= 0xFF61 && c <= 0xFF9F) {
    if (pos < text.size()) {
      if (const char32_t composed = ComposedKana(c, text[pos]); composed != 0) {
        ++pos;
        return composed;
      }
    }
    return WideKana(c);
  }
  if (c == U' ') return 0x3000;
  if (c == U'\'') return 0x2019;
  if (c == U'"') return 0x201D;
  if (c > 0x20 && c < 0x7F) return c - 0x21 + 0xFF01;
  if (c == 0x00A5) return 0xFFE5;
  return c;
}

char32_t LowerOf(char32_t c) {
  if (c >= U'A' && c <= U'Z') return c + 0x20;
  if (c >= 0xFF21 && c <= 0xFF3A) return c + 0x20;
  return c;
}

char32_t UpperOf(char32_t c) {
  if (c >= U'a' && c <= U'z') return c - 0x20;
  if (c >= 0xFF41 && c <= 0xFF5A) return c - 0x20;
  return c;
}

}  // namespace lupin::text
