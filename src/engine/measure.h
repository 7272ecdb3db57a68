#pragma once
// Text widths as the renderers draw them: the same font map, options and shaping.
#include <cstddef>
#include <memory>
#include <string_view>

#include "engine/text_measure.h"

namespace lupin::engine {

class PangoTextMeasurer : public TextMeasurer {
 public:
  // cache_limit: distinct (text, font) widths kept; line-breaking measures the same names often,
  // but one order's texts close together: a season's run must not keep every name it measured.
  explicit PangoTextMeasurer(std::size_t cache_limit = 8192);
  ~PangoTextMeasurer() override;
  PangoTextMeasurer(const PangoTextMeasurer&) = delete;
  PangoTextMeasurer& operator=(const PangoTextMeasurer&) = delete;

  double WidthTwips(std::string_view text, const FontSpec& font) override;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace lupin::engine
