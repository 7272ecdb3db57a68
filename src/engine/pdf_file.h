#pragma once
// Engine-internal: a PDF file written front to back, object by object, with its cross-reference
// table at the end. Object numbers are handed out on request, so an object may be referred to
// before it is written.
#include <cstdint>
#include <cstdio>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace lupin::engine::pdf {

// Compresses streams for /FlateDecode. Keeps its compressor's state (some 270 KB) from one stream
// to the next: made and freed per page it would cost the heap a grow and a trim every page. One
// per thread.
class Deflater {
 public:
  Deflater();
  ~Deflater();
  Deflater(const Deflater&) = delete;
  Deflater& operator=(const Deflater&) = delete;
  // out is replaced by the compressed data.
  void Compress(std::string_view data, std::string& out);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

class PdfFile {
 public:
  PdfFile() = default;
  ~PdfFile();
  PdfFile(const PdfFile&) = delete;
  PdfFile& operator=(const PdfFile&) = delete;

  // Creates the file and writes the header; false when it cannot be created.
  bool Open(const std::string& path);
  int Reserve();
  // "n 0 obj" … "endobj" around body.
  void Object(int number, std::string_view body);
  // The same written in pieces, for a body too long to build first (the page tree's list).
  void BeginObject(int number);
  void Append(std::string_view piece) { Write(piece); }
  void EndObject() { Write("\nendobj\n"); }
  // A stream object; dictionary holds the entries besides /Length.
  void Stream(int number, std::string_view dictionary, std::string_view data);
  // The cross-reference table and trailer, then closes the file; false when any write failed.
  bool Finish(int root, int info);
  bool Failed() const { return failed_; }

 private:
  void Write(std::string_view bytes);
  void Start(int number);

  std::FILE* file_ = nullptr;
  std::vector<char> buffer_;
  std::uint64_t offset_ = 0;
  // By object number; 0 is the free list's head. A deque grows without copying: a long run has
  // two objects a page.
  std::deque<std::uint64_t> offsets_{0};
  std::string scratch_;
  bool failed_ = false;
};

}  // namespace lupin::engine::pdf
