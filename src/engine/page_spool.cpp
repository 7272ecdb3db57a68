#include "engine/page_spool.h"

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>

namespace lupin::engine {

namespace {

class Writer {
 public:
  explicit Writer(std::FILE* file) : file_(file) {}
  void Int(std::int64_t value) { Raw(&value, sizeof value); }
  void Real(double value) { Raw(&value, sizeof value); }
  void Text(const std::string& value) {
    Int(static_cast<std::int64_t>(value.size()));
    Raw(value.data(), value.size());
  }
  void Raw(const void* data, std::size_t size) {
    if (size != 0 && std::fwrite(data, 1, size, file_) != size) throw std::runtime_error("ページの一時ファイルに書き込めません。");
  }

 private:
  std::FILE* file_;
};

class Reader {
 public:
  explicit Reader(std::FILE* file) : file_(file) {}
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
    std::string value(static_cast<std::size_t>(Int()), '\0');
    Raw(value.data(), value.size());
    return value;
  }
  void Raw(void* data, std::size_t size) {
    if (size != 0 && std::fread(data, 1, size, file_) != size) throw std::runtime_error("ページの一時ファイルを読めません。");
  }

 private:
  std::FILE* file_;
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
  Writer out(file_);
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
  ++count_;
}

void PageSpool::Replay(const std::function<void(Page&, const std::vector<int>&)>& visit) {
  std::fflush(file_);
  std::rewind(file_);
  Reader in(file_);
  Page page;
  std::vector<int> deferred;
  for (int n = 0; n < count_; ++n) {
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
