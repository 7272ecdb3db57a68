#include "engine/render_shaper.h"

#include <algorithm>

#include "engine/fonts_pango.h"

namespace lupin::engine {

namespace {

constexpr double kUnit = 1.0 / PANGO_SCALE;

// The text, the font name and the raw bytes of the rest: a key made per item of every page, so no
// number formatting.
void AppendKey(std::string& key, std::string_view text, const FontSpec& font, double wrap_width) {
  const double wrap = wrap_width > 0 ? wrap_width : 0.0;
  const char flags[2] = {font.bold ? '1' : '0', font.italic ? '1' : '0'};
  key.assign(text);
  key += '\0';
  key += font.name;
  key += '\0';
  key.append(reinterpret_cast<const char*>(&font.size), sizeof font.size);
  key.append(flags, sizeof flags);
  key.append(reinterpret_cast<const char*>(&wrap), sizeof wrap);
}

}  // namespace

std::string_view NormaliseBreaks(std::string_view text, std::string& scratch) {
  if (text.find('\r') == std::string_view::npos) return text;
  scratch.clear();
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r') {
      scratch += '\n';
      if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
    } else {
      scratch += text[i];
    }
  }
  return scratch;
}

ShapedText::ShapedText(ShapedText&& other) noexcept
    : lines(std::move(other.lines)), width(other.width) {
  other.lines.clear();
}

ShapedText& ShapedText::operator=(ShapedText&& other) noexcept {
  if (this != &other) {
    Release();
    lines = std::move(other.lines);
    other.lines.clear();
    width = other.width;
  }
  return *this;
}

ShapedText::~ShapedText() { Release(); }

void ShapedText::Release() {
  for (ShapedLine& line : lines) {
    for (GlyphRun& run : line.runs) cairo_scaled_font_destroy(run.font);
  }
  lines.clear();
}

TextShaper::TextShaper(std::size_t cache_limit) : cache_limit_(cache_limit) {
  context_ = NewTextContext();
  layout_ = pango_layout_new(context_);
  pango_layout_set_wrap(layout_, PANGO_WRAP_WORD_CHAR);
}

TextShaper::~TextShaper() {
  order_.clear();
  g_object_unref(layout_);
  g_object_unref(context_);
}

void TextShaper::SetLayout(std::string_view text, const FontSpec& font, double wrap_width) {
  std::string_view normal = NormaliseBreaks(text, scratch_);
  pango_layout_set_font_description(layout_, FontDescription(font));
  pango_layout_set_width(layout_, wrap_width > 0 ? static_cast<int>(wrap_width * PANGO_SCALE) : -1);
  pango_layout_set_text(layout_, normal.data(), static_cast<int>(normal.size()));
}

ShapedText TextShaper::Build() {
  ShapedText shaped;
  PangoLayoutIter* iter = pango_layout_get_iter(layout_);
  do {
    PangoLayoutLine* line = pango_layout_iter_get_line_readonly(iter);
    PangoRectangle logical;
    pango_layout_iter_get_line_extents(iter, nullptr, &logical);
    ShapedLine out;
    out.top = logical.y * kUnit;
    out.height = logical.height * kUnit;
    out.width = logical.width * kUnit;
    const double baseline = pango_layout_iter_get_baseline(iter) * kUnit;
    out.baseline = baseline;
    int x = 0;
    for (GSList* node = line->runs; node != nullptr; node = node->next) {
      auto* item = static_cast<PangoGlyphItem*>(node->data);
      PangoGlyphString* glyphs = item->glyphs;
      GlyphRun run;
      run.font = cairo_scaled_font_reference(
          pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(item->item->analysis.font)));
      run.glyphs.reserve(static_cast<std::size_t>(glyphs->num_glyphs));
      for (int i = 0; i < glyphs->num_glyphs; ++i) {
        const PangoGlyphInfo& info = glyphs->glyphs[i];
        // Empty glyphs are spaces of zero ink; unknown ones would print as hex boxes.
        if (info.glyph != PANGO_GLYPH_EMPTY && (info.glyph & PANGO_GLYPH_UNKNOWN_FLAG) == 0) {
          run.glyphs.push_back({info.glyph, (x + info.geometry.x_offset) * kUnit,
                                baseline + info.geometry.y_offset * kUnit});
        }
        x += info.geometry.width;
      }
      if (run.glyphs.empty()) {
        cairo_scaled_font_destroy(run.font);
      } else {
        out.runs.push_back(std::move(run));
      }
    }
    shaped.width = std::max(shaped.width, out.width);
    shaped.lines.push_back(std::move(out));
  } while (pango_layout_iter_next_line(iter));
  pango_layout_iter_free(iter);
  return shaped;
}

std::shared_ptr<const ShapedText> TextShaper::ShapeShared(std::string_view text, const FontSpec& font,
                                                          double wrap_width) {
  AppendKey(key_, text, font, wrap_width);
  if (auto it = index_.find(key_); it != index_.end()) {
    order_.splice(order_.begin(), order_, it->second);
    return it->second->second;
  }
  SetLayout(text, font, wrap_width);
  order_.emplace_front(key_, std::make_shared<const ShapedText>(Build()));
  index_.emplace(order_.front().first, order_.begin());
  if (order_.size() > cache_limit_) {
    index_.erase(order_.back().first);
    order_.pop_back();
  }
  return order_.front().second;
}

double TextShaper::LineWidth(std::string_view text, const FontSpec& font) {
  SetLayout(text, font, 0);
  int width = 0;
  pango_layout_get_size(layout_, &width, nullptr);
  return width * kUnit;
}

}  // namespace lupin::engine
