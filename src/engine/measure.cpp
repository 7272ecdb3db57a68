#include "engine/measure.h"

#include <pango/pangocairo.h>

#include <cstdio>
#include <string>
#include <unordered_map>

#include "engine/fonts_pango.h"
#include "engine/render_shaper.h"

namespace lupin::engine {

namespace {

// Right-to-left letters and the explicit direction marks and embeddings: a paragraph holding any
// of them gets its direction from the text, which only the layout resolves.
bool IsDirectional(gunichar c) {
  return (c >= 0x0590 && c <= 0x08FF) || (c >= 0xFB1D && c <= 0xFDFF) || (c >= 0xFE70 && c <= 0xFEFF) ||
         (c >= 0x10800 && c <= 0x10FFF) || (c >= 0x1E800 && c <= 0x1EFFF) || c == 0x200E || c == 0x200F ||
         (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

// Text a single-line layout treats as more than itemized glyphs: line and paragraph breaks, tabs
// (tab stops), other controls, invalid UTF-8 (replaced), direction other than left to right.
bool NeedsFullLayout(std::string_view text) {
  const char* end = nullptr;
  if (!g_utf8_validate(text.data(), static_cast<gssize>(text.size()), &end)) return true;
  for (const char* p = text.data(); p != end;) {
    const auto byte = static_cast<unsigned char>(*p);
    if (byte < 0x80) {
      if (byte < 0x20 || byte == 0x7F) return true;
      ++p;
      continue;
    }
    const gunichar c = g_utf8_get_char(p);
    // U+2028 LINE SEPARATOR and U+2029 PARAGRAPH SEPARATOR break the line; C1 controls too.
    if (c == 0x2028 || c == 0x2029 || (c >= 0x80 && c < 0xA0) || IsDirectional(c)) return true;
    p = g_utf8_next_char(p);
  }
  return false;
}

}  // namespace

struct PangoTextMeasurer::Impl {
  Impl() : context(NewTextContext()), attributes(pango_attr_list_new()), glyphs(pango_glyph_string_new()) {}
  ~Impl() {
    pango_glyph_string_free(glyphs);
    pango_attr_list_unref(attributes);
    g_object_unref(context);
  }
  Impl(const Impl&) = delete;
  Impl& operator=(const Impl&) = delete;

  // Width in Pango units of a text on one line, by itemizing and shaping without a layout: a
  // layout of one unwrapped line is exactly the sum of its shaped glyphs' advances.
  int ShapedWidth(std::string_view text, const FontSpec& font);

  PangoContext* context;
  PangoAttrList* attributes;  // empty: the font comes from the context
  PangoGlyphString* glyphs;   // reused by every item
  const PangoFontDescription* current = nullptr;
  TextShaper layout_shaper{1};  // texts the shortcut does not cover
  std::unordered_map<std::string, double> widths;
  std::size_t limit = 0;
  std::string key;
  FontSpec key_font;        // the font key_suffix was written for
  std::string key_suffix;   // its size and style, formatted once per font change
};

int PangoTextMeasurer::Impl::ShapedWidth(std::string_view text, const FontSpec& font) {
  const PangoFontDescription* description = FontDescription(font);
  // Descriptions are interned, so the pointer names the font.
  if (description != current) {
    pango_context_set_font_description(context, description);
    current = description;
  }
  const int length = static_cast<int>(text.size());
  // Without right-to-left text every character sits at bidi level 0 whatever the base direction.
  GList* items = pango_itemize_with_base_dir(context, PANGO_DIRECTION_LTR, text.data(), 0, length,
                                             attributes, nullptr);
  int width = 0;
  for (GList* node = items; node != nullptr; node = node->next) {
    auto* item = static_cast<PangoItem*>(node->data);
    pango_shape_with_flags(text.data() + item->offset, item->length, text.data(), length,
                           &item->analysis, glyphs, PANGO_SHAPE_NONE);
    for (int i = 0; i < glyphs->num_glyphs; ++i) width += glyphs->glyphs[i].geometry.width;
    pango_item_free(item);
  }
  g_list_free(items);
  return width;
}

PangoTextMeasurer::PangoTextMeasurer(std::size_t cache_limit) : impl_(std::make_unique<Impl>()) {
  impl_->limit = cache_limit;
}

PangoTextMeasurer::~PangoTextMeasurer() = default;

double PangoTextMeasurer::WidthTwips(std::string_view text, const FontSpec& font) {
  Impl& impl = *impl_;
  std::string& key = impl.key;
  if (impl.key_suffix.empty() || font.name != impl.key_font.name || font.size != impl.key_font.size ||
      font.bold != impl.key_font.bold || font.italic != impl.key_font.italic) {
    char buffer[48];
    const int n = std::snprintf(buffer, sizeof buffer, "|%.3f|%d%d", font.size, font.bold ? 1 : 0,
                                font.italic ? 1 : 0);
    impl.key_font = font;
    impl.key_suffix.assign(buffer, static_cast<std::size_t>(n));
  }
  key.assign(text);
  key += '\0';
  key += font.name;
  key += impl.key_suffix;
  if (auto it = impl.widths.find(key); it != impl.widths.end()) return it->second;
  const double twips = NeedsFullLayout(text)
                           ? impl.layout_shaper.LineWidth(text, font) * 20.0
                           : impl.ShapedWidth(text, font) * (1.0 / PANGO_SCALE) * 20.0;
  if (impl.widths.size() >= impl.limit) impl.widths.clear();
  impl.widths.emplace(key, twips);
  return twips;
}

}  // namespace lupin::engine
