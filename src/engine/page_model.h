#pragma once
// The laid-out pages as data: what the engine produces and every renderer consumes.
// Positions and sizes are twips from the page's top-left corner (1 pt = 20 twips).
#include <cstdint>
#include <string>
#include <vector>

namespace lupin::engine {

struct FontSpec {
  std::string name = "ＭＳ 明朝";
  double size = 9.0;  // points
  bool bold = false;
  bool italic = false;
  bool underline = false;
  friend bool operator==(const FontSpec&, const FontSpec&) = default;
};

enum class ItemKind { Label, TextField, Shape, Line, Barcode };
enum class Alignment { Left = 0, Right = 1, Center = 2 };
enum class ShapeKind { Rectangle = 0, Ellipse = 1, RoundRectangle = 2 };

struct PageItem {
  std::string section;  // section instance name: "Detail", "PageHeader", "GroupIdHeader" …
  std::string name;     // control name
  ItemKind kind = ItemKind::Label;
  std::string text;     // exactly as printed, CR LF kept
  bool visible = true;
  std::int32_t left = 0, top = 0, width = 0, height = 0;
  FontSpec font;
  Alignment alignment = Alignment::Left;
  bool word_wrap = true;
  ShapeKind shape = ShapeKind::Rectangle;
  // Lines run from (left, top) to (left + width, top + height); widths may be negative.
  double line_weight = 1.0;  // points
  std::string barcode_style; // "JapanPost" for the customer barcode
  std::uint32_t fore_color = 0x000000;  // 0xRRGGBB
  std::int32_t back_color = -1;         // -1 transparent
};

struct Page {
  int number = 0;  // 1-based
  std::int32_t width = 0, height = 0;  // twips, orientation applied
  std::vector<PageItem> items;
};

// What a run hands a renderer before the first page.
struct DocumentInfo {
  std::string report;  // report object name, "rptPickingSyuDate"
  std::string title;   // REPORT_NAME
};

// A renderer receives pages as the run lays them out, so a long run never holds all its pages.
class PageSink {
 public:
  virtual ~PageSink() = default;
  virtual void Begin(const DocumentInfo& info) = 0;
  virtual void AddPage(const Page& page) = 0;
  virtual void End() = 0;
};

}  // namespace lupin::engine
