#include "layout/format_constants.h"

#include "entry/context.h"

namespace lupin::layout {

namespace {
constexpr int kSettingRFormatPath = 32;
}

std::filesystem::path FormatDirectory(const entry::Context& context) {
  const std::string configured = context.settings.GetSetting(kSettingRFormatPath, "");
  if (!configured.empty()) return std::filesystem::path(configured);
  return context.home / "Format";
}

}  // namespace lupin::layout
