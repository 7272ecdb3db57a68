#pragma once
// The selection form as the entry object sees it: something that runs until the user closes it.
// The run layer or the desktop implements it and registers it at start-up.
#include <string_view>

namespace lupin::entry {

struct Context;

class SelectFormRunner {
 public:
  virtual ~SelectFormRunner() = default;
  // Runs the selection form for the given preselected report name and command string and returns
  // when the form has been closed; window messages keep running meanwhile.
  virtual void Run(Context& context, std::string_view report, std::string_view command) = 0;
};

// The runner that Show uses when the entry object was given none; not owned.
inline SelectFormRunner*& RegisteredSelectFormRunnerSlot() {
  static SelectFormRunner* runner = nullptr;
  return runner;
}
inline void RegisterSelectFormRunner(SelectFormRunner* runner) { RegisteredSelectFormRunnerSlot() = runner; }
inline SelectFormRunner* RegisteredSelectFormRunner() { return RegisteredSelectFormRunnerSlot(); }

}  // namespace lupin::entry
