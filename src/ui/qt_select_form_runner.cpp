#include "ui/qt_select_form_runner.h"

#include <QEventLoop>
#include <QTimer>

#include "ui/desktop_session.h"
#include "ui/select_window.h"

namespace lupin::ui {

void QtSelectFormRunner::Run(entry::Context& context, std::string_view report, std::string_view command) {
  DesktopSession session(context, report, command);
  session.Show();
  QEventLoop loop;
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, &loop, [&] {
    if (session.Closed()) loop.quit();
  });
  poll.start(100);
  if (!session.Closed()) loop.exec();
}

void RegisterDesktop() {
  static QtSelectFormRunner runner;
  entry::RegisterSelectFormRunner(&runner);
}

}  // namespace lupin::ui
