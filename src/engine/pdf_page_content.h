#pragma once
// Engine-internal: the content stream of one PDF page, written straight from the page's items and
// their preparation (shaped text, bar code symbols). Needs no shared state but the fonts' use
// records, so pages can be drawn on several threads at once.
#include <cairo.h>

#include <string>
#include <utility>
#include <vector>

#include "engine/page_model.h"
#include "engine/pdf_fonts.h"
#include "engine/render_draw.h"

namespace lupin::engine::pdf {

// The fonts of one page's texts, looked up on the layout thread.
using PageFonts = std::vector<std::pair<cairo_scaled_font_t*, const FontUse*>>;

// Appends each text run's font to fonts once (fonts.Use on first sight).
void CollectFonts(const PagePreparation& preparation, Fonts& registry, PageFonts& fonts);

// Replaces out with the page's operators; height is the page's in points (PDF counts from the
// bottom). What cannot be drawn (a bar code of bad data) goes to problems.
void WritePageContent(const Page& page, const PagePreparation& preparation, const PageFonts& fonts, double height,
                      std::string& out, std::vector<std::string>& problems);

}  // namespace lupin::engine::pdf
