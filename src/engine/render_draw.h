#pragma once
// Engine-internal: draws the items of a page on a Cairo context, for every output surface.
#include <cairo.h>

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/barcode.h"
#include "engine/page_model.h"
#include "engine/render_shaper.h"

namespace lupin::engine {

// What drawing a page needs from Pango and zint, worked out ahead: per item of the page, its shaped
// text or its bar code symbol (null for the other kinds).
struct PagePreparation {
  std::vector<std::shared_ptr<const ShapedText>> texts;
  std::vector<std::shared_ptr<const BarcodeSymbol>> barcodes;
};

// Every visible item of the page in drawing order, each kind to its own call of the painter:
// Text(item, shaped), Shape(item), Line(item), Barcode(item, symbol).
template <class Painter>
void PaintItems(const Page& page, const PagePreparation& preparation, Painter&& painter) {
  for (std::size_t i = 0; i < page.items.size(); ++i) {
    const PageItem& item = page.items[i];
    if (!item.visible) continue;
    switch (item.kind) {
      case ItemKind::Label:
      case ItemKind::TextField:
        painter.Text(item, preparation.texts[i].get());
        break;
      case ItemKind::Shape:
        painter.Shape(item);
        break;
      case ItemKind::Line:
        painter.Line(item);
        break;
      case ItemKind::Barcode:
        painter.Barcode(item, preparation.barcodes[i].get());
        break;
    }
  }
}

// Two halves that may run on two threads at once: Prepare (shaping, bar codes) on the thread that
// lays the pages out, Draw (the cairo calls) on the thread that writes the surface. They touch
// separate members.
class PageDrawer {
 public:
  PageDrawer() = default;
  ~PageDrawer() { cairo_scaled_font_destroy(glyph_font_); }
  PageDrawer(const PageDrawer&) = delete;
  PageDrawer& operator=(const PageDrawer&) = delete;

  void Prepare(const Page& page, PagePreparation& preparation);
  // cr's user unit is one point, origin at the page's top-left. What cannot be drawn (a bar code
  // of bad data) is appended to problems and the rest of the page still drawn.
  void Draw(cairo_t* cr, const Page& page, const PagePreparation& preparation, std::vector<std::string>& problems);
  // Both halves on this thread.
  void Draw(cairo_t* cr, const Page& page, std::vector<std::string>& problems);

 private:
  void SetColour(cairo_t* cr, std::uint32_t rgb);
  void DrawText(cairo_t* cr, const PageItem& item, const ShapedText* shaped);
  void DrawShape(cairo_t* cr, const PageItem& item);
  void DrawLine(cairo_t* cr, const PageItem& item);
  void DrawBarcode(cairo_t* cr, const PageItem& item, const BarcodeSymbol* symbol, std::vector<std::string>& problems);
  // Glyphs of consecutive texts in one font and colour go out in one call: a PDF text operation
  // costs far more per call than per glyph.
  void Flush(cairo_t* cr);

  // Prepare's half
  TextShaper shaper_;
  std::unordered_map<std::string, std::shared_ptr<const BarcodeSymbol>> barcodes_;
  PagePreparation scratch_;  // the one-thread Draw's preparation, kept for its capacity
  // Draw's half
  std::vector<cairo_glyph_t> glyphs_;  // pending, page coordinates
  cairo_scaled_font_t* glyph_font_ = nullptr;
  std::int64_t colour_ = -1;  // last source colour set on the current page
};

}  // namespace lupin::engine
