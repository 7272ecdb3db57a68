#include "layout/format_parser.h"

#include <cfloat>
#include <cmath>
#include <fstream>
#include <iterator>
#include <limits>
#include <stdexcept>
#include <system_error>

#include "common/ascii.h"
#include "common/text.h"
#include "common/vb.h"

namespace lupin::layout {

namespace {

constexpr std::size_t kNone = std::string::npos;
using text::EqualsAsciiNoCase;
using text::FoldAscii;

// Search ignoring ASCII case. The tags are ASCII, and a UTF-8 text never holds an ASCII byte
// inside another character, so a byte search finds exactly what a character search finds.
std::size_t FindNoCase(const std::string& text, std::string_view find, std::size_t from) {
  if (find.empty() || from > text.size() || text.size() - from < find.size()) return kNone;
  for (std::size_t at = from; at + find.size() <= text.size(); ++at) {
    std::size_t i = 0;
    while (i < find.size() && FoldAscii(text[at + i]) == FoldAscii(find[i])) ++i;
    if (i == find.size()) return at;
  }
  return kNone;
}


// CR LF pairs and tabs have no meaning; a lone CR or LF stays.
std::string StripLineEnds(const std::string& text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\t') continue;
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
      ++i;
      continue;
    }
    result.push_back(text[i]);
  }
  return result;
}

float ToSingle(double value) {
  if (std::fabs(value) > FLT_MAX) throw std::overflow_error("overflow");
  return static_cast<float>(value);
}

std::int16_t ToInteger(double value) {
  const double rounded = std::nearbyint(value);  // half to even
  if (rounded < std::numeric_limits<std::int16_t>::min() || rounded > std::numeric_limits<std::int16_t>::max())
    throw std::overflow_error("overflow");
  return static_cast<std::int16_t>(rounded);
}

}  // namespace

std::string FormatFileName(std::int32_t report_number) {
  std::string digits = std::to_string(report_number < 0 ? -static_cast<std::int64_t>(report_number) : report_number);
  if (digits.size() < 2) digits.insert(0, 2 - digits.size(), '0');
  return "form_" + std::string(report_number < 0 ? "-" : "") + digits + clsRptFmtConstat().ReportFormatExtent();
}

std::filesystem::path clsRptFmtParser::DirectoryOfPath(const std::filesystem::path& path) {
  const std::string text = path.string();
  std::size_t cut = text.rfind('\\');
  if (cut == kNone) cut = text.rfind('/');
  if (cut == kNone) return ".";
  return std::filesystem::path(text.substr(0, cut == 0 ? 1 : cut));
}

std::optional<std::filesystem::path> clsRptFmtParser::FormatFileExists(const std::filesystem::path& path) const {
  if (path.empty()) return std::nullopt;
  std::error_code error;
  if (std::filesystem::is_regular_file(path, error)) return path;
  const std::filesystem::path directory = DirectoryOfPath(path);
  const std::string name = path.filename().string();
  for (std::filesystem::directory_iterator it(directory, error), end; !error && it != end; it.increment(error)) {
    if (EqualsAsciiNoCase(it->path().filename().string(), name) && it->is_regular_file(error)) return it->path();
  }
  return std::nullopt;
}

std::string clsRptFmtParser::formatName() const {
  try {
    const auto found = FormatFileExists(path_);
    if (!found) return "";
    std::ifstream in(*found, std::ios::binary);
    if (!in) return "";
    std::string line;
    char c;
    while (in.get(c) && c != '\r' && c != '\n') line.push_back(c);
    const std::string text = text::FromCp932(line);
    const std::size_t start = FindNoCase(text, constants_.FormatNameStart(), 0);
    if (start == kNone) return "";
    const std::size_t value = start + constants_.FormatNameStart().size();
    const std::size_t end = text.find(constants_.FormatNameEnd(), value);
    if (end == kNone) return "";
    return text.substr(value, end - value);
  } catch (...) {
    return "";
  }
}

std::int16_t clsRptFmtParser::Parse(std::vector<clsRptFmtRow>& rows) {
  rows.clear();
  const auto found = FormatFileExists(path_);
  if (!found) return -1;
  try {
    std::ifstream in(*found, std::ios::binary);
    if (!in) return -1;
    std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    // The old reader sized its buffer by the file's length: an empty file was a fault.
    if (bytes.empty()) return -1;
    return ParseText(text::FromCp932(bytes), rows);
  } catch (...) {
    rows.clear();
    row_index_ = -1;
    return -1;
  }
}

std::int16_t clsRptFmtParser::ParseText(std::string text, std::vector<clsRptFmtRow>& rows) {
  rows.clear();
  row_index_ = -1;
  text = StripLineEnds(text);
  ParseSections(text, rows);
  return row_index_;
}

void clsRptFmtParser::ParseSections(const std::string& text, std::vector<clsRptFmtRow>& rows) {
  const std::string start_tag = constants_.SectionNameStart();
  const std::string end_tag = constants_.SectionEnd();
  std::string section_name;
  std::size_t pos = 0;
  while (true) {
    const std::size_t start = FindNoCase(text, start_tag, pos);
    if (start == kNone) return;
    const std::size_t end = FindNoCase(text, end_tag, start + 1);
    if (end == kNone) return;
    const std::string section = text.substr(start, end + end_tag.size() - start);
    const std::size_t name_start = FindNoCase(section, start_tag, 0);
    if (name_start != kNone) {
      const std::size_t name_end = section.find(constants_.SectionNameEnd(), name_start + start_tag.size());
      if (name_end != kNone) section_name = section.substr(name_start + start_tag.size(), name_end - name_start - start_tag.size());
    }
    ParseFields(section, section_name, rows);
    pos = end + end_tag.size();
  }
}

void clsRptFmtParser::ParseFields(const std::string& section_text, const std::string& section_name,
                                  std::vector<clsRptFmtRow>& rows) {
  const std::string start_tag = constants_.FieldNameStart();
  const std::string end_tag = constants_.FieldEnd();
  std::size_t pos = 0;
  while (true) {
    const std::size_t start = FindNoCase(section_text, start_tag, pos);
    if (start == kNone) return;
    const std::size_t end = FindNoCase(section_text, end_tag, start + 1);
    if (end == kNone) return;
    if (row_index_ == std::numeric_limits<std::int16_t>::max()) throw std::overflow_error("overflow");
    ++row_index_;
    rows.emplace_back();
    rows.back().Section = section_name;
    ParseField(section_text.substr(start, end + end_tag.size() - start), rows.back());
    pos = end + end_tag.size();
  }
}

void clsRptFmtParser::ParseField(std::string text, clsRptFmtRow& row) {
  const std::string start_tag = constants_.FieldNameStart();
  const std::size_t name_start = FindNoCase(text, start_tag, 0);
  if (name_start != kNone) {
    const std::size_t name_end = text.find(constants_.FieldNameEnd(), name_start + start_tag.size());
    if (name_end != kNone) {
      row.Name = text.substr(name_start + start_tag.size(), name_end - name_start - start_tag.size());
      text.erase(0, name_end + 1);
    }
  }

  const std::string open_tag = constants_.AttributeStart();
  const std::string close_tag = constants_.AttributeEnd();
  const std::string end_mark = constants_.EndTagIndicate();
  // pos is where the next search for "<" starts.
  std::size_t pos = 0;
  while (true) {
    const std::size_t open = text.find(open_tag, pos);
    if (open == kNone) return;
    const std::size_t close = text.find(close_tag, open + 1);
    if (close == kNone) return;
    const std::string word = text.substr(open + 1, close - open - 1);
    if (word.compare(0, end_mark.size(), end_mark) == 0) return;
    const std::size_t value_start = close + 1;
    // The end tag is looked for from one place past the value's start, so an empty value never
    // finds its own end tag; the scan then creeps on and stops at that end tag.
    const std::size_t end = text.find(open_tag + end_mark + word + close_tag, value_start + 1);
    std::string value;
    if (end != kNone) {
      value = text.substr(value_start, end - value_start);
      pos = end + 2;
    } else {
      ++pos;
    }

    if (EqualsAsciiNoCase(word, constants_.AttributeTitle())) {
      row.title = value;
    } else if (EqualsAsciiNoCase(word, constants_.AttributeText())) {
      row.Text = value;
    } else if (EqualsAsciiNoCase(word, constants_.AttributeFontName())) {
      row.FontName = value;
    } else if (EqualsAsciiNoCase(word, constants_.AttributeVisible())) {
      row.Visible = vb::Val(value) != 0;
    } else if (EqualsAsciiNoCase(word, constants_.AttributeFontSize())) {
      row.FontSize = ToInteger(vb::Val(value));
    } else if (EqualsAsciiNoCase(word, constants_.AttributeWidth())) {
      row.Width = ToSingle(vb::Val(value));
    } else if (EqualsAsciiNoCase(word, constants_.AttributeHeight())) {
      row.Height = ToSingle(vb::Val(value));
    } else if (EqualsAsciiNoCase(word, constants_.AttributeLeft())) {
      row.Left = ToSingle(vb::Val(value));
    } else if (EqualsAsciiNoCase(word, constants_.AttributeTop())) {
      row.Top = ToSingle(vb::Val(value));
    } else if (!word.empty()) {
      row.SetOther(word, value);
    }
  }
}

}  // namespace lupin::layout
