#pragma once
// Engine-internal: the fonts of a PDF. Each face a page uses is embedded once, at the end, as a
// subset of the glyphs the pages used; glyph IDs stay those of the font, so pages can be written
// before the subset exists. Text stays extractable through a Unicode map of the used glyphs.
#include <cairo.h>

#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/pdf_file.h"

namespace lupin::engine::pdf {

struct FontFace {
  int resource = 0;  // the page resources call it /F<resource>
  std::string postscript_name;
  unsigned face_index = 0;  // within a font collection file
  bool cff = false;         // outlines in a CFF table rather than glyf
  int units_per_em = 1000;
  std::vector<float> widths;  // per glyph, in thousandths of the em: what the reader advances by
  int ascent = 0, descent = 0, cap_height = 0;
  int bbox[4] = {0, 0, 0, 0};
  cairo_scaled_font_t* source = nullptr;  // held; locked again at the end to read the font file
  std::size_t glyph_count = 0;
  std::unique_ptr<std::atomic<std::uint8_t>[]> used;  // set by any drawing thread

  void MarkUsed(std::uint32_t glyph) const {
    if (glyph < glyph_count) used[glyph].store(1, std::memory_order_relaxed);
  }
  double Width(std::uint32_t glyph) const { return glyph < widths.size() ? widths[glyph] : 1000; }
};

// One size and style of a face, as Pango's shaping picked it.
struct FontUse {
  const FontFace* face = nullptr;
  double xx = 0, yx = 0, xy = 0, yy = 0;  // the font matrix in points, y downwards
  bool synthetic_bold = false;            // the face has no bold: the outline is thickened
};

class Fonts {
 public:
  Fonts() = default;
  ~Fonts();
  Fonts(const Fonts&) = delete;
  Fonts& operator=(const Fonts&) = delete;

  // On the thread that lays the pages out; null when the font is not a font file the writer can
  // embed. The result stays valid, and unchanged, for the life of this object.
  const FontUse* Use(cairo_scaled_font_t* font);

  // After the last page: writes every face and returns the entries of the resources' /Font
  // dictionary. A face that cannot be subset is embedded whole.
  std::string Embed(PdfFile& file);

 private:
  const FontFace* Face(cairo_scaled_font_t* font);

  std::unordered_map<cairo_scaled_font_t*, std::unique_ptr<FontUse>> uses_;
  std::map<std::string, std::unique_ptr<FontFace>> faces_;  // by PostScript name, index and size
  std::vector<FontFace*> order_;                            // as the pages first used them
};

}  // namespace lupin::engine::pdf
