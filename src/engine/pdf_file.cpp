#include "engine/pdf_file.h"

#include <zlib.h>

#include <new>

#include "engine/pdf_syntax.h"

namespace lupin::engine::pdf {

namespace {
constexpr std::size_t kBufferBytes = 1 << 20;
}

struct Deflater::State {
  z_stream stream{};
};

Deflater::Deflater() : state_(std::make_unique<State>()) {
  if (deflateInit(&state_->stream, Z_DEFAULT_COMPRESSION) != Z_OK) throw std::bad_alloc();
}

Deflater::~Deflater() { deflateEnd(&state_->stream); }

void Deflater::Compress(std::string_view data, std::string& out) {
  z_stream& z = state_->stream;
  deflateReset(&z);
  out.resize(deflateBound(&z, static_cast<uLong>(data.size())));
  z.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.data()));
  z.avail_in = static_cast<uInt>(data.size());
  z.next_out = reinterpret_cast<Bytef*>(out.data());
  z.avail_out = static_cast<uInt>(out.size());
  // The output is bound-sized, so one call finishes the stream.
  if (deflate(&z, Z_FINISH) != Z_STREAM_END) throw std::bad_alloc();
  out.resize(out.size() - z.avail_out);
}

PdfFile::~PdfFile() {
  if (file_ != nullptr) std::fclose(file_);
}

bool PdfFile::Open(const std::string& path) {
  file_ = std::fopen(path.c_str(), "wb");
  if (file_ == nullptr) return false;
  buffer_.resize(kBufferBytes);
  std::setvbuf(file_, buffer_.data(), _IOFBF, buffer_.size());
  // The second line's high bytes tell transfer programs the file is binary.
  Write("%PDF-1.5\n%\xE2\xE3\xCF\xD3\n");
  return !failed_;
}

int PdfFile::Reserve() {
  offsets_.push_back(0);
  return static_cast<int>(offsets_.size() - 1);
}

void PdfFile::Write(std::string_view bytes) {
  if (failed_ || file_ == nullptr) return;
  if (std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size()) failed_ = true;
  offset_ += bytes.size();
}

void PdfFile::Start(int number) {
  offsets_[static_cast<std::size_t>(number)] = offset_;
  scratch_.clear();
  AppendInt(scratch_, number);
  scratch_ += " 0 obj\n";
  Write(scratch_);
}

void PdfFile::Object(int number, std::string_view body) {
  Start(number);
  Write(body);
  EndObject();
}

void PdfFile::BeginObject(int number) { Start(number); }

void PdfFile::Stream(int number, std::string_view dictionary, std::string_view data) {
  Start(number);
  scratch_ = "<< /Length ";
  AppendInt(scratch_, static_cast<std::int64_t>(data.size()));
  scratch_ += ' ';
  scratch_ += dictionary;
  scratch_ += " >>\nstream\n";
  Write(scratch_);
  Write(data);
  Write("\nendstream\nendobj\n");
}

bool PdfFile::Finish(int root, int info) {
  const std::uint64_t xref = offset_;
  scratch_ = "xref\n0 ";
  AppendInt(scratch_, static_cast<std::int64_t>(offsets_.size()));
  scratch_ += "\n0000000000 65535 f \n";
  Write(scratch_);
  // Entry by entry through the file's buffer: the table of a long run is megabytes.
  for (std::size_t n = 1; n < offsets_.size(); ++n) {
    char entry[21];
    std::snprintf(entry, sizeof entry, "%010llu 00000 n \n", static_cast<unsigned long long>(offsets_[n]));
    Write(std::string_view(entry, 20));
  }
  scratch_ = "trailer\n<< /Size ";
  AppendInt(scratch_, static_cast<std::int64_t>(offsets_.size()));
  scratch_ += " /Root ";
  AppendInt(scratch_, root);
  scratch_ += " 0 R /Info ";
  AppendInt(scratch_, info);
  scratch_ += " 0 R >>\nstartxref\n";
  AppendInt(scratch_, static_cast<std::int64_t>(xref));
  scratch_ += "\n%%EOF\n";
  Write(scratch_);
  if (file_ != nullptr && std::fclose(file_) != 0) failed_ = true;
  file_ = nullptr;
  return !failed_;
}

}  // namespace lupin::engine::pdf
