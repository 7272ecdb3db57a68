#pragma once
// The width of a text in a font, as the renderers will draw it (same font options on screen and
// paper, so line breaks agree).
#include <string_view>

#include "engine/page_model.h"

namespace lupin::engine {

class TextMeasurer {
 public:
  virtual ~TextMeasurer() = default;
  // Width in twips of one line of text (no wrapping) in the font.
  virtual double WidthTwips(std::string_view text, const FontSpec& font) = 0;
};

}  // namespace lupin::engine
