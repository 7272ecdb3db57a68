#include "engine/section.h"

#include <algorithm>

#include "engine/names.h"

namespace lupin::engine {

namespace {
constexpr std::string_view kTypeNames[] = {"ReportHeader", "PageHeader", "GroupHeader", "Detail",
                                           "GroupFooter",  "PageFooter", "ReportFooter"};
}

std::string_view SectionTypeName(SectionType type) { return kTypeNames[static_cast<int>(type)]; }

bool SectionTypeFromName(std::string_view name, SectionType& type) {
  for (int i = 0; i < 7; ++i) {
    if (kTypeNames[i] == name) {
      type = static_cast<SectionType>(i);
      return true;
    }
  }
  return false;
}

Control* Controls::Item(std::string_view name) {
  for (auto& item : items_)
    if (EqualsNoCase(item->Name, name)) return item.get();
  return nullptr;
}

const Control* Controls::Item(std::string_view name) const {
  for (const auto& item : items_)
    if (EqualsNoCase(item->Name, name)) return item.get();
  return nullptr;
}

Control& Controls::Add(ControlKind kind, std::string name) {
  items_.push_back(std::make_unique<Control>(kind, std::move(name)));
  return *items_.back();
}

bool Controls::Remove(std::string_view name) {
  const auto found = std::find_if(items_.begin(), items_.end(),
                                  [&](const auto& item) { return EqualsNoCase(item->Name, name); });
  if (found == items_.end()) return false;
  items_.erase(found);
  return true;
}

Section::Section(const Section& other)
    : Name(other.Name),
      Height(other.Height),
      Visible(other.Visible),
      PrintSection(other.PrintSection),
      PageBreak(other.PageBreak),
      DataField(other.DataField),
      HeaderName(other.HeaderName),
      ColumnCount(other.ColumnCount),
      Direction(other.Direction),
      ColumnSpacing(other.ColumnSpacing),
      type_(other.type_) {
  for (const auto& item : other.controls_.items_) controls_.items_.push_back(std::make_unique<Control>(*item));
}

void Section::ResetTo(const Section& design) {
  Name = design.Name;
  Height = design.Height;
  Visible = design.Visible;
  PrintSection = design.PrintSection;
  PageBreak = design.PageBreak;
  DataField = design.DataField;
  HeaderName = design.HeaderName;
  ColumnCount = design.ColumnCount;
  Direction = design.Direction;
  ColumnSpacing = design.ColumnSpacing;
  // Designed controls are the first ones, in design order; whatever a run added follows them.
  auto& items = controls_.items_;
  const auto& designed = design.controls_.items_;
  if (items.size() > designed.size()) items.resize(designed.size());
  for (std::size_t i = 0; i < designed.size(); ++i) {
    if (i < items.size())
      *items[i] = *designed[i];
    else
      items.push_back(std::make_unique<Control>(*designed[i]));
  }
}

}  // namespace lupin::engine
