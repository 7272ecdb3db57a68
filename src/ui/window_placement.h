#pragma once
// Window sizes per form and WindowForeGround, in Qt terms.
#include <QWidget>

#include <filesystem>
#include <string_view>

namespace lupin::ui {

// The size and place saved for the form, or its own size in the middle of the screen's work area.
void RestoreWindowPlacement(QWidget& window, const std::filesystem::path& home, std::string_view form_name);
void SaveWindowPlacement(const QWidget& window, const std::filesystem::path& home, std::string_view form_name);
// WindowForeGround: un-minimises, raises and activates the window.
void BringToFront(QWidget& window);

}  // namespace lupin::ui
