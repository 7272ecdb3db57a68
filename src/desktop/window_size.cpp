#include "desktop/window_size.h"

#include <array>
#include <string>
#include <utility>

#include "common/settings.h"
#include "common/vb.h"

namespace lupin::desktop {

namespace {
constexpr std::string_view kSection = "WindowSize";
}

std::filesystem::path WindowSizeFile(const std::filesystem::path& component_directory, std::string_view form_name) {
  return component_directory / (std::string(form_name) + ".INI");
}

std::optional<Rect> ReadWindowSize(const std::filesystem::path& file) {
  // A number no window can have (beyond an int, or beyond any number) counts as missing.
  auto read = [&](std::string_view key) -> std::optional<int> {
    const std::string text = settings::ReadProfileString(file, kSection, key, "");
    if (text.empty()) return std::nullopt;
    try {
      const double value = vb::Val(text);
      if (!(value > -2147483649.0 && value < 2147483648.0)) return std::nullopt;
      return static_cast<int>(value);
    } catch (const vb::OverflowError&) {
      return std::nullopt;
    }
  };
  const auto left = read("Left"), top = read("Top"), width = read("Width"), height = read("Height");
  if (!left || !top || !width || !height || *width <= 0 || *height <= 0) return std::nullopt;
  return Rect{*left, *top, *width, *height};
}

bool SaveWindowSize(const std::filesystem::path& file, const Rect& rect) {
  const std::string left = std::to_string(rect.left), top = std::to_string(rect.top),
                    width = std::to_string(rect.width), height = std::to_string(rect.height);
  const std::array<std::pair<std::string_view, std::string_view>, 4> entries{
      {{"Left", left}, {"Top", top}, {"Width", width}, {"Height", height}}};
  return settings::WriteProfileStrings(file, kSection, entries);
}

}  // namespace lupin::desktop
