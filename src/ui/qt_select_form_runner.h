#pragma once
// The desktop's selection form for Lupns6pt::Show: it shows frmSelect and polls its closed flag
// every 100 ms, letting window messages run, until the form is closed.
#include "entry/select_form_runner.h"

namespace lupin::ui {

class QtSelectFormRunner : public entry::SelectFormRunner {
 public:
  void Run(entry::Context& context, std::string_view report, std::string_view command) override;
};

// Registers the desktop's runner for every Show of the process.
void RegisterDesktop();

}  // namespace lupin::ui
