#pragma once
// Engine-internal access to the process's font map and cached font descriptions.
#include <fontconfig/fontconfig.h>
#include <pango/pangocairo.h>

#include "engine/page_model.h"

namespace lupin::engine {

// The fontconfig configuration with the project's aliases, built once per process.
FcConfig* ProjectFontConfig();

// One font map for the whole process, so every renderer and measurer shares one face per font
// (a PDF embeds each face once).
PangoFontMap* ProjectFontMap();

// Cached description of a layout font; owned by the cache, valid for the process's life.
const PangoFontDescription* FontDescription(const FontSpec& font);

// A new context with the options every measurement and drawing uses: 72 dpi (one unit is one
// point), hint metrics off, no hinting, unrounded glyph positions. Caller unrefs.
PangoContext* NewTextContext();

}  // namespace lupin::engine
