#include "engine/measure.h"

#include <cstdio>
#include <string>
#include <unordered_map>

#include "engine/render_shaper.h"

namespace lupin::engine {

struct PangoTextMeasurer::Impl {
  TextShaper shaper{1};  // its layout is used directly; shaped glyphs are not needed here
  std::unordered_map<std::string, double> widths;
  std::size_t limit;
  std::string key;
};

PangoTextMeasurer::PangoTextMeasurer(std::size_t cache_limit) : impl_(std::make_unique<Impl>()) {
  impl_->limit = cache_limit;
}

PangoTextMeasurer::~PangoTextMeasurer() = default;

double PangoTextMeasurer::WidthTwips(std::string_view text, const FontSpec& font) {
  Impl& impl = *impl_;
  std::string& key = impl.key;
  key.assign(text);
  key += '\0';
  key += font.name;
  char buffer[48];
  int n = std::snprintf(buffer, sizeof buffer, "|%.3f|%d%d", font.size, font.bold ? 1 : 0,
                        font.italic ? 1 : 0);
  key.append(buffer, static_cast<std::size_t>(n));
  if (auto it = impl.widths.find(key); it != impl.widths.end()) return it->second;
  const double twips = impl.shaper.LineWidth(text, font) * 20.0;
  if (impl.widths.size() >= impl.limit) impl.widths.clear();
  impl.widths.emplace(key, twips);
  return twips;
}

}  // namespace lupin::engine
