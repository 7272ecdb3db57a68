#pragma once
// What can be checked about a run's outputs before anything is booked: the files can be written
// where they are asked for, the printer exists. A refusal names the path or printer and the reason.
#include <filesystem>
#include <string>
#include <string_view>

#include "run/preview_runner.h"

namespace lupin::run {

// "" when a file can be written at path (its folder exists and takes files, the path is no folder,
// an existing file may be replaced); otherwise the refusal, starting with what (e.g. "--pdf").
std::string CheckWritableFile(std::string_view what, const std::filesystem::path& path);

// The same for every file and folder output of a page run.
std::string CheckPreviewOutputs(const PreviewOutputs& outputs);

// "" when the print server has the printer (device "" means the default printer), otherwise the
// refusal with the printers there are.
std::string CheckPrinter(const std::string& device);

// Removes the temporaries that killed runs left beside every output of outputs.
void RemoveStaleOutputParts(const PreviewOutputs& outputs);

}  // namespace lupin::run
