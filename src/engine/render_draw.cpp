#include "engine/render_draw.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace lupin::engine {
namespace {

constexpr double kTwipsPerPoint = 20.0;
// Bar codes mostly carry an order's own number or address, so few ever repeat.
constexpr std::size_t kBarcodeCacheLimit = 512;

struct Box {
  double x, y, w, h;
};

Box BoxOf(const PageItem& item) {
  return {item.left / kTwipsPerPoint, item.top / kTwipsPerPoint, item.width / kTwipsPerPoint,
          item.height / kTwipsPerPoint};
}

void RoundRectanglePath(cairo_t* cr, const Box& b) {
  const double r = std::min(std::fabs(b.w), std::fabs(b.h)) * 0.15;
  const double pi = std::numbers::pi;
  cairo_new_sub_path(cr);
  cairo_arc(cr, b.x + b.w - r, b.y + r, r, -pi / 2, 0);
  cairo_arc(cr, b.x + b.w - r, b.y + b.h - r, r, 0, pi / 2);
  cairo_arc(cr, b.x + r, b.y + b.h - r, r, pi / 2, pi);
  cairo_arc(cr, b.x + r, b.y + r, r, pi, 3 * pi / 2);
  cairo_close_path(cr);
}

}  // namespace

void PageDrawer::Flush(cairo_t* cr) {
  if (glyphs_.empty()) return;
  cairo_set_scaled_font(cr, glyph_font_);
  cairo_show_glyphs(cr, glyphs_.data(), static_cast<int>(glyphs_.size()));
  glyphs_.clear();
}

void PageDrawer::SetColour(cairo_t* cr, std::uint32_t rgb) {
  if (colour_ == static_cast<std::int64_t>(rgb)) return;
  Flush(cr);
  colour_ = rgb;
  cairo_set_source_rgb(cr, ((rgb >> 16) & 0xff) / 255.0, ((rgb >> 8) & 0xff) / 255.0,
                       (rgb & 0xff) / 255.0);
}

void PageDrawer::Prepare(const Page& page, PagePreparation& preparation) {
  const std::size_t count = page.items.size();
  preparation.texts.assign(count, nullptr);
  preparation.barcodes.assign(count, nullptr);
  for (std::size_t i = 0; i < count; ++i) {
    const PageItem& item = page.items[i];
    if (!item.visible || item.text.empty()) continue;
    if (item.kind == ItemKind::Label || item.kind == ItemKind::TextField) {
      preparation.texts[i] = shaper_.ShapeShared(item.text, item.font, item.word_wrap ? item.width / kTwipsPerPoint : 0);
    } else if (item.kind == ItemKind::Barcode) {
      const std::string style = item.barcode_style.empty() ? "JapanPost" : item.barcode_style;
      auto it = barcodes_.find(style + '\0' + item.text);
      if (it == barcodes_.end()) {
        if (barcodes_.size() >= kBarcodeCacheLimit) barcodes_.clear();
        it = barcodes_.emplace(style + '\0' + item.text,
                               std::make_shared<const BarcodeSymbol>(EncodeBarcode(style, item.text))).first;
      }
      preparation.barcodes[i] = it->second;
    }
  }
}

void PageDrawer::Draw(cairo_t* cr, const Page& page, std::vector<std::string>& problems) {
  Prepare(page, scratch_);
  Draw(cr, page, scratch_, problems);
}

void PageDrawer::Draw(cairo_t* cr, const Page& page, const PagePreparation& preparation,
                      std::vector<std::string>& problems) {
  colour_ = -1;
  struct Painter {
    PageDrawer& drawer;
    cairo_t* cr;
    std::vector<std::string>& problems;
    void Text(const PageItem& item, const ShapedText* shaped) { drawer.DrawText(cr, item, shaped); }
    void Shape(const PageItem& item) { drawer.DrawShape(cr, item); }
    void Line(const PageItem& item) { drawer.DrawLine(cr, item); }
    void Barcode(const PageItem& item, const BarcodeSymbol* symbol) { drawer.DrawBarcode(cr, item, symbol, problems); }
  };
  PaintItems(page, preparation, Painter{*this, cr, problems});
  Flush(cr);
}

void PageDrawer::DrawText(cairo_t* cr, const PageItem& item, const ShapedText* shaped_text) {
  const Box box = BoxOf(item);
  if (item.back_color >= 0) {
    Flush(cr);  // a background must not cover earlier text
    SetColour(cr, static_cast<std::uint32_t>(item.back_color));
    cairo_rectangle(cr, box.x, box.y, box.w, box.h);
    cairo_fill(cr);
  }
  if (item.text.empty() || shaped_text == nullptr) return;
  const ShapedText& shaped = *shaped_text;
  SetColour(cr, item.fore_color);
  for (std::size_t i = 0; i < shaped.lines.size(); ++i) {
    const ShapedLine& line = shaped.lines[i];
    // The first line always prints; a further line only when it fits the box.
    if (i > 0 && line.top + line.height > box.h + 0.01) break;
    double dx = 0;
    if (item.alignment == Alignment::Right) dx = box.w - line.width;
    if (item.alignment == Alignment::Center) dx = (box.w - line.width) / 2;
    const double x0 = box.x + dx;
    for (const GlyphRun& run : line.runs) {
      if (run.font != glyph_font_) {
        Flush(cr);
        // Held here: the shaper may drop the text that owned the font before the flush.
        cairo_scaled_font_destroy(glyph_font_);
        glyph_font_ = cairo_scaled_font_reference(run.font);
      }
      for (const cairo_glyph_t& g : run.glyphs) glyphs_.push_back({g.index, g.x + x0, g.y + box.y});
    }
    if (item.font.underline && line.width > 0) {
      const double thickness = std::max(item.font.size * 0.05, 0.5);
      cairo_rectangle(cr, x0, box.y + line.baseline + item.font.size * 0.1, line.width, thickness);
      cairo_fill(cr);
    }
  }
}

void PageDrawer::DrawShape(cairo_t* cr, const PageItem& item) {
  Flush(cr);
  const Box box = BoxOf(item);
  switch (item.shape) {
    case ShapeKind::Rectangle:
      cairo_rectangle(cr, box.x, box.y, box.w, box.h);
      break;
    case ShapeKind::Ellipse:
      if (box.w == 0 || box.h == 0) return;
      cairo_save(cr);
      cairo_translate(cr, box.x + box.w / 2, box.y + box.h / 2);
      cairo_scale(cr, box.w / 2, box.h / 2);
      cairo_new_sub_path(cr);
      cairo_arc(cr, 0, 0, 1, 0, 2 * std::numbers::pi);
      cairo_restore(cr);  // the stroke keeps an unscaled pen
      break;
    case ShapeKind::RoundRectangle:
      RoundRectanglePath(cr, box);
      break;
  }
  if (item.back_color >= 0) {
    SetColour(cr, static_cast<std::uint32_t>(item.back_color));
    cairo_fill_preserve(cr);
  }
  SetColour(cr, item.fore_color);
  cairo_set_line_width(cr, item.line_weight);
  cairo_stroke(cr);
}

void PageDrawer::DrawLine(cairo_t* cr, const PageItem& item) {
  Flush(cr);
  const Box box = BoxOf(item);
  SetColour(cr, item.fore_color);
  cairo_set_line_width(cr, item.line_weight);
  cairo_move_to(cr, box.x, box.y);
  cairo_line_to(cr, box.x + box.w, box.y + box.h);
  cairo_stroke(cr);
}

void PageDrawer::DrawBarcode(cairo_t* cr, const PageItem& item, const BarcodeSymbol* prepared,
                             std::vector<std::string>& problems) {
  if (item.text.empty() || prepared == nullptr) return;
  Flush(cr);
  const BarcodeSymbol& symbol = *prepared;
  if (!symbol.ok) {
    problems.push_back(item.name + ": " + symbol.message);
    return;
  }
  const Box box = BoxOf(item);
  const double sx = box.w / symbol.width;
  const double sy = box.h / symbol.height;
  SetColour(cr, item.fore_color);
  for (const BarRect& bar : symbol.bars) {
    cairo_rectangle(cr, box.x + bar.x * sx, box.y + bar.y * sy, bar.width * sx, bar.height * sy);
  }
  cairo_fill(cr);
}

}  // namespace lupin::engine
