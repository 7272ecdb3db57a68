#include "desktop/shell_execute.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

extern char** environ;

namespace lupin::desktop {

bool ShellExecute::Execute_Wait(const std::string& file, const std::vector<std::string>& arguments) {
  ErrMsg.clear();
  Result = 0;
  std::vector<std::string> argv_text;
  // A folder is searchable, not runnable: only a program file runs by itself.
  std::error_code error;
  const bool program = std::filesystem::is_regular_file(file, error) && ::access(file.c_str(), X_OK) == 0;
  if (!program) argv_text.push_back(opener);
  argv_text.push_back(file);
  argv_text.insert(argv_text.end(), arguments.begin(), arguments.end());
  std::vector<char*> argv;
  for (auto& text : argv_text) argv.push_back(text.data());
  argv.push_back(nullptr);

  pid_t pid = 0;
  const int started = ::posix_spawnp(&pid, argv[0], nullptr, nullptr, argv.data(), environ);
  if (started != 0) {
    Result = started;
    ErrMsg = std::strerror(started);
    return false;
  }
  if (WaitOption != 1) return true;
  int status = 0;
  while (::waitpid(pid, &status, 0) < 0) {
    if (errno != EINTR) {
      Result = errno;
      ErrMsg = std::strerror(errno);
      return false;
    }
  }
  Result = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  if (Result != 0) {
    ErrMsg = argv_text.front() + " が終了コード " + std::to_string(Result) + " で終了しました。";
    return false;
  }
  return true;
}

}  // namespace lupin::desktop
