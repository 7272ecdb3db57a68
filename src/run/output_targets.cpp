#include "run/output_targets.h"

#include <unistd.h>

#include <system_error>
#include <vector>

#include "common/files.h"
#include "engine/printer.h"

namespace lupin::run {

namespace {

std::string Quoted(const std::filesystem::path& path) { return "'" + path.string() + "'"; }

std::filesystem::path FolderOf(const std::filesystem::path& path) {
  return path.parent_path().empty() ? std::filesystem::path(".") : path.parent_path();
}

std::string PrinterNames(const std::vector<engine::PrinterInfo>& printers) {
  if (printers.empty()) return "(プリンタがありません)";
  std::string names;
  for (const auto& printer : printers) {
    if (!names.empty()) names += ", ";
    names += printer.name + (printer.is_default ? " (既定)" : "");
  }
  return names;
}

}  // namespace

std::string CheckWritableFile(std::string_view what, const std::filesystem::path& path) {
  const std::string head = std::string(what) + ": " + Quoted(path) + " に書き込めません。";
  std::error_code error;
  const std::filesystem::path folder = FolderOf(path);
  if (!std::filesystem::is_directory(folder, error)) return head + "フォルダ " + Quoted(folder) + " がありません。";
  if (std::filesystem::is_directory(path, error)) return head + "同じ名前のフォルダがあります。";
  if (::access(folder.c_str(), W_OK | X_OK) != 0) return head + "フォルダ " + Quoted(folder) + " に書き込む権限がありません。";
  if (std::filesystem::exists(path, error) && ::access(path.c_str(), W_OK) != 0) {
    return head + "既にあるファイルを書き換える権限がありません。";
  }
  return "";
}

std::string CheckPreviewOutputs(const PreviewOutputs& outputs) {
  const std::pair<const char*, const std::string*> files[] = {
      {"--pdf", &outputs.pdf}, {"--dump", &outputs.dump}, {"--print-pdf", &outputs.print_pdf}};
  for (const auto& [what, file] : files) {
    if (file->empty()) continue;
    if (std::string refusal = CheckWritableFile(what, *file); !refusal.empty()) return refusal;
  }
  if (!outputs.png_dir.empty()) {
    const std::filesystem::path folder(outputs.png_dir);
    std::error_code error;
    if (std::filesystem::exists(folder, error)) {
      if (!std::filesystem::is_directory(folder, error)) return "--png: " + Quoted(folder) + " はフォルダではありません。";
      if (::access(folder.c_str(), W_OK | X_OK) != 0) return "--png: フォルダ " + Quoted(folder) + " に書き込む権限がありません。";
    } else if (std::string refusal = CheckWritableFile("--png", folder); !refusal.empty()) {
      return refusal;  // the folder is made in a folder that must exist
    }
  }
  return "";
}

std::string CheckPrinter(const std::string& device) {
  std::string why;
  const std::vector<engine::PrinterInfo> printers = engine::ListPrinters(&why);
  if (printers.empty() && !why.empty()) return "--print: " + why;
  if (device.empty()) {
    for (const auto& printer : printers) {
      if (printer.is_default) return "";
    }
    return "--print: 既定のプリンタがありません。--print PRINTER でプリンタを指定するか、--print-pdf FILE でファイルに書き出してください。使えるプリンタ: " +
           PrinterNames(printers);
  }
  for (const auto& printer : printers) {
    if (printer.name == device) return "";
  }
  return "--print: プリンタ '" + device + "' がありません。使えるプリンタ: " + PrinterNames(printers);
}

void RemoveStaleOutputParts(const PreviewOutputs& outputs) {
  for (const std::string* file : {&outputs.pdf, &outputs.dump, &outputs.print_pdf}) {
    if (!file->empty()) files::RemoveStalePartFiles(FolderOf(*file));
  }
}

}  // namespace lupin::run
