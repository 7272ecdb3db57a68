#include "engine/page_spool.h"

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>

namespace lupin::engine {

namespace {

// A page is put together in memory and goes to the file in one write: field by field, stdio's
// locking cost more than the fields.
class Writer {
 public:
  explicit Writer(std::string& out) : out_(out) {}
  void Int(std::int64_t value) { Raw(&value, sizeof value); }
  void Real(double value) { Raw(&value, sizeof value); }
  void Text(const std::string& value) {
    Int(static_cast<std::int64_t>(value.size()));
    Raw(value.data(), value.size());
  }
  void Raw(const void* data, std::size_t size) { out_.append(static_cast<const char*>(data), size); }

 private:
  std::string& out_;
};

class Reader {
 public:
  explicit Reader(std::string_view page) : page_(page) {}
  std::int64_t Int() {
    std::int64_t value = 0;
    Raw(&value, sizeof value);
    return value;
  }
  double Real() {
    double value = 0;
    Raw(&value, sizeof value);
    return value;
  }
  std::string Text() {
    const auto size = static_cast<std::size_t>(Int());
    if (size > page_.size() - at_) Fail();
    std::string value(page_.substr(at_, size));
    at_ += size;
    return value;
  }
  void Raw(void* data, std::size_t size) {
    if (size > page_.size() - at_) Fail();
    std::memcpy(data, page_.data() + at_, size);
    at_ += size;
  }

 private:
  [[noreturn]] static void Fail() { throw std::runtime_error("ページの一時ファイルを読めません。"); }
  std::string_view page_;
  std::size_t at_ = 0;
};

void WriteFont(Writer& out, const FontSpec& font) {
  out.Text(font.name);
  out.Real(font.size);
  out.Int((font.bold ? 1 : 0) | (font.italic ? 2 : 0) | (font.underline ? 4 : 0));
}

FontSpec ReadFont(Reader& in) {
  FontSpec font;
  font.name = in.Text();
  font.size = in.Real();
  const auto flags = in.Int();
  font.bold = (flags & 1) != 0;
  font.italic = (flags & 2) != 0;
  font.underline = (flags & 4) != 0;
  return font;
}

}  // namespace

PageSpool::PageSpool() : file_(std::tmpfile()) {
  if (file_ == nullptr) throw std::runtime_error("ページの一時ファイルを作れません。");
}

PageSpool::~PageSpool() {
  if (file_ != nullptr) std::fclose(file_);
}

void PageSpool::Write(const Page& page, const std::vector<int>& deferred) {
  buffer_.clear();
  Writer out(buffer_);
  out.Int(static_cast<std::int64_t>(deferred.size()));
  for (const int index : deferred) out.Int(index);
  out.Int(page.number);
  out.Int(page.width);
  out.Int(page.height);
  out.Int(static_cast<std::int64_t>(page.items.size()));
  for (const auto& item : page.items) {
    out.Text(item.section);
    out.Text(item.name);
    out.Int(static_cast<int>(item.kind));
    out.Text(item.text);
    out.Int(item.visible);
    out.Int(item.left);
    out.Int(item.top);
    out.Int(item.width);
    out.Int(item.height);
    WriteFont(out, item.font);
    out.Int(static_cast<int>(item.alignment));
    out.Int(item.word_wrap);
    out.Int(static_cast<int>(item.shape));
    out.Real(item.line_weight);
    out.Text(item.barcode_style);
    out.Int(item.fore_color);
    out.Int(item.back_color);
  }
  const auto length = static_cast<std::int64_t>(buffer_.size());
  if (std::fwrite(&length, sizeof length, 1, file_) != 1 || std::fwrite(buffer_.data(), 1, buffer_.size(), file_) != buffer_.size()) {
    throw std::runtime_error("ページの一時ファイルに書き込めません。");
  }
  ++count_;
}

void PageSpool::Replay(const std::function<void(Page&, const std::vector<int>&)>& visit) {
  std::fflush(file_);
  std::rewind(file_);
  Page page;
  std::vector<int> deferred;
  for (int n = 0; n < count_; ++n) {
    std::int64_t length = 0;
    if (std::fread(&length, sizeof length, 1, file_) != 1 || length < 0) throw std::runtime_error("ページの一時ファイルを読めません。");
    buffer_.resize(static_cast<std::size_t>(length));
    if (std::fread(buffer_.data(), 1, buffer_.size(), file_) != buffer_.size()) {
      throw std::runtime_error("ページの一時ファイルを読めません。");
    }
    Reader in(buffer_);
    deferred.resize(static_cast<std::size_t>(in.Int()));
    for (auto& index : deferred) index = static_cast<int>(in.Int());
    page.number = static_cast<int>(in.Int());
    page.width = static_cast<std::int32_t>(in.Int());
    page.height = static_cast<std::int32_t>(in.Int());
    page.items.resize(static_cast<std::size_t>(in.Int()));
    for (auto& item : page.items) {
      item.section = in.Text();
      item.name = in.Text();
      item.kind = static_cast<ItemKind>(in.Int());
      item.text = in.Text();
      item.visible = in.Int() != 0;
      item.left = static_cast<std::int32_t>(in.Int());
      item.top = static_cast<std::int32_t>(in.Int());
      item.width = static_cast<std::int32_t>(in.Int());
      item.height = static_cast<std::int32_t>(in.Int());
      item.font = ReadFont(in);
      item.alignment = static_cast<Alignment>(in.Int());
      item.word_wrap = in.Int() != 0;
      item.shape = static_cast<ShapeKind>(in.Int());
      item.line_weight = in.Real();
      item.barcode_style = in.Text();
      item.fore_color = static_cast<std::uint32_t>(in.Int());
      item.back_color = static_cast<std::int32_t>(in.Int());
    }
    visit(page, deferred);
  }
}

}  // namespace lupin::engine
