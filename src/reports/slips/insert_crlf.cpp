#include "reports/slips/insert_crlf.h"

#include <cmath>

#include "common/text.h"
#include "reports/slips/insert_crlf_chars.h"

namespace lupin::reports {

namespace {

std::int16_t ToInt16(double value) {
  const double rounded = std::nearbyint(value);  // halves to even, as the runtime's CInt
  if (rounded < -32768.0) return -32768;
  if (rounded > 32767.0) return 32767;
  return static_cast<std::int16_t>(rounded);
}

std::string WithoutCrLf(std::string text) {
  std::size_t at = 0;
  while ((at = text.find("\r\n", at)) != std::string::npos) text.erase(at, 2);
  return text;
}

// Below two bytes no line holds a double-byte character, and the splitters would only ever cut
// off empty lines; such a box gets the text unbroken.
constexpr int kNarrowestBreakableLine = 2;

}  // namespace

void RemoveBlankLines(std::string& text) {
  const std::vector<std::string> lines = crlf::SplitLines(text);
  if (lines.size() == 1) return;
  text = crlf::JoinNonEmpty(lines);
}

std::int16_t InsertCrLf::FitLineBytes(engine::TextMeasurer& measurer, const engine::FontSpec& font,
                                      std::int32_t width_twips, std::string_view text) {
  SetMeasureFont(font);
  // Blanks of either width go, so that the average is taken over the printing characters.
  const std::string caption = WithoutCrLf(text::TextReplace(text, " ", ""));
  if (caption.empty()) return 0;
  const double label_width = measurer.WidthTwips(caption, measure_font_);
  const double twips_per_byte = std::nearbyint(label_width / text::ByteLen(caption));
  // A caption that measures next to nothing gives no usable average.
  if (twips_per_byte <= 0) return 0;
  return ToInt16(width_twips / twips_per_byte - 2);
}

void InsertCrLf::SetMinLineBytes() {
  MinLineBytes = static_cast<std::int16_t>(std::floor(LineBytes * 0.6));
}

std::string InsertCrLf::InsertCrLfAddress(std::string_view text) {
  std::string address(text);
  RemoveBlankLines(address);
  if (address.empty() || text::ByteLen(address) <= LineBytes) return address;
  if (LineBytes < kNarrowestBreakableLine) return address;
  SetMinLineBytes();

  std::vector<std::string> lines = crlf::SplitLines(SplitAtCity(address));
  SplitAtSpace(lines);
  const std::size_t upper = lines.size();
  SplitAtDigit(lines);
  SplitAtSpace(lines);
  if (lines.size() != upper) SplitLongLine(lines);
  std::size_t before = 0;
  do {
    before = lines.size();
    SplitLongLine(lines);
  } while (lines.size() != before);
  return crlf::JoinNonEmpty(lines);
}

std::string InsertCrLf::InsertCrLfName(std::string_view text) {
  std::string name(text);
  RemoveBlankLines(name);
  if (text::ByteLen(name) <= LineBytes) return name;
  if (LineBytes < kNarrowestBreakableLine) return name;
  SetMinLineBytes();

  std::vector<std::string> lines = crlf::SplitLines(SplitAtCompanyWord(name));
  std::size_t before = 0;
  do {
    before = lines.size();
    SplitNameLines(lines);
  } while (lines.size() != before);

  std::string out;
  for (const std::string& line : lines) {
    if (line.empty()) continue;
    if (!out.empty()) out += kCrLf;
    if (line.starts_with(' ')) {
      out.append(line, 1);
    } else if (line.starts_with("\u3000")) {
      out.append(line, 3);
    } else {
      out += line;
    }
  }
  return out;
}

void InsertCrLf::FitCompanyLines(std::string& company, std::string& department, engine::TextMeasurer& measurer,
                                 const engine::FontSpec& font, std::int32_t width_twips) {
  const int w = FitLineBytes(measurer, font, width_twips, company + department);
  if (text::ByteLen(department) <= w && text::ByteLen(company) <= w) return;
  const std::string joined = company + department;
  if (text::ByteClass(joined, w) == 2) {
    company = text::ByteLeft(joined, w - 1);
    department = text::ByteMid(joined, w);
  } else {
    company = text::ByteLeft(joined, w);
    department = text::ByteMid(joined, w + 1);
  }
}

}  // namespace lupin::reports
