#include "engine/pdf_fonts.h"

#include <cairo-ft.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_ADVANCES_H
#include FT_TRUETYPE_TABLES_H
#include <hb-subset.h>
#include <hb.h>

#include <algorithm>
#include <cmath>

#include "engine/pdf_syntax.h"

namespace lupin::engine::pdf {

namespace {

// Tables a PDF reader never looks at inside an embedded font.
constexpr const char* kDroppedTables[] = {"GSUB", "GPOS", "GDEF", "BASE", "JSTF", "vhea", "vmtx", "VORG",
                                          "DSIG", "kern", "morx", "mort", "gasp", "hdmx", "LTSH", "VDMX"};

int Thousandths(double value, int units_per_em) {
  return static_cast<int>(std::lround(value * 1000.0 / units_per_em));
}

// Radicals and compatibility forms share glyphs with the ideographs proper; a reader copying text
// should get the ideograph.
bool SecondChoice(hb_codepoint_t code) {
  return (code >= 0x2E80 && code <= 0x2FDF) || (code >= 0xF900 && code <= 0xFAFF) ||
         (code >= 0x2F800 && code <= 0x2FA1F);
}

void AppendUtf16Hex(std::string& out, hb_codepoint_t code) {
  if (code >= 0x10000) {
    code -= 0x10000;
    AppendHex4(out, 0xD800 + (code >> 10));
    AppendHex4(out, 0xDC00 + (code & 0x3ff));
  } else {
    AppendHex4(out, code);
  }
}

std::string ToUnicodeMap(hb_face_t* face, const std::vector<std::uint32_t>& glyphs) {
  std::unordered_map<hb_codepoint_t, hb_codepoint_t> text_of;  // glyph → character
  std::vector<bool> wanted;
  for (const std::uint32_t g : glyphs) {
    if (g >= wanted.size()) wanted.resize(g + 1);
    wanted[g] = true;
  }
  hb_font_t* font = hb_font_create(face);
  hb_set_t* characters = hb_set_create();
  hb_face_collect_unicodes(face, characters);
  for (hb_codepoint_t code = HB_SET_VALUE_INVALID; hb_set_next(characters, &code);) {
    hb_codepoint_t glyph = 0;
    if (!hb_font_get_nominal_glyph(font, code, &glyph) || glyph >= wanted.size() || !wanted[glyph]) continue;
    auto [it, added] = text_of.emplace(glyph, code);
    if (!added && SecondChoice(it->second) && !SecondChoice(code)) it->second = code;
  }
  hb_set_destroy(characters);
  hb_font_destroy(font);

  std::vector<std::pair<hb_codepoint_t, hb_codepoint_t>> pairs(text_of.begin(), text_of.end());
  std::sort(pairs.begin(), pairs.end());
  std::string cmap =
      "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
      "/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def\n"
      "/CMapName /Adobe-Identity-UCS def\n/CMapType 2 def\n"
      "1 begincodespacerange\n<0000> <FFFF>\nendcodespacerange\n";
  for (std::size_t start = 0; start < pairs.size(); start += 100) {
    const std::size_t end = std::min(pairs.size(), start + 100);
    AppendInt(cmap, static_cast<std::int64_t>(end - start));
    cmap += " beginbfchar\n";
    for (std::size_t i = start; i < end; ++i) {
      cmap += '<';
      AppendHex4(cmap, pairs[i].first);
      cmap += "> <";
      AppendUtf16Hex(cmap, pairs[i].second);
      cmap += ">\n";
    }
    cmap += "endbfchar\n";
  }
  cmap += "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";
  return cmap;
}

// The subset keeps every glyph ID, so the pages' codes stay valid; unused glyphs become empty.
std::string Subset(hb_face_t* face, const std::vector<std::uint32_t>& glyphs, std::string_view whole) {
  hb_subset_input_t* input = hb_subset_input_create_or_fail();
  if (input == nullptr) return std::string(whole);
  hb_set_t* glyph_set = hb_subset_input_glyph_set(input);
  for (const std::uint32_t g : glyphs) hb_set_add(glyph_set, g);
  hb_set_t* dropped = hb_subset_input_set(input, HB_SUBSET_SETS_DROP_TABLE_TAG);
  for (const char* tag : kDroppedTables) hb_set_add(dropped, hb_tag_from_string(tag, 4));
  hb_subset_input_set_flags(input, HB_SUBSET_FLAGS_RETAIN_GIDS);
  hb_face_t* subset = hb_subset_or_fail(face, input);
  hb_subset_input_destroy(input);
  if (subset == nullptr) return std::string(whole);
  hb_blob_t* blob = hb_face_reference_blob(subset);
  unsigned length = 0;
  const char* bytes = hb_blob_get_data(blob, &length);
  std::string out = length > 0 ? std::string(bytes, length) : std::string(whole);
  hb_blob_destroy(blob);
  hb_face_destroy(subset);
  return out;
}

// Six capitals that name the subset, the same for the same glyphs.
std::string SubsetTag(const std::vector<std::uint32_t>& glyphs, int resource) {
  std::uint64_t hash = 1469598103934665603ull ^ static_cast<std::uint64_t>(resource);
  for (const std::uint32_t g : glyphs) hash = (hash ^ g) * 1099511628211ull;
  std::string tag;
  for (int i = 0; i < 6; ++i) {
    tag += static_cast<char>('A' + hash % 26);
    hash /= 26;
  }
  return tag;
}

std::string WidthArray(const FontFace& face, const std::vector<std::uint32_t>& glyphs) {
  std::string out = "[";
  for (std::size_t i = 0; i < glyphs.size();) {
    std::size_t end = i + 1;
    while (end < glyphs.size() && glyphs[end] == glyphs[end - 1] + 1) ++end;
    AppendInt(out, glyphs[i]);
    out += " [";
    for (std::size_t k = i; k < end; ++k) {
      if (k > i) out += ' ';
      AppendReal(out, face.Width(glyphs[k]));
    }
    out += "] ";
    i = end;
  }
  out += ']';
  return out;
}

void LoadFace(FT_Face ft, FontFace& face) {
  face.units_per_em = ft->units_per_EM > 0 ? ft->units_per_EM : 1000;
  face.face_index = static_cast<unsigned>(ft->face_index & 0xffff);
  face.glyph_count = static_cast<std::size_t>(ft->num_glyphs);
  face.used = std::make_unique<std::atomic<std::uint8_t>[]>(face.glyph_count + 1);
  face.widths.assign(face.glyph_count, 0);
  std::vector<FT_Fixed> advances(face.glyph_count);
  if (face.glyph_count > 0 &&
      FT_Get_Advances(ft, 0, static_cast<FT_UInt>(face.glyph_count), FT_LOAD_NO_SCALE, advances.data()) == 0) {
    for (std::size_t g = 0; g < face.glyph_count; ++g) {
      face.widths[g] = static_cast<float>(static_cast<double>(advances[g]) * 1000.0 / face.units_per_em);
    }
  }
  face.ascent = Thousandths(ft->ascender, face.units_per_em);
  face.descent = Thousandths(ft->descender, face.units_per_em);
  face.bbox[0] = Thousandths(static_cast<double>(ft->bbox.xMin), face.units_per_em);
  face.bbox[1] = Thousandths(static_cast<double>(ft->bbox.yMin), face.units_per_em);
  face.bbox[2] = Thousandths(static_cast<double>(ft->bbox.xMax), face.units_per_em);
  face.bbox[3] = Thousandths(static_cast<double>(ft->bbox.yMax), face.units_per_em);
  const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(ft, FT_SFNT_OS2));
  face.cap_height = os2 != nullptr && os2->version >= 2 ? Thousandths(os2->sCapHeight, face.units_per_em) : face.ascent;
  FT_ULong cff_length = 0;
  face.cff = FT_Load_Sfnt_Table(ft, FT_MAKE_TAG('C', 'F', 'F', ' '), 0, nullptr, &cff_length) == 0 && cff_length > 0;
}

// The whole font file: FreeType's own mapping of it when it has one, else a copy.
std::string_view FontFile(FT_Face ft, std::string& copy) {
  if (ft->stream != nullptr && ft->stream->base != nullptr && ft->stream->size > 0) {
    return {reinterpret_cast<const char*>(ft->stream->base), ft->stream->size};
  }
  FT_ULong length = 0;
  if (FT_Load_Sfnt_Table(ft, 0, 0, nullptr, &length) != 0 || length == 0) return {};
  copy.resize(length);
  if (FT_Load_Sfnt_Table(ft, 0, 0, reinterpret_cast<FT_Byte*>(copy.data()), &length) != 0) return {};
  return copy;
}

}  // namespace

Fonts::~Fonts() {
  for (auto& [font, use] : uses_) cairo_scaled_font_destroy(font);
  for (FontFace* face : order_) cairo_scaled_font_destroy(face->source);
}

const FontFace* Fonts::Face(cairo_scaled_font_t* font) {
  if (cairo_scaled_font_get_type(font) != CAIRO_FONT_TYPE_FT) return nullptr;
  FT_Face ft = cairo_ft_scaled_font_lock_face(font);
  if (ft == nullptr) return nullptr;
  const char* postscript = FT_Get_Postscript_Name(ft);
  std::string key = postscript != nullptr ? postscript : (ft->family_name != nullptr ? ft->family_name : "Font");
  key += '\0' + std::to_string(ft->face_index) + '\0' + std::to_string(ft->num_glyphs);
  auto it = faces_.find(key);
  if (it == faces_.end()) {
    auto face = std::make_unique<FontFace>();
    face->postscript_name = key.substr(0, key.find('\0'));
    LoadFace(ft, *face);
    face->source = cairo_scaled_font_reference(font);
    face->resource = static_cast<int>(order_.size()) + 1;
    order_.push_back(face.get());
    it = faces_.emplace(std::move(key), std::move(face)).first;
  }
  cairo_ft_scaled_font_unlock_face(font);
  return it->second.get();
}

const FontUse* Fonts::Use(cairo_scaled_font_t* font) {
  if (font == nullptr) return nullptr;
  if (auto it = uses_.find(font); it != uses_.end()) return it->second.get();
  auto use = std::make_unique<FontUse>();
  use->face = Face(font);
  cairo_matrix_t matrix;
  cairo_scaled_font_get_font_matrix(font, &matrix);
  use->xx = matrix.xx;
  use->yx = matrix.yx;
  use->xy = matrix.xy;
  use->yy = matrix.yy;
  cairo_font_face_t* face = cairo_scaled_font_get_font_face(font);
  use->synthetic_bold = cairo_font_face_get_type(face) == CAIRO_FONT_TYPE_FT &&
                        (cairo_ft_font_face_get_synthesize(face) & CAIRO_FT_SYNTHESIZE_BOLD) != 0;
  // Held, so that no later font can take this address while the map knows it.
  cairo_scaled_font_reference(font);
  const FontUse* result = use->face != nullptr ? use.get() : nullptr;
  uses_.emplace(font, std::move(use));
  return result;
}

std::string Fonts::Embed(PdfFile& file) {
  std::string resources;
  Deflater deflater;
  for (FontFace* face : order_) {
    std::vector<std::uint32_t> glyphs{0};
    for (std::size_t g = 1; g < face->glyph_count; ++g) {
      if (face->used[g].load(std::memory_order_relaxed) != 0) glyphs.push_back(static_cast<std::uint32_t>(g));
    }
    FT_Face ft = cairo_ft_scaled_font_lock_face(face->source);
    std::string copy;
    const std::string_view whole = ft != nullptr ? FontFile(ft, copy) : std::string_view();
    hb_blob_t* blob =
        hb_blob_create(whole.data(), static_cast<unsigned>(whole.size()), HB_MEMORY_MODE_READONLY, nullptr, nullptr);
    hb_face_t* hb_face = hb_face_create(blob, face->face_index);
    const std::string font_file = Subset(hb_face, glyphs, whole);
    const std::string to_unicode = ToUnicodeMap(hb_face, glyphs);
    hb_face_destroy(hb_face);
    hb_blob_destroy(blob);
    if (ft != nullptr) cairo_ft_scaled_font_unlock_face(face->source);

    const std::string base = Name(SubsetTag(glyphs, face->resource) + "+" + face->postscript_name);
    const int type0 = file.Reserve(), cid = file.Reserve(), descriptor = file.Reserve(), program = file.Reserve(),
              unicode = file.Reserve();
    std::string compressed;
    deflater.Compress(font_file, compressed);
    std::string dictionary = "/Filter /FlateDecode ";
    if (face->cff) {
      dictionary += "/Subtype /OpenType";
    } else {
      dictionary += "/Length1 ";
      AppendInt(dictionary, static_cast<std::int64_t>(font_file.size()));
    }
    file.Stream(program, dictionary, compressed);
    deflater.Compress(to_unicode, compressed);
    file.Stream(unicode, "/Filter /FlateDecode", compressed);

    std::string body = "<< /Type /FontDescriptor /FontName " + base + " /Flags 4 /FontBBox [";
    for (int i = 0; i < 4; ++i) {
      AppendInt(body, face->bbox[i]);
      body += i < 3 ? " " : "]";
    }
    body += " /ItalicAngle 0 /Ascent ";
    AppendInt(body, face->ascent);
    body += " /Descent ";
    AppendInt(body, face->descent);
    body += " /CapHeight ";
    AppendInt(body, face->cap_height);
    body += " /StemV 80 ";
    body += face->cff ? "/FontFile3 " : "/FontFile2 ";
    AppendInt(body, program);
    body += " 0 R >>";
    file.Object(descriptor, body);

    body = "<< /Type /Font /Subtype ";
    body += face->cff ? "/CIDFontType0" : "/CIDFontType2";
    body += " /BaseFont " + base +
            " /CIDSystemInfo << /Registry (Adobe) /Ordering (Identity) /Supplement 0 >> /FontDescriptor ";
    AppendInt(body, descriptor);
    body += " 0 R /DW 1000 /W " + WidthArray(*face, glyphs);
    if (!face->cff) body += " /CIDToGIDMap /Identity";
    body += " >>";
    file.Object(cid, body);

    body = "<< /Type /Font /Subtype /Type0 /BaseFont " + base + " /Encoding /Identity-H /DescendantFonts [";
    AppendInt(body, cid);
    body += " 0 R] /ToUnicode ";
    AppendInt(body, unicode);
    body += " 0 R >>";
    file.Object(type0, body);

    resources += "/F";
    AppendInt(resources, face->resource);
    resources += ' ';
    AppendInt(resources, type0);
    resources += " 0 R ";
  }
  return resources;
}

}  // namespace lupin::engine::pdf
