#include <cmath>
#include <string>

#include "engine/printer.h"

namespace lupin::engine {

std::string MediaForPaperSize(int code, double width_mm, double height_mm) {
  switch (code) {
    case 1: return "na_letter_8.5x11in";
    case 5: return "na_legal_8.5x14in";
    case 8: return "iso_a3_297x420mm";
    case 9:
    case 10: return "iso_a4_210x297mm";  // 10 is the "A4 small" of old drivers
    case 11: return "iso_a5_148x210mm";
    case 12: return "jis_b4_257x364mm";
    case 13: return "jis_b5_182x257mm";
    case 43: return "jpn_hagaki_100x148mm";
    case 69: return "jpn_oufuku_148x200mm";
    case 70: return "iso_a6_105x148mm";
    case 256: {
      if (width_mm <= 0 || height_mm <= 0) return {};
      const std::string size = std::to_string(std::lround(width_mm)) + "x" +
                               std::to_string(std::lround(height_mm)) + "mm";
      // CUPS reads a custom size only from the three-part form: class, name, dimensions.
      return "custom_" + size + "_" + size;
    }
    default: return {};
  }
}

std::string MediaSourceForBin(int bin) {
  switch (bin) {
    case 0: return {};
    case 1: return "top";
    case 2: return "bottom";
    case 3: return "middle";
    case 4: return "manual";
    case 5: return "envelope";
    case 6: return "manual";  // envelope, fed by hand
    case 7: return "auto";
    case 8: return "tractor";
    case 11: return "large-capacity";
    case 14: return "main";
    case 15: return "auto";  // "form source": the tray that holds the form
    default: break;
  }
  if (bin >= 256) return "tray-" + std::to_string(bin - 255);
  return "auto";
}

std::vector<std::pair<std::string, std::string>> PrintOptions(const PrintJob& job) {
  std::vector<std::pair<std::string, std::string>> options;
  if (std::string media = MediaForPaperSize(job.paper_size, job.paper_width_mm, job.paper_height_mm);
      !media.empty()) {
    options.emplace_back("media", media);
  }
  if (std::string source = MediaSourceForBin(job.paper_bin); !source.empty()) {
    options.emplace_back("media-source", source);
  }
  if (job.orientation == 1) options.emplace_back("orientation-requested", "3");
  if (job.orientation == 2) options.emplace_back("orientation-requested", "4");
  if (job.copies > 1) options.emplace_back("copies", std::to_string(job.copies));
  return options;
}

}  // namespace lupin::engine
