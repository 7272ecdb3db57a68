#pragma once
// One run of the desktop for one Show: the selection form's model and window, and the Ui port
// through which the form models open the other windows, ask the user and move the focus.
#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "catalogue/printer_capabilities.h"
#include "entry/context.h"
#include "entry/ui.h"
#include "run/preview_runner_engine.h"
#include "run/select_form.h"

namespace lupin::ui {

class SelectWindow;
class PrintWindow;
class PreviewWindow;

class DesktopSession : public entry::Ui {
 public:
  // printers: where the print settings and the print dialog find the printers; null asks CUPS.
  DesktopSession(entry::Context& context, std::string_view report, std::string_view command,
                 catalogue::PrinterCapabilities* printers = nullptr);
  ~DesktopSession() override;

  // Shows frmSelect: creation, load, window size, first activation.
  void Show();
  bool Closed() const;

  entry::MessageResult MessageBox(std::string_view text, std::string_view caption, int style) override;
  void ShowModal(std::string_view form_name) override;
  void SetFocus(std::string_view control_name) override;
  void DoEvents() override;

  run::SelectForm& SelectModel() { return select_; }
  SelectWindow& Select() { return *select_window_; }
  entry::Context& Context() { return context_; }
  catalogue::PrinterCapabilities& Printers() { return *printers_; }
  // The open print list, or null; the preview reads its Siryo flag.
  PrintWindow* OpenPrint() const { return print_; }
  PreviewWindow* OpenPreview() const { return preview_; }

  // For tests and the screenshot command: answers a message box instead of the user (the box
  // is not shown), and drives a modal window instead of its event loop. Without them the
  // windows run as the user sees them.
  std::function<entry::MessageResult(std::string_view text, std::string_view caption, int style)> answer_message;
  std::function<void(std::string_view form_name, QWidget& window)> drive_modal;
  // Answers the print dialog: the queue to print to, or "" to cancel. Null shows the dialog.
  std::function<std::string(const std::vector<std::string>& printers, const std::string& proposed)> answer_print_dialog;

  std::string last_message;
  std::string last_message_caption;
  int messages = 0;

 private:
  void RunModal(std::string_view form_name, QWidget& window);
  QWidget* ActiveFormWindow() const;

  entry::Context& context_;
  std::unique_ptr<catalogue::PrinterCapabilities> own_printers_;
  catalogue::PrinterCapabilities* printers_;
  run::SelectForm select_;
  std::unique_ptr<SelectWindow> select_window_;
  PrintWindow* print_ = nullptr;
  PreviewWindow* preview_ = nullptr;
  QPointer<QWidget> modal_;
};

}  // namespace lupin::ui
