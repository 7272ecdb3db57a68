#include "ui/window_placement.h"

#include <QGuiApplication>
#include <QScreen>

#include "desktop/window_size.h"

namespace lupin::ui {

void RestoreWindowPlacement(QWidget& window, const std::filesystem::path& home, std::string_view form_name) {
  if (const auto saved = desktop::ReadWindowSize(desktop::WindowSizeFile(home, form_name))) {
    window.setGeometry(saved->left, saved->top, saved->width, saved->height);
    return;
  }
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (screen == nullptr) return;
  const QRect area = screen->availableGeometry();
  const QSize size = window.size();
  const desktop::Rect centred =
      desktop::CentreIn({area.left(), area.top(), area.width(), area.height()}, size.width(), size.height());
  window.move(centred.left, centred.top);
}

void SaveWindowPlacement(const QWidget& window, const std::filesystem::path& home, std::string_view form_name) {
  const QRect g = window.geometry();
  desktop::SaveWindowSize(desktop::WindowSizeFile(home, form_name), {g.left(), g.top(), g.width(), g.height()});
}

void BringToFront(QWidget& window) {
  if (window.isMinimized()) window.showNormal();
  window.raise();
  window.activateWindow();
}

}  // namespace lupin::ui
