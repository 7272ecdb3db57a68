#pragma once
// The interface every writer of an outside system's file meets, so the print run can dispatch to it.
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "common/grid.h"
#include "entry/context.h"
#include "entry/ui.h"

namespace lupin::exchange {

// A writer's answer: 0 done, otherwise the failure text that the print list shows.
struct FileResult {
  int code = 0;
  std::string message;
};

// One writer per outside system. It reads the checked rows of the grid (and the order tables
// through the context's connection) and writes the whole file at `path`, or leaves it untouched.
// `ui` is for a writer that must tell the user something and go on.
class FileWriter {
 public:
  virtual ~FileWriter() = default;
  virtual FileResult Write(entry::Context& context, entry::Ui& ui, const common::Grid& grid,
                           const std::filesystem::path& path) = 0;
};

// The writer of the catalogue's object name ("modEhidenCsv", "clsWellNet" …); null for a name that
// has none.
std::unique_ptr<FileWriter> MakeFileWriter(std::string_view object_name);

}  // namespace lupin::exchange
