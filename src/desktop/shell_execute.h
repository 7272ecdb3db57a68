#pragma once
// clsShellExecuteEx in desktop terms: a document or program is opened with the desktop's opener
// (xdg-open), or run directly when it is executable; with WaitOption 1 the call waits for it to end.
#include <string>
#include <vector>

namespace lupin::desktop {

class ShellExecute {
 public:
  // Opens file with the verb "open"; false with ErrMsg when it could not be started (or, when
  // waiting, ended with a non-zero status).
  bool Execute_Wait(const std::string& file, const std::vector<std::string>& arguments = {});

  int WaitOption = 0;  // 1 waits for the process to end
  int Result = 0;      // the exit status, or errno when it could not start
  std::string ErrMsg;
  std::string opener = "xdg-open";  // used for a file that is not executable
};

}  // namespace lupin::desktop
