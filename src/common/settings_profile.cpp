// INI files with the semantics of the old profile-string calls.
#include <fstream>
#include <iterator>
#include <optional>
#include <vector>

#include "common/ascii.h"
#include "common/files.h"
#include "common/settings.h"
#include "common/text.h"

namespace lupin::settings {
namespace {

// The old call filled a buffer of 1,024 characters.
constexpr std::size_t kValueLimit = 1024;

struct Line {
  std::string_view body;  // without its line ending
  std::string_view end;   // "\r\n", "\n" or "" for the last line
};

std::vector<Line> SplitLines(std::string_view content) {
  std::vector<Line> lines;
  while (!content.empty()) {
    const std::size_t at = content.find('\n');
    if (at == std::string_view::npos) {
      lines.push_back({content, {}});
      break;
    }
    const bool crlf = at > 0 && content[at - 1] == '\r';
    lines.push_back({content.substr(0, crlf ? at - 1 : at), content.substr(crlf ? at - 1 : at, crlf ? 2 : 1)});
    content.remove_prefix(at + 1);
  }
  return lines;
}

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  const std::size_t last = text.find_last_not_of(" \t");
  return text.substr(first, last - first + 1);
}

constexpr auto EqualsIgnoringCase = text::EqualsAsciiNoCase;

// The name of a section header line, or nothing for any other line.
std::optional<std::string_view> SectionOf(std::string_view body) {
  const std::string_view trimmed = Trim(body);
  if (!trimmed.starts_with('[')) return std::nullopt;
  const std::size_t close = trimmed.find(']');
  if (close == std::string_view::npos) return std::nullopt;
  return Trim(trimmed.substr(1, close - 1));
}

struct Entry {
  std::string_view key;
  std::string_view value;
};

// A "key=value" line; comments and lines without "=" hold no entry.
std::optional<Entry> EntryOf(std::string_view body) {
  const std::string_view trimmed = Trim(body);
  if (trimmed.empty() || trimmed.front() == ';') return std::nullopt;
  const std::size_t equals = trimmed.find('=');
  if (equals == std::string_view::npos) return std::nullopt;
  return Entry{Trim(trimmed.substr(0, equals)), Trim(trimmed.substr(equals + 1))};
}

// Matching quotes around a value are not part of it, as with the old call.
std::string_view Unquote(std::string_view value) {
  if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front())
    return value.substr(1, value.size() - 2);
  return value;
}

// At most kValueLimit characters (code points), ending at the first NUL.
std::string CutValue(std::string_view value) {
  value = value.substr(0, value.find('\0'));
  std::size_t characters = 0;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if ((static_cast<unsigned char>(value[i]) & 0xC0) == 0x80) continue;
    if (characters == kValueLimit) return std::string(value.substr(0, i));
    ++characters;
  }
  return std::string(value);
}

constexpr std::string_view kBom = "\xEF\xBB\xBF";

// A file's text as UTF-8 and the encoding it came in: files carried over from Windows are
// Shift-JIS, so anything that is not valid UTF-8 is read as CP932 and written back as CP932.
struct IniText {
  std::string utf8;
  bool cp932 = false;
};

std::optional<IniText> ReadWhole(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return std::nullopt;
  std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (text::IsValidUtf8(std::string_view(bytes).substr(bytes.starts_with(kBom) ? kBom.size() : 0))) {
    return IniText{std::move(bytes), false};
  }
  return IniText{text::FromCp932(bytes), true};
}

}  // namespace

std::string ReadProfileString(const std::filesystem::path& file, std::string_view section,
                              std::string_view key, std::string_view default_value) {
  const std::optional<IniText> content = ReadWhole(file);
  if (!content) return CutValue(default_value);
  std::string_view view(content->utf8);
  if (view.starts_with(kBom)) view.remove_prefix(kBom.size());

  bool inside = false;
  for (const Line& line : SplitLines(view)) {
    if (const auto name = SectionOf(line.body)) {
      // Only the first section of a name counts, as with the old call.
      if (inside) break;
      inside = EqualsIgnoringCase(*name, Trim(section));
      continue;
    }
    if (!inside) continue;
    const auto entry = EntryOf(line.body);
    if (entry && EqualsIgnoringCase(entry->key, Trim(key))) return CutValue(Unquote(entry->value));
  }
  return CutValue(default_value);
}

namespace {

// The file content with one key set, every other line kept as it was.
std::string WithEntry(std::string_view content, std::string_view section, std::string_view key,
                      std::string_view value) {
  std::string_view view(content);
  const bool bom = view.starts_with(kBom);
  if (bom) view.remove_prefix(kBom.size());
  const std::vector<Line> lines = SplitLines(view);

  std::string_view eol = "\n";
  for (const Line& line : lines) {
    if (!line.end.empty()) {
      eol = line.end;
      break;
    }
  }
  const std::string entry_line = std::string(key) + "=" + std::string(value);

  // Find the section, the key inside it, and the last non-blank line of the section.
  std::optional<std::size_t> section_at, key_at, last_at;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (const auto name = SectionOf(lines[i].body)) {
      if (section_at) break;
      if (EqualsIgnoringCase(*name, section)) {
        section_at = i;
        last_at = i;
      }
      continue;
    }
    if (!section_at) continue;
    if (!Trim(lines[i].body).empty()) last_at = i;
    const auto entry = EntryOf(lines[i].body);
    if (entry && EqualsIgnoringCase(entry->key, key)) {
      key_at = i;
      break;
    }
  }

  std::string out;
  out.reserve(content.size() + entry_line.size() + section.size() + 8);
  if (bom) out += kBom;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (key_at && i == *key_at) {
      out += entry_line;
      out += lines[i].end;
      continue;
    }
    out += lines[i].body;
    if (!key_at && last_at && i == *last_at) {
      // The new key goes after the section's last entry, before the blank lines that part sections.
      out += lines[i].end.empty() ? eol : lines[i].end;
      out += entry_line;
      if (!lines[i].end.empty()) out += eol;
      continue;
    }
    out += lines[i].end;
  }
  if (!section_at) {
    if (!lines.empty() && lines.back().end.empty()) out += eol;
    out += "[";
    out += section;
    out += "]";
    out += eol;
    out += entry_line;
    out += eol;
  }
  return out;
}

}  // namespace

bool WriteProfileString(const std::filesystem::path& file, std::string_view section,
                        std::string_view key, std::string_view value) {
  const std::pair<std::string_view, std::string_view> entry{key, value};
  return WriteProfileStrings(file, section, std::span(&entry, 1));
}

bool WriteProfileStrings(const std::filesystem::path& file, std::string_view section,
                         std::span<const std::pair<std::string_view, std::string_view>> entries) {
  section = Trim(section);
  if (section.empty()) return false;
  IniText read = ReadWhole(file).value_or(IniText{});
  std::string content = std::move(read.utf8);
  for (const auto& [raw_key, raw_value] : entries) {
    const std::string_view key = Trim(raw_key);
    if (key.empty()) return false;
    // A line break in a value would split the entry in two.
    const std::string_view value = raw_value.substr(0, raw_value.find_first_of("\r\n"));
    content = WithEntry(content, section, key, value);
  }
  return files::ReplaceFileAtomically(file, read.cp932 ? text::ToCp932(content).bytes : content);
}

}  // namespace lupin::settings
