#pragma once
// Window sizes remembered per form: frmSelect.INI, frmPrint.INI … in the component folder, section
// "WindowSize", keys Left, Top, Width, Height in pixels.
#include <filesystem>
#include <optional>
#include <string_view>

#include "desktop/anchor.h"

namespace lupin::desktop {

std::filesystem::path WindowSizeFile(const std::filesystem::path& component_directory, std::string_view form_name);
// Nothing when the file has no complete, positive size.
std::optional<Rect> ReadWindowSize(const std::filesystem::path& file);
bool SaveWindowSize(const std::filesystem::path& file, const Rect& rect);

}  // namespace lupin::desktop
