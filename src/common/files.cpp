#include "common/files.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <system_error>

#include "common/text.h"

namespace lupin::files {
namespace {

std::size_t LastSeparator(std::string_view path) { return path.find_last_of("\\/"); }

// A well-formed UTF-8 sequence check: overlong forms and surrogates count as invalid, so a CP932
// file is never mistaken for UTF-8.
bool IsValidUtf8(std::string_view bytes) {
  std::size_t i = 0;
  while (i < bytes.size()) {
    const auto lead = static_cast<unsigned char>(bytes[i]);
    int extra = 0;
    char32_t code = 0;
    char32_t minimum = 0;
    if (lead < 0x80) {
      ++i;
      continue;
    } else if ((lead & 0xE0) == 0xC0) {
      extra = 1, code = lead & 0x1F, minimum = 0x80;
    } else if ((lead & 0xF0) == 0xE0) {
      extra = 2, code = lead & 0x0F, minimum = 0x800;
    } else if ((lead & 0xF8) == 0xF0) {
      extra = 3, code = lead & 0x07, minimum = 0x10000;
    } else {
      return false;
    }
    if (i + static_cast<std::size_t>(extra) >= bytes.size()) return false;
    for (int k = 1; k <= extra; ++k) {
      const auto next = static_cast<unsigned char>(bytes[i + static_cast<std::size_t>(k)]);
      if ((next & 0xC0) != 0x80) return false;
      code = (code << 6) | (next & 0x3F);
    }
    if (code < minimum || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return false;
    i += static_cast<std::size_t>(extra) + 1;
  }
  return true;
}

std::string ErrnoText(const std::string& what, int error_number) {
  return what + ": " + std::strerror(error_number);
}

// Writes every byte, retrying on short writes and interrupts.
bool WriteAll(int fd, std::string_view content) {
  const char* data = content.data();
  std::size_t left = content.size();
  while (left > 0) {
    const ssize_t written = ::write(fd, data, left);
    if (written < 0) {
      if (errno == EINTR) continue;
      return false;
    }
    data += written;
    left -= static_cast<std::size_t>(written);
  }
  return true;
}

}  // namespace

bool FileExists(std::string_view path) {
  if (path.empty()) return false;
  // The old path search took folder and file name apart at the last separator; a bare name or a
  // trailing separator names no file.
  const std::string name = FileNameOf(path);
  if (name.empty()) return false;
  std::string native(path);
  for (char& c : native)
    if (c == '\\') c = '/';
  std::error_code error;
  return std::filesystem::is_regular_file(native, error);
}

std::string FileNameOf(std::string_view path) {
  const std::size_t at = LastSeparator(path);
  return std::string(at == std::string_view::npos ? path : path.substr(at + 1));
}

std::string FolderOf(std::string_view path) {
  const std::size_t at = LastSeparator(path);
  return at == std::string_view::npos ? std::string() : std::string(path.substr(0, at));
}

bool ReplaceFileAtomically(const std::filesystem::path& target, std::string_view content,
                           std::string* error) {
  std::filesystem::path folder = target.parent_path();
  if (folder.empty()) folder = ".";
  const std::filesystem::path temp = PartFileBeside(target.parent_path().empty() ? folder / target : target);

  const int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
  if (fd < 0) {
    if (error) *error = ErrnoText(temp.string(), errno);
    return false;
  }
  const bool written = WriteAll(fd, content) && ::fsync(fd) == 0;
  const int write_errno = errno;
  const bool closed = ::close(fd) == 0;
  if (!written || !closed) {
    if (error) *error = ErrnoText(target.string(), written ? errno : write_errno);
    ::unlink(temp.c_str());
    return false;
  }
  if (::rename(temp.c_str(), target.c_str()) != 0) {
    if (error) *error = ErrnoText(target.string(), errno);
    ::unlink(temp.c_str());
    return false;
  }
  // Make the rename itself durable.
  const int dir_fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (dir_fd >= 0) {
    ::fsync(dir_fd);
    ::close(dir_fd);
  }
  return true;
}

std::filesystem::path PartFileBeside(const std::filesystem::path& target) {
  // Unique per call, so two writers of one folder never share a temporary.
  static std::atomic<unsigned> serial{0};
  std::filesystem::path temp = target;
  temp += ".part-" + std::to_string(::getpid()) + "-" + std::to_string(++serial);
  return temp;
}

int RemoveStalePartFiles(const std::filesystem::path& folder) {
  int removed = 0;
  std::error_code error;
  std::filesystem::directory_iterator it(folder.empty() ? std::filesystem::path(".") : folder, error);
  for (; !error && it != std::filesystem::directory_iterator(); it.increment(error)) {
    const std::string name = it->path().filename().string();
    const auto at = name.rfind(".part-");
    if (at == std::string::npos) continue;
    // "<pid>-<serial>" after the marker, digits only.
    const std::string rest = name.substr(at + 6);
    const auto dash = rest.find('-');
    if (dash == std::string::npos || dash == 0 || dash + 1 == rest.size() ||
        rest.find_first_not_of("0123456789-") != std::string::npos) {
      continue;
    }
    const long pid = std::strtol(rest.substr(0, dash).c_str(), nullptr, 10);
    if (pid <= 0 || (::kill(static_cast<pid_t>(pid), 0) == 0 || errno != ESRCH)) continue;
    std::error_code ignored;
    if (std::filesystem::remove(it->path(), ignored)) ++removed;
  }
  return removed;
}

std::string ReadFirstLine(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return {};
  std::string content((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  std::string_view view(content);
  if (view.starts_with("\xEF\xBB\xBF")) view.remove_prefix(3);
  const std::size_t end = view.find_first_of("\r\n");
  std::string_view line = view.substr(0, end == std::string_view::npos ? view.size() : end);
  if (IsValidUtf8(line)) return std::string(line);
  return text::FromCp932(line);
}

}  // namespace lupin::files
