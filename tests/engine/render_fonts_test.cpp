#include <gtest/gtest.h>

#include <string>

#include "engine/fonts.h"

namespace lupin::engine {
namespace {

TEST(FontMapping, LayoutNamesResolveToIpaFonts) {
  struct Case {
    const char* name;
    const char* family;
    const char* file;  // the font file's name
  };
  const Case cases[] = {
      {"ＭＳ 明朝", "IPAMincho", "ipam.ttf"},
      {"ＭＳ Ｐ明朝", "IPAPMincho", "ipamp.ttf"},
      {"ＭＳ ゴシック", "IPAGothic", "ipag.ttf"},
      {"ＭＳ Ｐゴシック", "IPAPGothic", "ipagp.ttf"},
      {"MS Mincho", "IPAMincho", "ipam.ttf"},
      {"MS PMincho", "IPAPMincho", "ipamp.ttf"},
      {"MS Gothic", "IPAGothic", "ipag.ttf"},
      {"MS PGothic", "IPAPGothic", "ipagp.ttf"},
      {"IPAGothic", "IPAGothic", "ipag.ttf"},
      {"存在しないフォント", "IPAMincho", "ipam.ttf"},
      {"NoSuchFontAnywhere", "IPAMincho", "ipam.ttf"},
      {"", "IPAMincho", "ipam.ttf"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ResolveFontFamily(c.name), c.family) << c.name;
    const std::string file = ResolveFontFile(c.name);
    EXPECT_EQ(file.substr(file.rfind('/') + 1), c.file) << c.name << " → " << file;
  }
}

TEST(FontMapping, ProjectConfigurationIsLoaded) {
  const std::string path = FontConfigPath();
  ASSERT_FALSE(path.empty());
  EXPECT_EQ(path.substr(path.size() - 17), "config/fonts.conf");
}

}  // namespace
}  // namespace lupin::engine
