#pragma once
// Fonts named by the report layouts, resolved through the project's fontconfig file so that the
// Windows font names land on the metric-compatible IPA fonts.
#include <string>
#include <string_view>

namespace lupin::engine {

// Family actually used for a layout's font name: "ＭＳ ゴシック" gives "IPAGothic". A name that
// neither an installed font nor an alias answers falls back to "IPAMincho".
std::string ResolveFontFamily(std::string_view name);

// File of the font that ResolveFontFamily's family is drawn from.
std::string ResolveFontFile(std::string_view name);

// The project fontconfig file in use, or empty when none was found (the system configuration
// then stands alone). Looked up in $LUPIN_FONTS_CONF, then config/fonts.conf beside or above the
// executable, then in the source tree the program was built from.
std::string FontConfigPath();

}  // namespace lupin::engine
