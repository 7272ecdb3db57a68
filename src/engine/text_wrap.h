#pragma once
// Breaking a label's text into the lines its box shows: at CR LF (or a lone LF), and, with word
// wrap, where the next character would pass the box's width.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/page_model.h"
#include "engine/text_measure.h"

namespace lupin::engine {

// Without a measurer from the renderer: a half-width character is half the font's height wide,
// every other character its full height.
class FallbackMeasurer : public TextMeasurer {
 public:
  double WidthTwips(std::string_view text, const FontSpec& font) override;
};

// measurer may be nullptr (the fallback is used). A line always keeps at least one character.
std::vector<std::string> WrapText(std::string_view text, const FontSpec& font, std::int32_t width,
                                  bool word_wrap, TextMeasurer* measurer);

}  // namespace lupin::engine
