#pragma once
// Numbers written in kanji, as addresses write them ("三丁目", "二十一番地"), read as digits.
#include <string>
#include <string_view>

namespace lupin::money {

// Replaces the formal numerals (壱, 弐, 拾, 萬, 廿 …) in place by the plain ones (一, 二, 十, 万, 二十 …).
void NormalizeDaiji(std::string& text);

// The digits of a kanji number: "二十一" → "21", "壱萬弐千" → "12000"; an empty number → "0".
std::string KansujiToDigits(std::string_view text);

// Whether text[pos] belongs to a kanji number, as an address is read: backwards from the word the
// number stands before, each character with the one before it as its company. "〇" and "０" count
// only when their company counts, by the same rule, so a zero sign inside a name is no number.
bool IsKansujiChar(std::u32string_view text, std::size_t pos);

// Gives a number written digit by digit with "〇" or "０" its units in place ("二〇三" → "二百三",
// "二〇二四" → "二千二十四", "弐〇参" → "二百三"), so that KansujiToDigits reads it as the same number.
void FillPositional(std::string& text);

}  // namespace lupin::money
