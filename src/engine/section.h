#pragma once
// A report section and its named controls.
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/control.h"

namespace lupin::engine {

enum class SectionType { ReportHeader, PageHeader, GroupHeader, Detail, GroupFooter, PageFooter, ReportFooter };
enum class NewPage { None, Before, After, BeforeAfter };
// Label sheets: across fills a row before the next row, down fills a column first.
enum class ColumnDirection { AcrossDown, DownAcross };

std::string_view SectionTypeName(SectionType type);
bool SectionTypeFromName(std::string_view name, SectionType& type);

// The controls of one section. Controls keep their address for the section's life, so a handler
// may hold a reference from one record to the next.
class Controls {
 public:
  // The control of that name, or nullptr.
  Control* Item(std::string_view name);
  const Control* Item(std::string_view name) const;
  // Adds a control at the end; an existing name is not checked, as the old engine did not.
  Control& Add(ControlKind kind, std::string name);
  bool Remove(std::string_view name);
  std::size_t Count() const { return items_.size(); }
  Control& operator[](std::size_t index) { return *items_[index]; }
  const Control& operator[](std::size_t index) const { return *items_[index]; }
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  friend class Section;
  std::vector<std::unique_ptr<Control>> items_;
};

class Section {
 public:
  Section(SectionType type, std::string name) : Name(std::move(name)), type_(type) {}
  Section(const Section& other);
  Section& operator=(const Section&) = delete;

  SectionType Type() const { return type_; }
  lupin::engine::Controls& Controls() { return controls_; }
  const lupin::engine::Controls& Controls() const { return controls_; }

  std::string Name;
  std::int32_t Height = 0;
  bool Visible = true;
  // Whether the section prints for the current record; the engine sets it back to true before
  // each record's FetchData.
  bool PrintSection = true;
  NewPage PageBreak = NewPage::None;
  // Group header: the field (a column or a calculated field) whose change starts a new group.
  std::string DataField;
  // Group footer: the name of the group header it closes; empty pairs by position.
  std::string HeaderName;
  // Detail on label sheets: columns per row and their direction; the column width is the print
  // width shared out less the spacing.
  int ColumnCount = 1;
  ColumnDirection Direction = ColumnDirection::AcrossDown;
  std::int32_t ColumnSpacing = 0;

  // Handlers a report object binds in its constructor.
  std::function<void()> Format, BeforePrint, AfterPrint;

  // Puts the designed state back: properties of designed controls, added controls removed.
  // Controls keep their addresses.
  void ResetTo(const Section& design);

 private:
  SectionType type_;
  lupin::engine::Controls controls_;
};

}  // namespace lupin::engine
