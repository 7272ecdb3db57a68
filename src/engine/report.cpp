#include "engine/report.h"

#include <algorithm>
#include <cmath>

#include "common/vb.h"
#include "engine/names.h"
#include "engine/page_spool.h"
#include "engine/text_wrap.h"

namespace lupin::engine {

namespace {

// Lines of a growing control are this many times the font's size apart.
constexpr double kLineSpacing = 1.2;

// A run that lays out this many places in a row without moving to the next record is stuck.
constexpr int kMaxKeptPlaces = 100000;

std::string FormatValue(const db::Value& value, const std::string& picture) {
  if (value.IsNull()) return "";
  if (picture.empty()) return value.Text();
  if (value.IsInteger() || value.IsReal()) return vb::Format(value.Number(), picture);
  return vb::FormatText(value.Text(), picture);
}

bool BreaksBefore(NewPage mode) { return mode == NewPage::Before || mode == NewPage::BeforeAfter; }
bool BreaksAfter(NewPage mode) { return mode == NewPage::After || mode == NewPage::BeforeAfter; }

}  // namespace

// One run of a report: the page being filled and where the next section goes.
// The height a section takes for this record, and that of each of its controls.
struct Extent {
  std::int32_t height = 0;
  std::vector<std::int32_t> heights;
};

class RunState {
 public:
  RunState(Report& report, PageSink& sink) : report_(report), sink_(sink) {}

  void Execute();
  // After a fault: hands over what was finished and closes the sink.
  void Abandon();
  int Pages() const { return pages_; }

 private:
  bool Format(Section& section);
  // Fires BeforePrint; a section it hides takes no room on the page.
  bool BeforePrint(Section& section);
  void Bind(Section& section);
  Extent Measure(const Section& section);
  void Place(Section& section, std::int32_t x, std::int32_t y, const Extent& extent);
  void Flow(Section& section);
  void FlowDetail(Section& detail, const Extent& extent);
  void DetailPlaces();
  void Footers(std::size_t from_level);
  void PairFooters();
  void FinishColumns();
  void EnsurePage();
  void OpenPage();
  void ClosePage();
  void Emit(Page& page);
  void Finish();

  Report& report_;
  PageSink& sink_;
  std::unique_ptr<PageSpool> spool_;
  bool begun_ = false, ended_ = false;

  Section* report_header_ = nullptr;
  Section* page_header_ = nullptr;
  Section* page_footer_ = nullptr;
  Section* report_footer_ = nullptr;
  std::vector<Section*> group_headers_, group_footers_;
  std::vector<Section*> footer_of_level_;  // the footer that closes each group level, or nullptr

  Page page_;
  std::vector<int> deferred_;  // items of page_ that wait for the page count
  bool page_open_ = false;
  bool first_page_ = true;
  bool break_pending_ = false;
  int pages_ = 0;
  std::int32_t sheet_width_ = 0, sheet_height_ = 0;
  std::int32_t y_ = 0, body_top_ = 0, body_bottom_ = 0;

  // Detail in columns: the row (or column band) being filled.
  bool band_open_ = false;
  int column_ = 0;
  std::int32_t band_top_ = 0, column_y_ = 0, band_bottom_ = 0;

  // The record that ended the last group, for its footers.
  std::size_t previous_position_ = 0;
  std::vector<std::pair<std::string, db::Value>> previous_fields_;
};

void RunState::Bind(Section& section) {
  for (const auto& control : section.Controls()) {
    if (control->Kind() == ControlKind::TextField && !control->DataField.empty() &&
        control->Summary == SummaryType::None)
      control->Text = FormatValue(report_.Fields().Value(control->DataField), control->OutputFormat);
  }
}

bool RunState::Format(Section& section) {
  if (!section.Visible || !section.PrintSection) return false;
  Bind(section);
  if (section.Format) section.Format();
  return section.Visible && section.PrintSection;
}

Extent RunState::Measure(const Section& section) {
  Extent extent;
  extent.height = section.Height;
  for (const auto& control : section.Controls()) {
    std::int32_t height = control->Height;
    if (control->CanGrow && control->Visible && !control->PrintedText().empty()) {
      const auto lines = WrapText(control->PrintedText(), control->Font, control->Width, control->WordWrap,
                                  report_.Measurer);
      const double line_height = control->Font.size * 20.0 * kLineSpacing;
      height = std::max(height, static_cast<std::int32_t>(std::ceil(static_cast<double>(lines.size()) * line_height)));
      extent.height = std::max(extent.height, control->Top + height);
    }
    // Controls added at run time (the list's payment labels) make their section as tall as they need.
    if (control->Visible) extent.height = std::max(extent.height, control->Top + height);
    extent.heights.push_back(height);
  }
  return extent;
}

bool RunState::BeforePrint(Section& section) {
  if (section.BeforePrint) section.BeforePrint();
  return section.Visible && section.PrintSection;
}

void RunState::Place(Section& section, std::int32_t x, std::int32_t y, const Extent& extent) {
  const std::size_t first_item = page_.items.size();
  for (const auto& control : section.Controls()) {
    PageItem item;
    item.section = section.Name;
    item.name = control->Name;
    item.kind = control->Kind();
    item.visible = control->Visible;
    item.left = x + control->Left;
    item.top = y + control->Top;
    item.width = control->Width;
    const std::size_t index = page_.items.size() - first_item;
    item.height = index < extent.heights.size() ? extent.heights[index] : control->Height;
    item.font = control->Font;
    item.alignment = control->alignment;
    item.word_wrap = control->WordWrap;
    item.shape = control->Shape;
    item.line_weight = control->LineWeight;
    item.barcode_style = control->Style;
    item.fore_color = control->ForeColor;
    item.back_color = control->BackColor;
    switch (control->Summary) {
      case SummaryType::PageNumber:
        item.text = FormatValue(db::Value(report_.page_number_), control->OutputFormat);
        break;
      case SummaryType::PageCount:
        // The picture travels in the text until the count is known.
        item.text = control->OutputFormat;
        deferred_.push_back(static_cast<int>(page_.items.size()));
        break;
      case SummaryType::None:
        item.text = control->PrintedText();
        break;
    }
    page_.items.push_back(std::move(item));
  }
  if (section.AfterPrint) section.AfterPrint();
}

void RunState::EnsurePage() {
  if (break_pending_) {
    break_pending_ = false;
    ClosePage();
  }
  if (!page_open_) OpenPage();
}

void RunState::OpenPage() {
  ++report_.page_number_;
  page_ = Page{};
  page_.number = report_.page_number_;
  page_.width = sheet_width_;
  page_.height = sheet_height_;
  deferred_.clear();
  page_open_ = true;
  band_open_ = false;
  y_ = report_.PageSettings.Top;
  body_bottom_ = sheet_height_ - report_.PageSettings.Bottom;
  if (page_footer_ && page_footer_->Visible) body_bottom_ -= page_footer_->Height;
  if (first_page_) {
    first_page_ = false;
    if (report_header_ && Format(*report_header_) && BeforePrint(*report_header_)) {
      const Extent extent = Measure(*report_header_);
      Place(*report_header_, report_.PageSettings.Left, y_, extent);
      y_ += extent.height;
    }
  }
  if (page_header_ && Format(*page_header_) && BeforePrint(*page_header_)) {
    const Extent extent = Measure(*page_header_);
    Place(*page_header_, report_.PageSettings.Left, y_, extent);
    y_ += extent.height;
  }
  body_top_ = y_;
}

void RunState::ClosePage() {
  if (!page_open_) return;
  FinishColumns();
  if (page_footer_ && Format(*page_footer_) && BeforePrint(*page_footer_)) Place(*page_footer_, report_.PageSettings.Left, body_bottom_, Measure(*page_footer_));
  page_open_ = false;
  ++pages_;
  if (spool_)
    spool_->Write(page_, deferred_);
  else
    sink_.AddPage(page_);
  page_.items.clear();
}

void RunState::FinishColumns() {
  if (!band_open_) return;
  band_open_ = false;
  y_ = band_bottom_;
  column_ = 0;
}

void RunState::Flow(Section& section) {
  if (!section.Visible || !section.PrintSection) return;
  // The page (and its header) comes before the section's own Format, as a reader expects.
  EnsurePage();
  if (!Format(section) || !BeforePrint(section)) return;
  const Extent extent = Measure(section);
  FinishColumns();
  if (BreaksBefore(section.PageBreak) && y_ > body_top_) {
    ClosePage();
    OpenPage();
  }
  if (y_ + extent.height > body_bottom_ && y_ > body_top_) {
    ClosePage();
    OpenPage();
  }
  Place(section, report_.PageSettings.Left, y_, extent);
  y_ += extent.height;
  if (BreaksAfter(section.PageBreak)) break_pending_ = true;
}

void RunState::FlowDetail(Section& detail, const Extent& extent) {
  const std::int32_t height = extent.height;
  const int columns = std::max(1, detail.ColumnCount);
  if (columns == 1) {
    if (BreaksBefore(detail.PageBreak) && y_ > body_top_) {
      ClosePage();
      OpenPage();
    }
    if (y_ + height > body_bottom_ && y_ > body_top_) {
      ClosePage();
      OpenPage();
    }
    Place(detail, report_.PageSettings.Left, y_, extent);
    y_ += height;
    if (BreaksAfter(detail.PageBreak)) break_pending_ = true;
    return;
  }

  const std::int32_t width = report_.PrintWidth > 0
                                 ? report_.PrintWidth
                                 : sheet_width_ - report_.PageSettings.Left - report_.PageSettings.Right;
  const std::int32_t column_width = (width - detail.ColumnSpacing * (columns - 1)) / columns;
  const auto column_left = [&](int column) {
    return report_.PageSettings.Left + column * (column_width + detail.ColumnSpacing);
  };
  if (detail.Direction == ColumnDirection::AcrossDown) {
    if (!band_open_) {
      if (y_ + height > body_bottom_ && y_ > body_top_) {
        ClosePage();
        OpenPage();
      }
      band_open_ = true;
      band_top_ = y_;
      band_bottom_ = y_ + height;
      column_ = 0;
    }
    Place(detail, column_left(column_), band_top_, extent);
    band_bottom_ = std::max(band_bottom_, band_top_ + height);
    if (++column_ == columns) FinishColumns();
    return;
  }

  if (!band_open_) {
    if (y_ + height > body_bottom_ && y_ > body_top_) {
      ClosePage();
      OpenPage();
    }
    band_open_ = true;
    band_top_ = column_y_ = band_bottom_ = y_;
    column_ = 0;
  }
  if (column_y_ + height > body_bottom_ && column_y_ > band_top_) {
    column_y_ = band_top_;
    if (++column_ == columns) {
      ClosePage();
      OpenPage();
      band_open_ = true;
      band_top_ = column_y_ = band_bottom_ = y_;
      column_ = 0;
    }
  }
  Place(detail, column_left(column_), column_y_, extent);
  column_y_ += height;
  band_bottom_ = std::max(band_bottom_, column_y_);
}

void RunState::DetailPlaces() {
  Section& detail = report_.Detail();
  int kept = 0;
  do {
    report_.LayoutAction = LayoutAction::Default;
    if (detail.Visible && detail.PrintSection) {
      EnsurePage();
      if (Format(detail) && BeforePrint(detail)) FlowDetail(detail, Measure(detail));
    }
    if (++kept > kMaxKeptPlaces)
      throw ReportFault(kFaultLayoutLoop, "Detail が同じレコードのまま配置を繰り返しています。");
  } while (report_.LayoutAction == LayoutAction::KeepRecord && !report_.stop_requested_);
}

void RunState::Footers(std::size_t from_level) {
  for (std::size_t level = footer_of_level_.size(); level-- > from_level;)
    if (footer_of_level_[level] != nullptr) Flow(*footer_of_level_[level]);
}

void RunState::PairFooters() {
  // A footer names its header; without names, footers close the headers innermost first.
  const bool named = std::any_of(group_footers_.begin(), group_footers_.end(),
                                 [](const Section* footer) { return !footer->HeaderName.empty(); });
  footer_of_level_.assign(group_headers_.size(), nullptr);
  for (std::size_t level = 0; level < group_headers_.size(); ++level) {
    if (named) {
      for (Section* footer : group_footers_)
        if (EqualsNoCase(footer->HeaderName, group_headers_[level]->Name)) footer_of_level_[level] = footer;
    } else if (level < group_footers_.size()) {
      footer_of_level_[level] = group_footers_[group_footers_.size() - 1 - level];
    }
  }
}

void RunState::Execute() {
  report_.ActiveReport_ReportStart();
  report_.ActiveReport_DataInitialize();

  for (Section* section : report_.Sections()) {
    switch (section->Type()) {
      case SectionType::ReportHeader: report_header_ = section; break;
      case SectionType::PageHeader: page_header_ = section; break;
      case SectionType::GroupHeader: group_headers_.push_back(section); break;
      case SectionType::GroupFooter: group_footers_.push_back(section); break;
      case SectionType::PageFooter: page_footer_ = section; break;
      case SectionType::ReportFooter: report_footer_ = section; break;
      case SectionType::Detail: break;
    }
    for (const auto& control : section->Controls())
      if (control->Summary == SummaryType::PageCount && !spool_) spool_ = std::make_unique<PageSpool>();
  }
  PairFooters();
  SheetSize(report_.Printer, sheet_width_, sheet_height_);
  sink_.Begin(DocumentInfo{report_.Name(), report_.DocumentTitle});
  begun_ = true;

  auto& recordset = report_.DataControl1.Recordset;
  auto& fields = report_.Fields();
  const std::size_t levels = group_headers_.size();
  std::vector<std::string> previous_keys(levels), keys(levels);
  long records = 0;
  while (!report_.stop_requested_) {
    for (Section* section : report_.Sections()) section->PrintSection = true;
    bool eof = !recordset || recordset->Eof();
    report_.ActiveReport_FetchData(eof);
    if (eof) break;

    for (std::size_t level = 0; level < levels; ++level)
      keys[level] = fields.Value(group_headers_[level]->DataField).Text();
    std::size_t first_break = records == 0 ? 0 : levels;
    for (std::size_t level = 0; records != 0 && level < levels; ++level) {
      if (keys[level] != previous_keys[level]) {
        first_break = level;
        break;
      }
    }
    if (records != 0 && first_break < levels) {
      // Footers see the record that ended their group.
      const std::size_t current = recordset ? recordset->AbsolutePosition() : 0;
      auto current_fields = fields.Snapshot();
      if (recordset) while (recordset->AbsolutePosition() > previous_position_) recordset->MovePrevious();
      fields.Restore(previous_fields_);
      Footers(first_break);
      if (recordset) while (recordset->AbsolutePosition() < current) recordset->MoveNext();
      fields.Restore(std::move(current_fields));
    }
    for (std::size_t level = first_break; level < levels; ++level) Flow(*group_headers_[level]);
    DetailPlaces();

    previous_keys = keys;
    previous_position_ = recordset ? recordset->AbsolutePosition() : 0;
    previous_fields_ = fields.Snapshot();
    ++records;
    if (recordset) recordset->MoveNext();
  }

  if (records == 0) {
    report_.ActiveReport_NoData();
    for (Section* header : group_headers_) Flow(*header);
    Footers(0);
  } else {
    if (recordset) while (recordset->AbsolutePosition() > previous_position_) recordset->MovePrevious();
    fields.Restore(previous_fields_);
    Footers(0);
  }
  if (report_footer_) Flow(*report_footer_);
  if (pages_ == 0 && !page_open_ && (report_header_ || page_header_ || page_footer_)) OpenPage();
  ClosePage();
  report_.ActiveReport_ReportEnd();
  Finish();
}

void RunState::Emit(Page& page) { sink_.AddPage(page); }

void RunState::Finish() {
  if (spool_) {
    const int count = spool_->Count();
    spool_->Replay([&](Page& page, const std::vector<int>& deferred) {
      for (const int index : deferred) {
        auto& item = page.items[static_cast<std::size_t>(index)];
        item.text = FormatValue(db::Value(count), item.text);
      }
      Emit(page);
    });
    spool_.reset();
  }
  ended_ = true;
  sink_.End();
}

void RunState::Abandon() {
  if (!begun_ || ended_) return;
  try {
    Finish();
  } catch (...) {
    // The sink itself failed; the run's first fault is the one reported.
  }
}

Report::Report(ReportLayout design) : design_(std::move(design)) {
  for (const auto& section : design_.sections) {
    sections_.push_back(std::make_unique<Section>(section));
    if (section.Type() == SectionType::Detail && detail_ == nullptr) detail_ = sections_.back().get();
  }
  if (detail_ == nullptr) {
    sections_.push_back(std::make_unique<Section>(SectionType::Detail, "Detail"));
    detail_ = sections_.back().get();
  }
  // The page set-up is the caller's from here on: the preview applies the report's settings
  // before each run, so a run does not put the designed values back.
  Printer = design_.printer;
  PageSettings = design_.margins;
  PrintWidth = design_.print_width;
  DocumentTitle = design_.title;
  ResetToDesign();
}

Report::~Report() = default;

Section* Report::SectionByName(std::string_view name) {
  for (auto& section : sections_)
    if (EqualsNoCase(section->Name, name)) return section.get();
  return nullptr;
}

std::vector<Section*> Report::Sections() {
  std::vector<Section*> result;
  for (auto& section : sections_) result.push_back(section.get());
  return result;
}

void Report::ResetToDesign() {
  for (std::size_t i = 0; i < design_.sections.size() && i < sections_.size(); ++i)
    sections_[i]->ResetTo(design_.sections[i]);
  LayoutAction = LayoutAction::Default;
  fields_.Clear();
  for (const auto& name : design_.fields) fields_.Add(name);
}

RunResult Report::Run(PageSink& sink) {
  ResetToDesign();
  page_number_ = 0;
  stop_requested_ = false;
  RunResult result;
  RunState state(*this, sink);
  try {
    state.Execute();
  } catch (const ReportFault& fault) {
    result.ok = false;
    result.fault = RunFault{fault.number, fault.what()};
  } catch (const std::exception& fault) {
    result.ok = false;
    result.fault = RunFault{kFaultGeneral, fault.what()};
  }
  if (!result.ok) {
    bool cancel_display = false;
    try {
      ActiveReport_Error(result.fault.number, result.fault.description, cancel_display);
    } catch (...) {
      // A failing error handler must not hide the fault it was told about.
    }
    state.Abandon();
  }
  result.pages = state.Pages();
  return result;
}

}  // namespace lupin::engine
