#pragma once
// What the private CUPS server recorded for a job: the paper, tray and orientation it was sent with.
#include <cups/cups.h>

#include <string>

namespace lupin::testing {

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
