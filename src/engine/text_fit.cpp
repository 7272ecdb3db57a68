#include "engine/text_fit.h"

#include "engine/render_shaper.h"

namespace lupin::engine {

namespace {

constexpr double kTwipsPerPoint = 20.0;
// Half a point: what a glyph's side bearing or a rounding may take without anyone seeing it.
constexpr double kSlack = 0.5;

}  // namespace

std::vector<OverlappingTexts> OverlappingTextBoxes(const Page& page) {
  std::vector<const PageItem*> texts;
  for (const PageItem& item : page.items)
    if (item.visible && !item.text.empty() && (item.kind == ItemKind::Label || item.kind == ItemKind::TextField))
      texts.push_back(&item);
  std::vector<OverlappingTexts> found;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    for (std::size_t j = i + 1; j < texts.size(); ++j) {
      const PageItem& a = *texts[i];
      const PageItem& b = *texts[j];
      const bool apart = a.left + a.width <= b.left || b.left + b.width <= a.left || a.top + a.height <= b.top ||
                         b.top + b.height <= a.top;
      if (!apart) found.push_back({a.name, b.name});
    }
  }
  return found;
}

TextFitCheck::TextFitCheck() : shaper_(std::make_unique<TextShaper>()) {}
TextFitCheck::~TextFitCheck() = default;

std::vector<CutText> TextFitCheck::Check(const Page& page) {
  std::vector<CutText> cut;
  for (const PageItem& item : page.items) {
    if (!item.visible || item.text.empty()) continue;
    if (item.kind != ItemKind::Label && item.kind != ItemKind::TextField) continue;
    const double width = item.width / kTwipsPerPoint, height = item.height / kTwipsPerPoint;
    const ShapedText& shaped = shaper_->Shape(item.text, item.font, item.word_wrap ? width : 0);
    if (shaped.lines.empty()) continue;
    const ShapedLine& last = shaped.lines.back();
    if (shaped.lines.size() > 1 && last.top + last.height > height + 0.01) {
      cut.push_back({item.name, item.text, "dropped lines"});
    } else if (shaped.width > width + kSlack) {
      cut.push_back({item.name, item.text, "too wide"});
    } else if (shaped.lines.front().height > height + kSlack) {
      cut.push_back({item.name, item.text, "too tall"});
    }
  }
  return cut;
}

}  // namespace lupin::engine
