#include "run/preview_runner_sinks.h"

#include <system_error>

#include "common/files.h"

namespace lupin::run {

void FanOutSink::Begin(const engine::DocumentInfo& info) {
  pages_ = 0;
  for (auto* sink : sinks_) sink->Begin(info);
}

void FanOutSink::AddPage(const engine::Page& page) {
  for (auto* sink : sinks_) sink->AddPage(page);
  ++pages_;
  if (progress_) progress_(pages_);
}

void FanOutSink::End() {
  for (auto* sink : sinks_) sink->End();
}

PendingFile::PendingFile(std::filesystem::path target) : target_(std::move(target)), temp_(files::PartFileBeside(target_)) {}

PendingFile::~PendingFile() {
  if (committed_) return;
  std::error_code ignored;
  std::filesystem::remove(temp_, ignored);
}

bool PendingFile::Commit(std::string& error) {
  std::error_code ec;
  std::filesystem::rename(temp_, target_, ec);
  if (ec) {
    error = "ファイル '" + target_.string() + "' を書き込めません: " + ec.message();
    return false;
  }
  committed_ = true;
  return true;
}

std::string MissingOutputFolder(const PreviewOutputs& outputs) {
  for (const std::string* file : {&outputs.pdf, &outputs.dump, &outputs.print_pdf}) {
    if (file->empty()) continue;
    const auto folder = std::filesystem::path(*file).parent_path();
    std::error_code ec;
    if (!folder.empty() && !std::filesystem::is_directory(folder, ec)) return *file;
  }
  return "";
}

void KeptPages::Begin(const engine::DocumentInfo& info) {
  info_ = info;
  spool_ = std::make_unique<engine::PageSpool>();
}

void KeptPages::AddPage(const engine::Page& page) { spool_->Write(page, {}); }

void KeptPages::Replay(engine::PageSink& sink) {
  sink.Begin(info_);
  if (spool_) spool_->Replay([&](engine::Page& page, const std::vector<int>&) { sink.AddPage(page); });
  sink.End();
}

}  // namespace lupin::run
