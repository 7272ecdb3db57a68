#include "engine/measure_layout.h"

#include "engine/render_shaper.h"

namespace lupin::engine {

struct LayoutTextMeasurer::Impl {
  TextShaper shaper{1};
};

LayoutTextMeasurer::LayoutTextMeasurer() : impl_(std::make_unique<Impl>()) {}

LayoutTextMeasurer::~LayoutTextMeasurer() = default;

double LayoutTextMeasurer::WidthTwips(std::string_view text, const FontSpec& font) {
  return impl_->shaper.LineWidth(text, font) * 20.0;
}

}  // namespace lupin::engine
