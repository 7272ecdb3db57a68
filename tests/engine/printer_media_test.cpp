// Paper codes, bins and job options as the print server names them.
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
      {43, 0, 0, "jpn_hagaki_100x148mm"},
      {256, 114.6, 225.4, "custom_115x225mm_115x225mm"},  // whole millimetres, rounded
      {256, 0, 148, ""},                                  // no size given, printer default
      {9999, 0, 0, ""},
  };
  for (const Case& c : cases) EXPECT_EQ(MediaForPaperSize(c.code, c.width, c.height), c.media) << c.code;
  const std::pair<int, const char*> bins[] = {{0, ""}, {4, "manual"}, {258, "tray-3"}};
  for (const auto& [bin, source] : bins) EXPECT_EQ(MediaSourceForBin(bin), source) << bin;
}

TEST(PrintJobOptions, OnlyWhatTheReportSetsIsSent) {
  EXPECT_TRUE(PrintOptions(PrintJob{}).empty());
  PrintJob job;
  job.paper_size = 13;
  job.paper_bin = 2;
  job.orientation = 1;
  job.copies = 3;
  const std::vector<std::pair<std::string, std::string>> expected = {
      {"media", "jis_b5_182x257mm"}, {"media-source", "bottom"}, {"orientation-requested", "3"}, {"copies", "3"}};
  EXPECT_EQ(PrintOptions(job), expected);
}

}  // namespace
}  // namespace lupin::engine
