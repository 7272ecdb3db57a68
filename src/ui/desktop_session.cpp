#include "ui/desktop_session.h"

#include <QApplication>
#include <QGuiApplication>
#include <QInputMethod>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>

#include "catalogue/all_format_form.h"
#include "catalogue/setting_form.h"
#include "desktop/key_hook.h"
#include "run/print_form.h"
#include "ui/all_format_window.h"
#include "ui/form_binder.h"
#include "ui/preview_window.h"
#include "ui/print_window.h"
#include "ui/select_window.h"
#include "ui/setting_window.h"
#include "ui/window_placement.h"

namespace lupin::ui {

namespace {

// The keyboard hook of the selection form: it sees every key before the focused control does.
class KeyHookFilter : public QObject {
 public:
  KeyHookFilter(DesktopSession& session, QObject* parent) : QObject(parent), session_(session) {}

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::InputMethod) {
      composing_ = !static_cast<QInputMethodEvent*>(event)->preeditString().isEmpty();
    }
    if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    QWidget* active = QApplication::activeWindow();
    desktop::KeyState state;
    const std::string form = active != nullptr ? S(active->objectName()) : std::string();
    state.active_form = form;
    state.key_code = key->key() == Qt::Key_F12 ? desktop::kKeyF12 : 0;
    state.shift = key->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier) ? 1 : 0;
    const QInputMethod* ime = QGuiApplication::inputMethod();
    state.ime_open = ime != nullptr && ime->isVisible();
    state.ime_composing = composing_;
    if (desktop::OnKey(state) == desktop::HookAction::CloseForm) {
      session_.SelectModel().Form_KeyDown(state.key_code, state.shift);
      if (session_.Closed()) session_.Select().close();
      return true;
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  DesktopSession& session_;
  bool composing_ = false;
};

}  // namespace

DesktopSession::DesktopSession(entry::Context& context, std::string_view report, std::string_view command,
                               catalogue::PrinterCapabilities* printers)
    : context_(context),
      own_printers_(printers == nullptr ? std::make_unique<catalogue::CupsPrinterCapabilities>() : nullptr),
      printers_(printers == nullptr ? own_printers_.get() : printers),
      select_(context, *this) {
  select_.Report = std::string(report);
  select_.Command = std::string(command);
  select_.Form_Initialize();
  select_window_ = std::make_unique<SelectWindow>(*this, select_);
  // Installed for the whole application, as the hook saw the thread's keys; it goes with the form.
  qApp->installEventFilter(new KeyHookFilter(*this, select_window_.get()));
}

DesktopSession::~DesktopSession() = default;

void DesktopSession::Show() {
  select_.Form_Load();
  select_window_->resize(select_window_->sizeHint().expandedTo(QSize(760, 560)));
  RestoreWindowPlacement(*select_window_, context_.home, "frmSelect");
  select_window_->show();
  select_window_->Handle([this] { select_.Form_Activate(); });
}

bool DesktopSession::Closed() const { return select_.closed == -1; }

entry::MessageResult DesktopSession::MessageBox(std::string_view text, std::string_view caption, int style) {
  ++messages;
  last_message = text;
  last_message_caption = caption;
  if (answer_message) return answer_message(text, caption, style);
  QMessageBox box(ActiveFormWindow());
  box.setWindowTitle(Q(caption));
  box.setText(Q(text));
  const int icon = style & 0x70;
  box.setIcon(icon == entry::kCritical      ? QMessageBox::Critical
              : icon == entry::kQuestion    ? QMessageBox::Question
              : icon == entry::kExclamation ? QMessageBox::Warning
                                            : QMessageBox::Information);
  const int buttons = style & 0x7;
  if (buttons == entry::kYesNo) {
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.button(QMessageBox::Yes)->setText("はい(&Y)");
    box.button(QMessageBox::No)->setText("いいえ(&N)");
  } else if (buttons == entry::kOkCancel) {
    box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
    box.button(QMessageBox::Cancel)->setText("キャンセル");
  } else {
    box.setStandardButtons(QMessageBox::Ok);
  }
  switch (box.exec()) {
    case QMessageBox::Yes: return entry::kYes;
    case QMessageBox::No: return entry::kNo;
    case QMessageBox::Cancel: return entry::kCancel;
    default: return entry::kOk;
  }
}

void DesktopSession::RunModal(std::string_view form_name, QWidget& window) {
  QPointer<QWidget> previous = modal_;
  modal_ = &window;
  window.setWindowModality(Qt::ApplicationModal);
  if (drive_modal) {
    window.show();
    drive_modal(form_name, window);
    window.hide();
  } else if (auto* dialog = qobject_cast<QDialog*>(&window)) {
    dialog->exec();
  }
  modal_ = previous;
}

void DesktopSession::ShowModal(std::string_view form_name) {
  QWidget* parent = ActiveFormWindow();
  if (form_name == "frmPrint") {
    run::PrintForm model(context_, *this, select_);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool listed = model.Form_Activate();
    QApplication::restoreOverrideCursor();
    if (!listed) return;
    PrintWindow window(*this, model, parent);
    window.Refresh();
    PrintWindow* outer = print_;
    print_ = &window;
    RunModal(form_name, window);
    print_ = outer;
  } else if (form_name == "frmPreview") {
    const bool siryo = print_ != nullptr && print_->Model().Siryo;
    PreviewWindow window(*this, siryo, parent);
    PreviewWindow* outer = preview_;
    preview_ = &window;
    window.show();
    QCoreApplication::processEvents();
    window.Display();
    RunModal(form_name, window);
    preview_ = outer;
  } else if (form_name == "frmSetting") {
    catalogue::SettingForm model(context_, *this, *printers_);
    model.S_SetReportSet(context_.current.report_no);
    SettingWindow window(*this, model, parent);
    RunModal(form_name, window);
  } else if (form_name == "frmAllFormat") {
    const std::int32_t current = select_.cboList.ItemData();
    catalogue::AllFormatForm model(context_, *this);
    AllFormatWindow window(*this, model, parent);
    RunModal(form_name, window);
    // The selection form lists the reports anew, on the report it had.
    select_window_->Handle([&] {
      select_.S_SetReportSet();
      common::SelectComboByData(select_.cboList, static_cast<std::int16_t>(current));
      if (select_.cboList.list_index >= 0) select_.cboList_Click();
    });
  }
}

QWidget* DesktopSession::ActiveFormWindow() const {
  if (modal_ != nullptr) return modal_;
  return select_window_.get();
}

void DesktopSession::SetFocus(std::string_view control_name) {
  QWidget* window = ActiveFormWindow();
  if (window == nullptr) return;
  if (auto* control = window->findChild<QWidget*>(Q(control_name))) control->setFocus(Qt::OtherFocusReason);
}

void DesktopSession::DoEvents() { QCoreApplication::processEvents(); }

}  // namespace lupin::ui
