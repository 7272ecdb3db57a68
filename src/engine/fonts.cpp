#include "engine/fonts.h"

#include <pango/pangofc-fontmap.h>

#include <cstdlib>
#include <filesystem>
#include <mutex>
#include <string>
#include <unordered_map>

#include "engine/fonts_pango.h"

namespace lupin::engine {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFallbackFamily = "IPAMincho";

std::string FindConfigFile() {
  if (const char* env = std::getenv("LUPIN_FONTS_CONF"); env != nullptr && *env != '\0') {
    if (fs::exists(env)) return env;
  }
  std::error_code ec;
  fs::path exe = fs::read_symlink("/proc/self/exe", ec);
  if (!ec) {
    for (fs::path dir = exe.parent_path(); !dir.empty(); dir = dir.parent_path()) {
      fs::path candidate = dir / "config" / "fonts.conf";
      if (fs::exists(candidate)) return candidate.string();
      if (dir == dir.root_path()) break;
    }
  }
  // A build tree outside the source tree still finds the file it was built with.
  fs::path source = fs::path(__FILE__).parent_path() / ".." / ".." / "config" / "fonts.conf";
  if (fs::exists(source)) return fs::weakly_canonical(source).string();
  return {};
}

struct FontState {
  std::mutex mutex;
  std::string config_path;
  FcConfig* config = nullptr;
  PangoFontMap* font_map = nullptr;
  std::unordered_map<std::string, std::string> families;
  std::unordered_map<std::string, std::string> files;
  std::unordered_map<std::string, PangoFontDescription*> descriptions;
};

FontState& State() {
  static FontState* state = [] {
    auto* s = new FontState;  // lives for the process: faces are shared by every renderer
    s->config_path = FindConfigFile();
    s->config = FcInitLoadConfig();
    if (!s->config_path.empty() &&
        !FcConfigParseAndLoad(s->config, reinterpret_cast<const FcChar8*>(s->config_path.c_str()),
                              FcTrue)) {
      s->config_path.clear();
    }
    FcConfigBuildFonts(s->config);
    // Other users of fontconfig in the process (the desktop views) see the same aliases.
    FcConfigSetCurrent(s->config);
    s->font_map = pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT);
    pango_fc_font_map_set_config(PANGO_FC_FONT_MAP(s->font_map), s->config);
    return s;
  }();
  return *state;
}

bool HasFamily(FcPattern* pattern, const FcChar8* family) {
  FcChar8* value = nullptr;
  for (int i = 0; FcPatternGetString(pattern, FC_FAMILY, i, &value) == FcResultMatch; ++i) {
    if (FcStrCmpIgnoreCase(value, family) == 0) return true;
  }
  return false;
}

// Family and file for a name; caller holds the state's mutex.
std::pair<std::string, std::string> Resolve(FontState& state, const std::string& name) {
  auto match_of = [&](const std::string& family) -> FcPattern* {
    FcPattern* pattern = FcPatternCreate();
    FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
    FcConfigSubstitute(state.config, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result = FcResultNoMatch;
    FcPattern* match = FcFontMatch(state.config, pattern, &result);
    // An alias puts its preferred family before the asked one; a plain default does not.
    FcChar8* first = nullptr;
    bool accepted = false;
    if (match != nullptr) {
      accepted = HasFamily(match, reinterpret_cast<const FcChar8*>(family.c_str()));
      if (!accepted && FcPatternGetString(pattern, FC_FAMILY, 0, &first) == FcResultMatch &&
          FcStrCmpIgnoreCase(first, reinterpret_cast<const FcChar8*>(family.c_str())) != 0) {
        accepted = HasFamily(match, first);
      }
    }
    FcPatternDestroy(pattern);
    if (!accepted && match != nullptr) {
      FcPatternDestroy(match);
      match = nullptr;
    }
    return match;
  };
  FcPattern* match = name.empty() ? nullptr : match_of(name);
  if (match == nullptr) match = match_of(kFallbackFamily);
  if (match == nullptr) return {kFallbackFamily, {}};
  FcChar8* family = nullptr;
  FcChar8* file = nullptr;
  std::pair<std::string, std::string> out{kFallbackFamily, {}};
  if (FcPatternGetString(match, FC_FAMILY, 0, &family) == FcResultMatch) {
    out.first = reinterpret_cast<const char*>(family);
  }
  if (FcPatternGetString(match, FC_FILE, 0, &file) == FcResultMatch) {
    out.second = reinterpret_cast<const char*>(file);
  }
  FcPatternDestroy(match);
  return out;
}

// Family and file of a name, resolved once; caller holds the state's mutex.
std::pair<std::string, std::string> Lookup(FontState& state, const std::string& name) {
  auto it = state.families.find(name);
  if (it == state.families.end()) {
    auto resolved = Resolve(state, name);
    state.files.emplace(name, resolved.second);
    it = state.families.emplace(name, std::move(resolved.first)).first;
  }
  return {it->second, state.files[name]};
}

}  // namespace

std::string ResolveFontFamily(std::string_view name) {
  FontState& state = State();
  std::lock_guard lock(state.mutex);
  return Lookup(state, std::string(name)).first;
}

std::string ResolveFontFile(std::string_view name) {
  FontState& state = State();
  std::lock_guard lock(state.mutex);
  return Lookup(state, std::string(name)).second;
}

std::string FontConfigPath() { return State().config_path; }

FcConfig* ProjectFontConfig() { return State().config; }

PangoFontMap* ProjectFontMap() { return State().font_map; }

const PangoFontDescription* FontDescription(const FontSpec& font) {
  FontState& state = State();
  std::string key = font.name;
  key += '\0';
  key += std::to_string(font.size);
  key += font.bold ? 'B' : '-';
  key += font.italic ? 'I' : '-';
  std::lock_guard lock(state.mutex);
  auto it = state.descriptions.find(key);
  if (it != state.descriptions.end()) return it->second;
  PangoFontDescription* description = pango_font_description_new();
  pango_font_description_set_family(description, Lookup(state, font.name).first.c_str());
  // At 72 dpi one Pango unit of size is one point.
  pango_font_description_set_size(description, static_cast<int>(font.size * PANGO_SCALE + 0.5));
  pango_font_description_set_weight(description, font.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
  pango_font_description_set_style(description, font.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
  state.descriptions.emplace(std::move(key), description);
  return description;
}

PangoContext* NewTextContext() {
  PangoContext* context = pango_font_map_create_context(ProjectFontMap());
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
  pango_cairo_context_set_font_options(context, options);
  cairo_font_options_destroy(options);
  pango_cairo_context_set_resolution(context, 72.0);
  pango_context_set_round_glyph_positions(context, FALSE);
  return context;
}

}  // namespace lupin::engine
