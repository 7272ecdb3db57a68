#pragma once
// What a printer offers to the print-settings window: its paper sizes and bins, each a code with a
// name, as the combo boxes hold them. The names of codes a driver does not name come from the
// fixed tables of the old driver interface.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lupin::catalogue {

struct NamedCode {
  std::int32_t code = 0;
  std::string name;
};

struct DeviceCapabilities {
  bool readable = false;  // false: the printer could not be asked at all
  std::vector<NamedCode> papers;
  std::vector<NamedCode> bins;
};

// The operating system's printers, as the print-settings window asks for them.
class PrinterCapabilities {
 public:
  virtual ~PrinterCapabilities() = default;
  virtual std::vector<std::string> Printers() = 0;
  virtual DeviceCapabilities Capabilities(std::string_view device) = 0;
};

// The printers of the CUPS server, read once per object.
class CupsPrinterCapabilities : public PrinterCapabilities {
 public:
  std::vector<std::string> Printers() override;
  DeviceCapabilities Capabilities(std::string_view device) override;
};

// Fixed names: paper codes 1 to 41 and 256; bin codes. "不明" for a paper code outside the table,
// "" for an unknown bin.
std::string_view PaperSizeName(std::int32_t code);
std::string_view PaperBinName(std::int32_t code);
// The paper code of a PWG media name the print command can send back, 0 when there is none.
std::int32_t PaperCodeForMedia(std::string_view media);
// The bin code of a media-source keyword, 0 when there is none.
std::int32_t BinCodeForSource(std::string_view source);
// Capabilities from a CUPS description: media and input slots turned into codes and names, in
// the driver's order, each code once. A driver naming no trays gets the bin "自動".
DeviceCapabilities CapabilitiesOf(const std::vector<std::string>& media, const std::vector<std::string>& input_slots);

}  // namespace lupin::catalogue
