#include "engine/text_wrap.h"

namespace lupin::engine {

namespace {

// Length of the UTF-8 sequence that starts with this byte; a stray byte counts as one.
std::size_t SequenceLength(unsigned char lead) {
  if (lead >= 0xF0) return 4;
  if (lead >= 0xE0) return 3;
  if (lead >= 0xC0) return 2;
  return 1;
}

// Half-width: ASCII and the half-width katakana block (U+FF61..U+FF9F, EF BD A1..EF BE 9F).
bool IsHalfWidth(std::string_view character) {
  const auto* bytes = reinterpret_cast<const unsigned char*>(character.data());
  if (character.size() == 1) return true;
  if (character.size() == 3 && bytes[0] == 0xEF) {
    const unsigned code = ((bytes[1] & 0x3Fu) << 6) | (bytes[2] & 0x3Fu);
    const unsigned full = 0xF000u | code;
    return full >= 0xFF61 && full <= 0xFF9F;
  }
  return false;
}

void Wrap(std::string_view line, const FontSpec& font, std::int32_t width, TextMeasurer& measurer,
          std::vector<std::string>& lines) {
  std::string current;
  std::size_t at = 0;
  while (at < line.size()) {
    std::size_t length = SequenceLength(static_cast<unsigned char>(line[at]));
    if (at + length > line.size()) length = line.size() - at;
    std::string candidate = current;
    candidate.append(line.substr(at, length));
    if (!current.empty() && measurer.WidthTwips(candidate, font) > width) {
      lines.push_back(std::move(current));
      current.assign(line.substr(at, length));
    } else {
      current = std::move(candidate);
    }
    at += length;
  }
  lines.push_back(std::move(current));
}

}  // namespace

double FallbackMeasurer::WidthTwips(std::string_view text, const FontSpec& font) {
  const double em = font.size * 20.0;
  double width = 0;
  std::size_t at = 0;
  while (at < text.size()) {
    std::size_t length = SequenceLength(static_cast<unsigned char>(text[at]));
    if (at + length > text.size()) length = text.size() - at;
    width += IsHalfWidth(text.substr(at, length)) ? em / 2 : em;
    at += length;
  }
  return width;
}

std::vector<std::string> WrapText(std::string_view text, const FontSpec& font, std::int32_t width,
                                  bool word_wrap, TextMeasurer* measurer) {
  FallbackMeasurer fallback;
  TextMeasurer& used = measurer != nullptr ? *measurer : static_cast<TextMeasurer&>(fallback);
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (true) {
    const std::size_t end = text.find('\n', start);
    std::string_view line = text.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    if (word_wrap)
      Wrap(line, font, width, used, lines);
    else
      lines.emplace_back(line);
    if (end == std::string_view::npos) break;
    start = end + 1;
  }
  return lines;
}

}  // namespace lupin::engine
