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
  using Options = std::vector<std::pair<std::string, std::string>>;
  auto job = [](int paper, int bin, int orientation, int copies) {
    PrintJob j;
    j.paper_size = paper;
    j.paper_bin = bin;
    j.orientation = orientation;
    j.copies = copies;
    j.paper_width_mm = 100;
    j.paper_height_mm = 148;
    return j;
  };
  const std::pair<PrintJob, Options> cases[] = {
      {PrintJob{}, {}},
      {job(13, 2, 1, 3),
       {{"media", "jis_b5_182x257mm"}, {"media-source", "bottom"}, {"orientation-requested", "3"}, {"copies", "3"}}},
      {job(256, 4, 2, 1),
       {{"media", "custom_100x148mm_100x148mm"}, {"media-source", "manual"}, {"orientation-requested", "4"}}},
  };
  for (const auto& [print_job, expected] : cases) EXPECT_EQ(PrintOptions(print_job), expected) << print_job.paper_size;
}

}  // namespace
}  // namespace lupin::engine
