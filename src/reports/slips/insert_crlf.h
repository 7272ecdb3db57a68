#pragma once
// Where a name or an address breaks on a preprinted form. The boxes are fixed and the order
// records hold each text unbroken, so the breaks are chosen here: an address behind the prefecture
// and municipality, before the house number or at a blank; a name behind the company word. Every
// width is counted in Shift-JIS bytes.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/page_model.h"
#include "engine/text_measure.h"

namespace lupin::reports {

inline constexpr std::string_view kCrLf = "\r\n";

// Splits at CR LF, and with more than one line joins the non-empty lines again.
void RemoveBlankLines(std::string& text);

// HardBreak(text, n): one CR LF at byte n, never inside a double-byte character.
std::string HardBreak(std::string_view text, int n);

// The width values one slip shares between its measuring call and its breaking call. A slip
// calls the pair once per text it prints: LineBytes = FitLineBytes(...), then InsertCrLfAddress
// or InsertCrLfName on the same text.
class InsertCrLf {
 public:
  // Bytes that one line of the current box holds; set by the caller from FitLineBytes.
  std::int16_t LineBytes = 0;
  // Shortest first line a word break may leave; set by the breaking calls from LineBytes.
  std::int16_t MinLineBytes = 0;

  // The measuring font, as the hidden measuring label of the selection form held it.
  void SetMeasureFont(const engine::FontSpec& font) { measure_font_ = font; }

  // Bytes of this very text that fit in a box of width_twips in font; 0 when the text is empty
  // once blanks and line breaks are gone. Does not touch LineBytes.
  std::int16_t FitLineBytes(engine::TextMeasurer& measurer, const engine::FontSpec& font,
                            std::int32_t width_twips, std::string_view text);

  std::string InsertCrLfAddress(std::string_view text);
  std::string InsertCrLfName(std::string_view text);

  // At most one break, behind the municipality or forced before the house number.
  std::string SplitAtCity(std::string_view text) const;
  // Each pass splits every line at most once; the caller repeats until the count is stable.
  void SplitAtSpace(std::vector<std::string>& lines) const;
  void SplitAtDigit(std::vector<std::string>& lines) const;
  void SplitLongLine(std::vector<std::string>& lines) const;
  void SplitNameLines(std::vector<std::string>& lines) const;
  // At most one break, behind the company word or at the width.
  std::string SplitAtCompanyWord(std::string_view text) const;

  // Company above, department below: when either is wider than the box, both flow over the two
  // lines by bytes, without regard to words.
  void FitCompanyLines(std::string& company, std::string& department, engine::TextMeasurer& measurer,
                       const engine::FontSpec& font, std::int32_t width_twips);

 private:
  void SetMinLineBytes();

  engine::FontSpec measure_font_;
};

// The place names in which 市, 郡 or 町 stands inside the name, in the order they are tried.
const std::vector<std::string_view>& CityExceptions();

}  // namespace lupin::reports
