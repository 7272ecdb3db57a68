#pragma once
// Engine-internal: text shaped once into positioned glyphs, so a text that repeats on every page
// (captions, shop names) costs one lookup instead of a Pango layout.
#include <cairo.h>
#include <pango/pangocairo.h>

#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/page_model.h"

namespace lupin::engine {

struct GlyphRun {
  cairo_scaled_font_t* font = nullptr;  // referenced by the run's owner
  std::vector<cairo_glyph_t> glyphs;   // x from the line's left edge, y from the text's top
};

struct ShapedLine {
  double top = 0, height = 0;  // points, from the text's top
  double width = 0;            // logical width, points
  double baseline = 0;         // from the text's top
  std::vector<GlyphRun> runs;
};

struct ShapedText {
  std::vector<ShapedLine> lines;
  double width = 0;  // widest line
  ShapedText() = default;
  ShapedText(const ShapedText&) = delete;
  ShapedText& operator=(const ShapedText&) = delete;
  ShapedText(ShapedText&& other) noexcept;
  ShapedText& operator=(ShapedText&& other) noexcept;
  ~ShapedText();

 private:
  void Release();
};

// Shapes with one context and one layout for its whole life; not shared between threads.
class TextShaper {
 public:
  // Captions and shop names stay warm; a season's names and addresses pass through. Enough for
  // the distinct texts of some twenty dense pages (about 1 KB each); more only holds names that
  // will not come back.
  explicit TextShaper(std::size_t cache_limit = 2048);
  ~TextShaper();
  TextShaper(const TextShaper&) = delete;
  TextShaper& operator=(const TextShaper&) = delete;

  // wrap_width in points; 0 or less keeps each paragraph on one line. CR LF breaks a line.
  const ShapedText& Shape(std::string_view text, const FontSpec& font, double wrap_width) {
    return *ShapeShared(text, font, wrap_width);
  }
  // The same, held beyond the cache's life: for a page drawn on another thread.
  std::shared_ptr<const ShapedText> ShapeShared(std::string_view text, const FontSpec& font, double wrap_width);

  // Logical width in points of the text on one line, the widest line when it holds breaks.
  double LineWidth(std::string_view text, const FontSpec& font);

 private:
  void SetLayout(std::string_view text, const FontSpec& font, double wrap_width);
  ShapedText Build();

  PangoContext* context_ = nullptr;
  PangoLayout* layout_ = nullptr;
  std::size_t cache_limit_;
  // Least recently used entries leave first, so a long run keeps its captions warm.
  using Entry = std::pair<std::string, std::shared_ptr<const ShapedText>>;
  std::list<Entry> order_;
  std::unordered_map<std::string_view, std::list<Entry>::iterator> index_;
  std::string key_;
  std::string scratch_;
};

// "a\r\nb" as Pango reads it: one newline per break.
std::string_view NormaliseBreaks(std::string_view text, std::string& scratch);

}  // namespace lupin::engine
