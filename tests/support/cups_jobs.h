#pragma once
// The private CUPS server of scripts/cups-test-server, and what it recorded for a job: the paper,
// tray and orientation it was sent with.
#include <cups/cups.h>

#include <cstdlib>
#include <string>

#include "support/temp_files.h"

namespace lupin::testing {

// Starts the server (once per machine; later calls find it running) and gives its address, or ""
// with the script's output in why.
inline std::string StartCupsServer(std::string& why) {
  const CommandResult started = RunCommand(std::string(LUPIN_SOURCE_DIR) + "/scripts/cups-test-server start");
  const std::string marker = "export CUPS_SERVER=";
  const auto at = started.output.find(marker);
  if (at == std::string::npos) return why = started.output, "";
  const std::string rest = started.output.substr(at + marker.size());
  return rest.substr(0, rest.find('\n'));
}

// Points the CUPS client of this process at a server; the client keeps the first one it used.
inline void UseCupsServer(const std::string& server) {
  setenv("CUPS_SERVER", server.c_str(), 1);
  cupsSetServer(server.c_str());
}

struct JobAttributes {
  std::string media, media_source;
  int orientation = 0;
};

inline JobAttributes ReadJob(int job_id) {
  ipp_t* request = ippNewRequest(IPP_OP_GET_JOB_ATTRIBUTES);
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, "ipp://localhost/printers/LupinPDF");
  ippAddInteger(request, IPP_TAG_OPERATION, IPP_TAG_INTEGER, "job-id", job_id);
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", nullptr, "all");
  ipp_t* response = cupsDoRequest(CUPS_HTTP_DEFAULT, request, "/");
  JobAttributes out;
  if (response == nullptr) return out;
  auto text = [&](const char* name) {
    ipp_attribute_t* a = ippFindAttribute(response, name, IPP_TAG_ZERO);
    return a == nullptr ? std::string() : std::string(ippGetString(a, 0, nullptr));
  };
  out.media = text("media");
  out.media_source = text("media-source");
  if (ipp_attribute_t* a = ippFindAttribute(response, "orientation-requested", IPP_TAG_ENUM)) {
    out.orientation = ippGetInteger(a, 0);
  }
  ippDelete(response);
  return out;
}

}  // namespace lupin::testing
