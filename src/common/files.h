#pragma once
// Path helpers and atomic file replacement.
#include <filesystem>
#include <string>
#include <string_view>

namespace lupin::files {

bool FileExists(std::string_view path);
std::string FileNameOf(std::string_view path);  // after the last "\" or "/"
std::string FolderOf(std::string_view path);    // before the last "\" or "/"
// Writes the whole content to a temporary file beside target, then renames it over target, so
// target is either the old file or the complete new one. Returns false with a message on failure.
bool ReplaceFileAtomically(const std::filesystem::path& target, std::string_view content,
                           std::string* error = nullptr);
// The temporary file an atomic write fills beside target: "<target>.part-<pid>-<serial>".
std::filesystem::path PartFileBeside(const std::filesystem::path& target);
// Removes the temporaries of atomic writes in folder that processes no longer running left behind
// (a run killed while writing); returns how many went.
int RemoveStalePartFiles(const std::filesystem::path& folder);
// The first line of a text file (CR LF or LF), "" when missing; CP932 files are converted.
std::string ReadFirstLine(const std::filesystem::path& file);

}  // namespace lupin::files
