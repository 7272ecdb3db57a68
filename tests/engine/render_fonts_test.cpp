#include <gtest/gtest.h>

#include <string>

#include "engine/fonts.h"

namespace lupin::engine {
namespace {

TEST(FontMapping, LayoutNamesResolveToIpaFonts) {
  struct Case {
    const char* name;
    const char* family;
    const char* file;
  };
  const Case cases[] = {
      {"ＭＳ 明朝", "IPAMincho", "ipam.ttf"},     {"ＭＳ Ｐ明朝", "IPAPMincho", "ipamp.ttf"},
      {"ＭＳ ゴシック", "IPAGothic", "ipag.ttf"},  {"ＭＳ Ｐゴシック", "IPAPGothic", "ipagp.ttf"},
      {"MS PGothic", "IPAPGothic", "ipagp.ttf"}, {"存在しないフォント", "IPAMincho", "ipam.ttf"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ResolveFontFamily(c.name), c.family) << c.name;
    const std::string file = ResolveFontFile(c.name);
    EXPECT_EQ(file.substr(file.rfind('/') + 1), c.file) << c.name << " → " << file;
  }
  EXPECT_TRUE(FontConfigPath().ends_with("config/fonts.conf")) << FontConfigPath();
}

}  // namespace
}  // namespace lupin::engine
