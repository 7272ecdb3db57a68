#include "engine/pdf_page_content.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

#include "engine/pdf_syntax.h"

namespace lupin::engine::pdf {

namespace {

constexpr double kTwipsPerPoint = 20.0;
// A glyph further than this from where the previous one left the pen gets an explicit move;
// a hundredth of a point is far below what any printer resolves.
constexpr double kPenTolerance = 0.01;

struct Box {
  double x, y, w, h;
};

Box BoxOf(const PageItem& item) {
  return {item.left / kTwipsPerPoint, item.top / kTwipsPerPoint, item.width / kTwipsPerPoint,
          item.height / kTwipsPerPoint};
}

// Keeps what the graphics state already holds, so each operator is written only when it changes.
class ContentWriter {
 public:
  ContentWriter(std::string& out, double height) : out_(out), height_(height) {}

  void Fill(std::uint32_t rgb) { Colour(rgb, fill_, " rg\n"); }
  void Stroke(std::uint32_t rgb) { Colour(rgb, stroke_, " RG\n"); }
  void LineWidth(double width) {
    if (width == line_width_) return;
    line_width_ = width;
    Real(width);
    out_ += "w\n";
  }

  void Glyph(const FontUse& use, std::uint32_t glyph, double x, double y) {
    const double pdf_y = height_ - y;
    if (use_ != &use || pdf_y != group_y_) {
      StartGroup(use, x, pdf_y);
    } else if (std::fabs(x - pen_) > kPenTolerance) {
      out_ += '>';
      Real((pen_ - x) * 1000.0 / use.xx);
      out_ += '<';
      pen_ = x;
    }
    AppendHex4(out_, glyph);
    use.face->MarkUsed(glyph);
    pen_ += use.face->Width(glyph) * use.xx / 1000.0;
  }
  // The next glyph starts a new positioned group.
  void EndGroup() {
    if (use_ == nullptr) return;
    out_ += ">] TJ\n";
    use_ = nullptr;
  }

  void Rectangle(const Box& b) {
    EndText();
    Real(b.x);
    Real(height_ - b.y - b.h);
    Real(b.w);
    Real(b.h);
    out_ += "re\n";
  }
  void MoveTo(double x, double y) { Point(x, y, "m\n"); }
  void LineTo(double x, double y) { Point(x, y, "l\n"); }
  void CurveTo(double x1, double y1, double x2, double y2, double x3, double y3) {
    EndText();
    Real(x1);
    Real(height_ - y1);
    Real(x2);
    Real(height_ - y2);
    Real(x3);
    Real(height_ - y3);
    out_ += "c\n";
  }
  // An elliptic arc of at most a quarter turn from angle a0 to a1, centre (cx, cy), y downwards.
  void Arc(double cx, double cy, double rx, double ry, double a0, double a1) {
    const double h = 4.0 / 3.0 * std::tan((a1 - a0) / 4);
    const double c0 = std::cos(a0), s0 = std::sin(a0), c1 = std::cos(a1), s1 = std::sin(a1);
    CurveTo(cx + rx * (c0 - h * s0), cy + ry * (s0 + h * c0), cx + rx * (c1 + h * s1), cy + ry * (s1 - h * c1),
            cx + rx * c1, cy + ry * s1);
  }
  void Operator(const char* text) {
    EndText();
    out_ += text;
  }

  void EndText() {
    EndGroup();
    if (!in_text_) return;
    out_ += "ET\n";
    in_text_ = false;
  }

 private:
  void Real(double value) {
    AppendReal(out_, value);
    out_ += ' ';
  }
  void Point(double x, double y, const char* op) {
    EndText();
    Real(x);
    Real(height_ - y);
    out_ += op;
  }
  void Colour(std::uint32_t rgb, std::int64_t& held, const char* op) {
    if (held == static_cast<std::int64_t>(rgb)) return;
    EndGroup();
    held = rgb;
    Real(((rgb >> 16) & 0xff) / 255.0);
    Real(((rgb >> 8) & 0xff) / 255.0);
    AppendReal(out_, (rgb & 0xff) / 255.0);
    out_ += op;
  }
  void StartGroup(const FontUse& use, double x, double pdf_y) {
    EndGroup();
    if (!in_text_) {
      out_ += "BT\n";
      in_text_ = true;
    }
    if (use.face != face_) {
      face_ = use.face;
      out_ += "/F";
      AppendInt(out_, use.face->resource);
      out_ += " 1 Tf\n";
    }
    const int mode = use.synthetic_bold ? 2 : 0;
    if (use.synthetic_bold) LineWidth(use.xx / 24.0);  // as thick as the thickened outline
    if (mode != render_mode_) {
      render_mode_ = mode;
      AppendInt(out_, mode);
      out_ += " Tr\n";
    }
    Real(use.xx);
    Real(-use.yx);
    Real(-use.xy);
    Real(use.yy);
    Real(x);
    Real(pdf_y);
    out_ += "Tm [<";
    use_ = &use;
    group_y_ = pdf_y;
    pen_ = x;
  }

  std::string& out_;
  double height_;
  bool in_text_ = false;
  const FontFace* face_ = nullptr;
  int render_mode_ = 0;
  double line_width_ = 1.0;  // PDF's initial line width
  std::int64_t fill_ = -1, stroke_ = -1;
  const FontUse* use_ = nullptr;  // of the open glyph group
  double group_y_ = 0, pen_ = 0;
};

const FontUse* Find(const PageFonts& fonts, cairo_scaled_font_t* font) {
  for (const auto& [key, use] : fonts) {
    if (key == font) return use;
  }
  return nullptr;
}

void WriteText(ContentWriter& w, const PageItem& item, const ShapedText* shaped, const PageFonts& fonts) {
  const Box box = BoxOf(item);
  if (item.back_color >= 0) {
    w.Fill(static_cast<std::uint32_t>(item.back_color));
    w.Rectangle(box);
    w.Operator("f\n");
  }
  if (item.text.empty() || shaped == nullptr) return;
  w.Fill(item.fore_color);
  w.Stroke(item.fore_color);  // a thickened outline is stroked in the text's colour
  for (std::size_t i = 0; i < shaped->lines.size(); ++i) {
    const ShapedLine& line = shaped->lines[i];
    // The first line always prints; a further line only when it fits the box.
    if (i > 0 && line.top + line.height > box.h + 0.01) break;
    double dx = 0;
    if (item.alignment == Alignment::Right) dx = box.w - line.width;
    if (item.alignment == Alignment::Center) dx = (box.w - line.width) / 2;
    const double x0 = box.x + dx;
    cairo_scaled_font_t* last_font = nullptr;
    const FontUse* use = nullptr;
    for (const GlyphRun& run : line.runs) {
      if (run.font != last_font) {
        last_font = run.font;
        use = Find(fonts, run.font);
      }
      if (use == nullptr) continue;
      for (const cairo_glyph_t& g : run.glyphs) w.Glyph(*use, static_cast<std::uint32_t>(g.index), g.x + x0, g.y + box.y);
    }
    w.EndGroup();
    if (item.font.underline && line.width > 0) {
      const double thickness = std::max(item.font.size * 0.05, 0.5);
      w.Rectangle({x0, box.y + line.baseline + item.font.size * 0.1, line.width, thickness});
      w.Operator("f\n");
    }
  }
}

void RoundRectanglePath(ContentWriter& w, const Box& b) {
  const double r = std::min(std::fabs(b.w), std::fabs(b.h)) * 0.15;
  const double pi = std::numbers::pi;
  w.MoveTo(b.x + b.w - r, b.y);
  w.Arc(b.x + b.w - r, b.y + r, r, r, -pi / 2, 0);
  w.LineTo(b.x + b.w, b.y + b.h - r);
  w.Arc(b.x + b.w - r, b.y + b.h - r, r, r, 0, pi / 2);
  w.LineTo(b.x + r, b.y + b.h);
  w.Arc(b.x + r, b.y + b.h - r, r, r, pi / 2, pi);
  w.LineTo(b.x, b.y + r);
  w.Arc(b.x + r, b.y + r, r, r, pi, 3 * pi / 2);
  w.Operator("h\n");
}

void WriteShape(ContentWriter& w, const PageItem& item) {
  const Box box = BoxOf(item);
  switch (item.shape) {
    case ShapeKind::Rectangle:
      w.Rectangle(box);
      break;
    case ShapeKind::Ellipse: {
      if (box.w == 0 || box.h == 0) return;
      const double cx = box.x + box.w / 2, cy = box.y + box.h / 2, rx = box.w / 2, ry = box.h / 2;
      const double pi = std::numbers::pi;
      w.MoveTo(cx + rx, cy);
      for (int quarter = 0; quarter < 4; ++quarter) w.Arc(cx, cy, rx, ry, quarter * pi / 2, (quarter + 1) * pi / 2);
      w.Operator("h\n");
      break;
    }
    case ShapeKind::RoundRectangle:
      RoundRectanglePath(w, box);
      break;
  }
  if (item.back_color >= 0) w.Fill(static_cast<std::uint32_t>(item.back_color));
  w.Stroke(item.fore_color);
  w.LineWidth(item.line_weight);
  w.Operator(item.back_color >= 0 ? "B\n" : "S\n");
}

void WriteLine(ContentWriter& w, const PageItem& item) {
  const Box box = BoxOf(item);
  w.Stroke(item.fore_color);
  w.LineWidth(item.line_weight);
  w.MoveTo(box.x, box.y);
  w.LineTo(box.x + box.w, box.y + box.h);
  w.Operator("S\n");
}

void WriteBarcode(ContentWriter& w, const PageItem& item, const BarcodeSymbol* symbol,
                  std::vector<std::string>& problems) {
  if (item.text.empty() || symbol == nullptr) return;
  if (!symbol->ok) {
    problems.push_back(item.name + ": " + symbol->message);
    return;
  }
  if (symbol->bars.empty()) return;
  const Box box = BoxOf(item);
  const double sx = box.w / symbol->width;
  const double sy = box.h / symbol->height;
  w.Fill(item.fore_color);
  for (const BarRect& bar : symbol->bars) w.Rectangle({box.x + bar.x * sx, box.y + bar.y * sy, bar.width * sx, bar.height * sy});
  w.Operator("f\n");
}

}  // namespace

void CollectFonts(const PagePreparation& preparation, Fonts& registry, PageFonts& fonts) {
  fonts.clear();
  cairo_scaled_font_t* last = nullptr;
  for (const auto& text : preparation.texts) {
    if (!text) continue;
    for (const ShapedLine& line : text->lines) {
      for (const GlyphRun& run : line.runs) {
        if (run.font == last) continue;
        last = run.font;
        if (std::none_of(fonts.begin(), fonts.end(), [&](const auto& f) { return f.first == run.font; })) {
          fonts.emplace_back(run.font, registry.Use(run.font));
        }
      }
    }
  }
}

void WritePageContent(const Page& page, const PagePreparation& preparation, const PageFonts& fonts, double height,
                      std::string& out, std::vector<std::string>& problems) {
  out.clear();
  ContentWriter w(out, height);
  struct Painter {
    ContentWriter& w;
    const PageFonts& fonts;
    std::vector<std::string>& problems;
    void Text(const PageItem& item, const ShapedText* shaped) { WriteText(w, item, shaped, fonts); }
    void Shape(const PageItem& item) { WriteShape(w, item); }
    void Line(const PageItem& item) { WriteLine(w, item); }
    void Barcode(const PageItem& item, const BarcodeSymbol* symbol) { WriteBarcode(w, item, symbol, problems); }
  };
  PaintItems(page, preparation, Painter{w, fonts, problems});
  w.EndText();
}

}  // namespace lupin::engine::pdf
