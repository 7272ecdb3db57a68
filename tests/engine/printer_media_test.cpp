#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "engine/printer.h"

namespace lupin::engine {
namespace {

TEST(PaperSizeMedia, CodesMapToPwgNames) {
  struct Case {
    int code;
    double width, height;
    const char* media;
  };
  const Case cases[] = {
      {9, 0, 0, "iso_a4_210x297mm"},
      {13, 0, 0, "jis_b5_182x257mm"},
      {11, 0, 0, "iso_a5_148x210mm"},
      {12, 0, 0, "jis_b4_257x364mm"},
      {8, 0, 0, "iso_a3_297x420mm"},
      {1, 0, 0, "na_letter_8.5x11in"},
      {43, 0, 0, "jpn_hagaki_100x148mm"},
      {256, 100, 148, "custom_100x148mm_100x148mm"},
      {256, 114.6, 225.4, "custom_115x225mm_115x225mm"},  // whole millimetres, rounded
      {256, 0, 148, ""},                                  // no size given, printer default
      {0, 0, 0, ""},
      {9999, 0, 0, ""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(MediaForPaperSize(c.code, c.width, c.height), c.media) << c.code;
  }
}

TEST(PaperBinSource, BinsMapToMediaSources) {
  const std::pair<int, const char*> cases[] = {
      {0, ""}, {1, "top"}, {2, "bottom"}, {4, "manual"}, {7, "auto"},
      {256, "tray-1"}, {258, "tray-3"},
  };
  for (const auto& [bin, source] : cases) EXPECT_EQ(MediaSourceForBin(bin), source) << bin;
}

TEST(PrintJobOptions, OnlyWhatTheReportSetsIsSent) {
  using Options = std::vector<std::pair<std::string, std::string>>;
  struct Case {
    const char* what;
    PrintJob job;
    Options expected;
  };
  PrintJob a4_landscape;
  a4_landscape.paper_size = 9;
  a4_landscape.orientation = 2;
  PrintJob b5_tray;
  b5_tray.paper_size = 13;
  b5_tray.paper_bin = 2;
  b5_tray.orientation = 1;
  b5_tray.copies = 3;
  PrintJob hagaki_custom;
  hagaki_custom.paper_size = 256;
  hagaki_custom.paper_width_mm = 100;
  hagaki_custom.paper_height_mm = 148;
  hagaki_custom.paper_bin = 4;
  const Case cases[] = {
      {"defaults", PrintJob{}, {}},
      {"A4 landscape", a4_landscape, {{"media", "iso_a4_210x297mm"}, {"orientation-requested", "4"}}},
      {"B5 lower tray, three copies",
       b5_tray,
       {{"media", "jis_b5_182x257mm"},
        {"media-source", "bottom"},
        {"orientation-requested", "3"},
        {"copies", "3"}}},
      {"custom size by hand",
       hagaki_custom,
       {{"media", "custom_100x148mm_100x148mm"}, {"media-source", "manual"}}},
  };
  for (const Case& c : cases) EXPECT_EQ(PrintOptions(c.job), c.expected) << c.what;
}

}  // namespace
}  // namespace lupin::engine
