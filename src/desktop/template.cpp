#include "desktop/template.h"

#include <algorithm>
#include <cstddef>

namespace lupin::desktop {

namespace {

constexpr std::string_view kIfHead = "<?IF ";
constexpr std::string_view kHeadEnd = "?>";
constexpr std::string_view kEndIf = "<?ENDIF?>";
constexpr std::string_view kFieldOpen = "<@";
constexpr std::string_view kFieldClose = "@>";
// A value that holds its own marker would expand for ever; no real text needs this many fields.
constexpr int kMaxFieldExpansions = 10000;

bool IsBlankOnly(std::string_view text) { return text.find_first_not_of(" \t") == std::string_view::npos; }

bool IsWhitespaceOnly(std::string_view text) { return text.find_first_not_of(" \t\r\n") == std::string_view::npos; }

// The body without the line break that follows the head and the one (with any indentation)
// that precedes <?ENDIF?>, when the markers stand on lines of their own.
std::string CleanBody(std::string_view body) {
  if (IsWhitespaceOnly(body)) return {};
  if (body.starts_with("\r\n")) body.remove_prefix(2);
  else if (body.starts_with('\n')) body.remove_prefix(1);
  if (const std::size_t last = body.rfind('\n'); last != std::string_view::npos && IsBlankOnly(body.substr(last + 1))) {
    body = body.substr(0, last > 0 && body[last - 1] == '\r' ? last - 1 : last);
  }
  return std::string(body);
}

// Replaces the block [begin, end) by its result. A block alone on its line leaves no empty line
// when its result is empty; blanks and tabs between the block and the line's end go with it.
// Returns where the text that followed the block now begins, or the result when it has one.
std::size_t ReplaceBlock(std::string& text, std::size_t begin, std::size_t end, const std::string& result) {
  const std::size_t previous_break = begin == 0 ? std::string::npos : text.rfind('\n', begin - 1);
  const std::size_t line_begin = previous_break == std::string::npos ? 0 : previous_break + 1;
  const std::size_t next_break = text.find('\n', end);
  std::size_t line_end = next_break == std::string::npos ? text.size() : next_break;
  if (next_break != std::string::npos && line_end > end && text[line_end - 1] == '\r') --line_end;

  const bool tail_blank = IsBlankOnly(std::string_view(text).substr(end, line_end - end));
  const bool alone = tail_blank && IsBlankOnly(std::string_view(text).substr(line_begin, begin - line_begin));
  if (alone && result.empty()) {
    if (next_break != std::string::npos) {
      text.erase(line_begin, next_break + 1 - line_begin);
      return line_begin;
    }
    if (line_begin > 0) {
      // The last line of the text: its preceding line break goes instead.
      const std::size_t break_begin = line_begin >= 2 && text[line_begin - 2] == '\r' ? line_begin - 2 : line_begin - 1;
      text.erase(break_begin, text.size() - break_begin);
      return break_begin;
    }
    text.erase(line_begin, line_end - line_begin);
    return line_begin;
  }
  text.replace(begin, (tail_blank ? line_end : end) - begin, result);
  return begin;
}

// Resolves the blocks from the start. A head or block left incomplete ends all condition work,
// with the rest of the text as it stands.
void ExpandConditions(std::string& text, const db::Recordset& row) {
  std::size_t from = 0;
  while (true) {
    const std::size_t begin = text.find(kIfHead, from);
    if (begin == std::string::npos) return;
    const std::size_t left_begin = begin + kIfHead.size();
    const std::size_t left_end = text.find(' ', left_begin);
    if (left_end == std::string::npos) return;
    const std::size_t op_end = text.find(' ', left_end + 1);
    if (op_end == std::string::npos) return;
    const std::size_t right_end = text.find(kHeadEnd, op_end + 1);
    if (right_end == std::string::npos) return;
    const std::size_t body_begin = right_end + kHeadEnd.size();
    const std::size_t end_if = text.find(kEndIf, body_begin);
    if (end_if == std::string::npos) return;

    const std::string_view view(text);
    const bool holds = ConditionHolds(view.substr(left_begin, left_end - left_begin),
                                      view.substr(left_end + 1, op_end - left_end - 1),
                                      view.substr(op_end + 1, right_end - op_end - 1), row);
    const std::string result = holds ? CleanBody(view.substr(body_begin, end_if - body_begin)) : std::string();
    // The body may hold a block of its own.
    from = ReplaceBlock(text, begin, end_if + kEndIf.size(), result);
    // Every tab of the result and of the text behind it goes, not only those ending the line.
    text.erase(std::remove(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), '\t'), text.end());
  }
}

std::vector<std::string> SplitParts(std::string_view inner) {
  std::vector<std::string> parts;
  std::size_t from = 0;
  while (true) {
    const std::size_t bar = inner.find('|', from);
    parts.emplace_back(inner.substr(from, bar == std::string_view::npos ? std::string_view::npos : bar - from));
    if (bar == std::string_view::npos) return parts;
    from = bar + 1;
  }
}

void ExpandFields(std::string& text, const db::Recordset& row) {
  std::size_t from = 0;
  for (int expansions = 0; expansions < kMaxFieldExpansions;) {
    const std::size_t open = text.find(kFieldOpen, from);
    if (open == std::string::npos) return;
    const std::size_t close = text.find(kFieldClose, open + kFieldOpen.size());
    if (close == std::string::npos) {
      from = open + 1;  // an unclosed marker stays in the text
      continue;
    }
    std::vector<std::string> parts =
        SplitParts(std::string_view(text).substr(open + kFieldOpen.size(), close - open - kFieldOpen.size()));
    const std::string name = parts.front();
    if (row.Eof() || !row.HasField(name)) return;
    const db::Value& value = row[name];
    std::string replacement;
    if (!value.IsNull()) {
      parts.erase(parts.begin());
      const std::optional<std::string> formatted = FormatField(value.Text(), parts);
      if (!formatted) return;
      replacement = *formatted;
    }
    text.replace(open, close + kFieldClose.size() - open, replacement);
    ++expansions;
    // A value may itself hold a marker.
    from = 0;
  }
}

}  // namespace

void ExpandTemplate(std::string& text, const db::Recordset& row) {
  // An unfinished block stops the condition work only; the fields are filled all the same.
  ExpandConditions(text, row);
  ExpandFields(text, row);
}

}  // namespace lupin::desktop
