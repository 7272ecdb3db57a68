#pragma once
// The vocabulary of a report format file, and where format files live.
#include <filesystem>
#include <string>

namespace lupin::entry {
struct Context;
}

namespace lupin::layout {

// The folder of the format files: the RFormatPath setting when it is not empty, else the
// component directory's "Format" folder.
std::filesystem::path FormatDirectory(const entry::Context& context);

class clsRptFmtConstat {
 public:
  explicit clsRptFmtConstat(std::filesystem::path format_dir = {}) : format_dir_(std::move(format_dir)) {}

  std::string FormatNameStart() const { return "<name="; }
  std::string FormatNameEnd() const { return ">"; }
  std::string SectionNameStart() const { return "<section="; }
  std::string SectionNameEnd() const { return ">"; }
  std::string SectionEnd() const { return "</section>"; }
  std::string FieldNameStart() const { return "<field="; }
  std::string FieldNameEnd() const { return ">"; }
  std::string FieldEnd() const { return "</field>"; }
  std::string TitleStart() const { return "<title>"; }
  std::string TitleEnd() const { return "</title>"; }
  std::string ControlStart() const { return "<control>"; }
  std::string ControlEnd() const { return "</control>"; }
  std::string TextStart() const { return "<text>"; }
  std::string TextEnd() const { return "</text>"; }
  std::string VisibleStart() const { return "<visible>"; }
  std::string VisibleEnd() const { return "</visible>"; }
  std::string FontNameStart() const { return "<fontname>"; }
  std::string FontNameEnd() const { return "</fontname>"; }
  std::string FontSizeStart() const { return "<fontsize>"; }
  std::string FontSizeEnd() const { return "</fontsize>"; }
  std::string WidthStart() const { return "<width>"; }
  std::string WidthEnd() const { return "</width>"; }
  std::string HeightStart() const { return "<height>"; }
  std::string HeightEnd() const { return "</height>"; }
  std::string LeftStart() const { return "<left>"; }
  std::string LeftEnd() const { return "</left>"; }
  std::string TopStart() const { return "<top>"; }
  std::string TopEnd() const { return "</top>"; }
  std::string AlignmentStart() const { return "<alignment>"; }
  std::string AlignmentEnd() const { return "</alignment>"; }
  std::string AttributeStart() const { return "<"; }
  std::string AttributeEnd() const { return ">"; }
  std::string AttributeTitle() const { return "title"; }
  std::string AttributeText() const { return "text"; }
  std::string AttributeVisible() const { return "visible"; }
  std::string AttributeFontName() const { return "fontname"; }
  std::string AttributeFontSize() const { return "fontsize"; }
  std::string AttributeWidth() const { return "width"; }
  std::string AttributeHeight() const { return "height"; }
  std::string AttributeLeft() const { return "left"; }
  std::string AttributeTop() const { return "top"; }
  std::string AttributeAlignment() const { return "alignment"; }
  std::string EndTagIndicate() const { return "/"; }
  std::string OrgSectionName() const { return "【独自項目】"; }
  std::filesystem::path ReportFormatDirName() const { return format_dir_; }
  std::string ReportFormatExtent() const { return ".lprf"; }
  // Where the format editor keeps the formats as delivered; never read here.
  std::filesystem::path ReportFormatInitialDirName() const { return format_dir_ / "Release"; }

 private:
  std::filesystem::path format_dir_;
};

}  // namespace lupin::layout
