#include <cmath>
#include <system_error>

#include "common/vb.h"
#include "entry/context.h"

namespace lupin::entry {
namespace {

constexpr int kSettingTax = 8;

// Whole-number conversion as an Integer variable takes it; a value it cannot hold keeps the fallback.
int WholeNumberOr(double value, int fallback) {
  try {
    return vb::CInt(value);
  } catch (const vb::OverflowError&) {
    return fallback;
  }
}

}  // namespace

void InitialiseContextSettings(Context& context) {
  std::error_code error;
  const auto& user_ini = context.settings.Paths().user_ini;
  if (user_ini.has_parent_path()) std::filesystem::create_directories(user_ini.parent_path(), error);

  context.dialect = WholeNumberOr(vb::Val(context.settings.GetSetting(0, "1", "ResouceMode")), 1);
  context.tax_rate = static_cast<float>(vb::Val(context.settings.GetSetting(kSettingTax, "0.05")));
}

}  // namespace lupin::entry
