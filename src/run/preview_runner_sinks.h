#pragma once
// What the engine-backed preview puts between a run and its files: one sink feeding several, an
// output file that appears only when complete, and the pages kept for the print command.
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "engine/page_model.h"
#include "engine/page_spool.h"
#include "run/preview_runner.h"

namespace lupin::run {

// Hands every page to each sink in turn and counts the pages.
class FanOutSink : public engine::PageSink {
 public:
  explicit FanOutSink(PreviewProgress progress = nullptr) : progress_(std::move(progress)) {}
  void Add(engine::PageSink& sink) { sinks_.push_back(&sink); }

  void Begin(const engine::DocumentInfo& info) override;
  void AddPage(const engine::Page& page) override;
  void End() override;

  int Pages() const { return pages_; }

 private:
  std::vector<engine::PageSink*> sinks_;
  PreviewProgress progress_;
  int pages_ = 0;
};

// A file written under a temporary name beside its target and renamed over it by Commit, so the
// target is either the old file or the complete new one. Dropped uncommitted, the temporary goes.
class PendingFile {
 public:
  explicit PendingFile(std::filesystem::path target);
  ~PendingFile();
  PendingFile(const PendingFile&) = delete;
  PendingFile& operator=(const PendingFile&) = delete;

  const std::filesystem::path& TempPath() const { return temp_; }
  const std::filesystem::path& Target() const { return target_; }
  // False with the reason when the rename fails.
  bool Commit(std::string& error);

 private:
  std::filesystem::path target_;
  std::filesystem::path temp_;
  bool committed_ = false;
};

// The first output file of outputs whose folder does not exist, "" when all can be written there.
// Checked before a run, so that nothing is booked for pages that could never be saved.
std::string MissingOutputFolder(const PreviewOutputs& outputs);

// Keeps the pages of a run on disk, so that the print command sends the pages the preview laid
// out without running the report again. Memory stays flat however long the run.
class KeptPages : public engine::PageSink {
 public:
  void Begin(const engine::DocumentInfo& info) override;
  void AddPage(const engine::Page& page) override;
  void End() override {}

  int Count() const { return spool_ ? spool_->Count() : 0; }
  // Plays the kept pages into a sink, Begin to End.
  void Replay(engine::PageSink& sink);

 private:
  engine::DocumentInfo info_;
  std::unique_ptr<engine::PageSpool> spool_;
};

}  // namespace lupin::run
