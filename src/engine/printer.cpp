#include "engine/printer.h"

#include <cups/cups.h>

#include <algorithm>
#include <filesystem>
#include <memory>

namespace lupin::engine {
namespace {

struct DestsDeleter {
  int count;
  void operator()(cups_dest_t* dests) const { cupsFreeDests(count, dests); }
};

std::string CupsMessage() {
  const char* text = cupsLastErrorString();
  return text != nullptr && *text != '\0' ? text : ippErrorString(cupsLastError());
}

std::string Failure(const std::string& device, const std::string& reason) {
  if (device.empty()) return "既定のプリンタに印刷できません: " + reason;
  return "プリンタ '" + device + "' に印刷できません: " + reason;
}

std::vector<std::string> SupportedValues(cups_dest_t* dest, cups_dinfo_t* info, const char* name) {
  std::vector<std::string> values;
  ipp_attribute_t* attr = cupsFindDestSupported(CUPS_HTTP_DEFAULT, dest, info, name);
  for (int i = 0; attr != nullptr && i < ippGetCount(attr); ++i) {
    if (const char* value = ippGetString(attr, i, nullptr); value != nullptr) values.emplace_back(value);
  }
  return values;
}

}  // namespace

PrintOutcome SubmitPdf(const PrintJob& job) {
  PrintOutcome outcome;
  std::error_code ec;
  if (!std::filesystem::is_regular_file(job.pdf_path, ec)) {
    outcome.message = Failure(job.device_name, "ファイル '" + job.pdf_path + "' がありません");
    return outcome;
  }
  cups_dest_t* dest = cupsGetNamedDest(
      CUPS_HTTP_DEFAULT, job.device_name.empty() ? nullptr : job.device_name.c_str(), nullptr);
  if (dest == nullptr) {
    outcome.message = Failure(job.device_name, cupsLastError() == IPP_STATUS_OK
                                                   ? std::string("プリンタが見つかりません")
                                                   : CupsMessage());
    return outcome;
  }
  std::unique_ptr<cups_dest_t, DestsDeleter> owner(dest, DestsDeleter{1});
  outcome.printer = dest->name;

  cups_option_t* options = nullptr;
  int count = 0;
  for (const auto& [name, value] : PrintOptions(job)) {
    count = cupsAddOption(name.c_str(), value.c_str(), count, &options);
  }
  const std::string title = job.title.empty() ? "Lupin Print" : job.title;
  outcome.job_id = cupsPrintFile2(CUPS_HTTP_DEFAULT, dest->name, job.pdf_path.c_str(),
                                  title.c_str(), count, options);
  cupsFreeOptions(count, options);
  if (outcome.job_id <= 0) {
    outcome.job_id = 0;
    outcome.message = Failure(job.device_name.empty() ? outcome.printer : job.device_name,
                              CupsMessage());
    return outcome;
  }
  outcome.ok = true;
  return outcome;
}

std::vector<PrinterInfo> ListPrinters(std::string* message) {
  std::vector<PrinterInfo> printers;
  if (message != nullptr) message->clear();
  cups_dest_t* dests = nullptr;
  const int count = cupsGetDests2(CUPS_HTTP_DEFAULT, &dests);
  std::unique_ptr<cups_dest_t, DestsDeleter> owner(dests, DestsDeleter{count});
  if (count == 0) {
    if (message != nullptr && cupsLastError() > IPP_STATUS_OK_EVENTS_COMPLETE) {
      *message = "プリンタの一覧を取得できません: " + CupsMessage();
    }
    return printers;
  }
  for (int i = 0; i < count; ++i) {
    cups_dest_t* dest = &dests[i];
    if (dest->instance != nullptr) continue;  // instances share the queue's capabilities
    PrinterInfo info;
    info.name = dest->name;
    info.is_default = dest->is_default != 0;
    if (const char* text = cupsGetOption("printer-info", dest->num_options, dest->options)) {
      info.description = text;
    }
    if (cups_dinfo_t* dinfo = cupsCopyDestInfo(CUPS_HTTP_DEFAULT, dest); dinfo != nullptr) {
      const int media = cupsGetDestMediaCount(CUPS_HTTP_DEFAULT, dest, dinfo, 0);
      for (int m = 0; m < media; ++m) {
        cups_size_t size;
        if (cupsGetDestMediaByIndex(CUPS_HTTP_DEFAULT, dest, dinfo, m, 0, &size)) {
          // A queue without margins names its sizes "…_borderless"; the paper is the same.
          std::string name = size.media;
          const std::string suffix = "_borderless";
          if (name.size() > suffix.size() && name.ends_with(suffix)) name.resize(name.size() - suffix.size());
          if (std::find(info.media.begin(), info.media.end(), name) == info.media.end()) {
            info.media.push_back(std::move(name));
          }
        }
      }
      info.input_slots = SupportedValues(dest, dinfo, "media-source");
      cupsFreeDestInfo(dinfo);
    }
    printers.push_back(std::move(info));
  }
  return printers;
}

}  // namespace lupin::engine
