#pragma once
// The port through which form models talk to the user. The Qt desktop, the CLI and the tests each
// implement it; no form model decides anything about windows.
#include <string>
#include <string_view>

namespace lupin::entry {

// Message box styles of the old platform (buttons + icon), as numbers the forms pass on.
enum MessageStyle : int {
  kOkOnly = 0,
  kOkCancel = 1,
  kYesNo = 4,
  kCritical = 16,
  kQuestion = 32,
  kExclamation = 48,
  kInformation = 64,
};
enum MessageResult : int { kOk = 1, kCancel = 2, kYes = 6, kNo = 7 };

class Ui {
 public:
  virtual ~Ui() = default;
  virtual MessageResult MessageBox(std::string_view text, std::string_view caption, int style) = 0;
  // Shows a form modally by name ("frmPrint", "frmPreview" …); returns when it is closed.
  virtual void ShowModal(std::string_view form_name) { (void)form_name; }
  // Moves the focus to a control of a form ("txtDate[2]").
  virtual void SetFocus(std::string_view control_name) { (void)control_name; }
  // Lets pending window messages run during a long loop (DoEvents).
  virtual void DoEvents() {}
};

// Answers every message with its default button and remembers the last one; for batch runs.
class RecordingUi : public Ui {
 public:
  MessageResult MessageBox(std::string_view text, std::string_view caption, int style) override {
    last_text = text;
    last_caption = caption;
    ++count;
    return (style & 0x7) == kYesNo ? kYes : kOk;
  }
  std::string last_text, last_caption;
  int count = 0;
};

}  // namespace lupin::entry
