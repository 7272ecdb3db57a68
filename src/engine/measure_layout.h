#pragma once
// Widths from a full paragraph layout, exactly as the renderers lay a label out. Several times
// slower than PangoTextMeasurer; it is the yardstick the fast path is checked against.
#include <memory>
#include <string_view>

#include "engine/text_measure.h"

namespace lupin::engine {

class LayoutTextMeasurer : public TextMeasurer {
 public:
  LayoutTextMeasurer();
  ~LayoutTextMeasurer() override;
  LayoutTextMeasurer(const LayoutTextMeasurer&) = delete;
  LayoutTextMeasurer& operator=(const LayoutTextMeasurer&) = delete;

  // Never cached: every call lays the text out afresh.
  double WidthTwips(std::string_view text, const FontSpec& font) override;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace lupin::engine
