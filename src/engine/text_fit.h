#pragma once
// Whether the texts of a laid-out page print whole and apart: measured by the shaper the renderers
// use, a wrapped line that falls below its box is dropped, an unwrapped line wider than the box and
// a first line taller than it run over the box's edge; and two text boxes that share ground print
// into each other.
#include <memory>
#include <string>
#include <vector>

#include "engine/page_model.h"

namespace lupin::engine {

class TextShaper;

struct CutText {
  std::string name;     // the control
  std::string text;     // what it was given
  std::string problem;  // "dropped lines", "too wide", "too tall"
};

// Two visible texts whose boxes overlap, by name, in placing order.
struct OverlappingTexts {
  std::string first, second;
  friend bool operator==(const OverlappingTexts&, const OverlappingTexts&) = default;
};
std::vector<OverlappingTexts> OverlappingTextBoxes(const Page& page);

class TextFitCheck {
 public:
  TextFitCheck();
  ~TextFitCheck();
  TextFitCheck(const TextFitCheck&) = delete;
  TextFitCheck& operator=(const TextFitCheck&) = delete;

  // The visible labels and text fields of the page that do not fit, in placing order.
  std::vector<CutText> Check(const Page& page);

 private:
  std::unique_ptr<TextShaper> shaper_;
};

}  // namespace lupin::engine
