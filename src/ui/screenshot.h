#pragma once
// Renders a window of the desktop offscreen to a PNG, driving it through the same handlers a user
// does: the selection form, the print list of a report, its preview, the print settings, the
// catalogue maintenance or a list window.
#include <string>

#include "entry/context.h"

namespace lupin::ui {

struct ScreenshotRequest {
  std::string file;             // the PNG to write
  std::string window = "frmSelect";
  int report = -1;              // the report to choose first
  int page = 1;                 // the preview page
};

// 0 when the PNG was written; 1 with a message on the error stream otherwise. Needs a QApplication.
int TakeScreenshot(const ScreenshotRequest& request, entry::Context& context);

}  // namespace lupin::ui
