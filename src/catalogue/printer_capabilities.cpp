#include "catalogue/printer_capabilities.h"

#include <algorithm>
#include <array>
#include <cstdlib>

#include "engine/printer.h"

namespace lupin::catalogue {

namespace {

// In paper-code order from 1.
constexpr std::array<std::string_view, 41> kPaperNames{
    "レター、8 1/2 x 11 ｲﾝﾁ", "レター レター スモール、8 1/2 x 11 ｲﾝﾁ", "タブロイド、11 x 17 ｲﾝﾁ",
    "レジャー、17 x 11 ｲﾝﾁ", "リーガル、8 1/2 x 14 ｲﾝﾁ", "ステートメント、5 1/2 x 8 1/2 ｲﾝﾁ",
    "エグゼクティブ、7 1/2 x 10 1/2 ｲﾝﾁ", "A3、297 x 420 mm", "A4、210 x 297 mm", "A4 Small、210 x 297 mm",
    "A5、148 x 210 mm", "B4、250 x 354 mm", "B5、182 x 257 mm", "フォリオ、8 1/2 x 13 ｲﾝﾁ",
    "クォート、215 x 275 mm", "10 x 14 ｲﾝﾁ", "11 x 17 ｲﾝﾁ", "ノート、8 1/2 x 11 ｲﾝﾁ",
    "封筒 #9、3 7/8 x 8 7/8 ｲﾝﾁ", "封筒 #10、4 1/8 x 9 1/2 ｲﾝﾁ", "封筒 #11、4 1/2 x 10 3/8 ｲﾝﾁ",
    "封筒 #12、4 1/2 x 11 ｲﾝﾁ", "封筒 #14、5 x 11 1/2 ｲﾝﾁ", "C サイズ シート", "D サイズ シート", "E サイズ シート",
    "封筒 DL、110 x 220 mm", "封筒 C3、324 x 458 mm", "封筒 C4、229 x 324 mm", "封筒 C5、162 x 229 mm",
    "封筒 C6、114 x 162 mm", "封筒 C65、114 x 229 mm", "封筒 B4、250 x 353 mm", "封筒 B5、176 x 250 mm",
    "封筒 B6、176 x 125 mm", "封筒、110 x 230 mm", "封筒 Monarch、3 7/8 x 7 1/2 ｲﾝﾁ", "封筒、3 5/8 x 6 1/2 ｲﾝﾁ",
    "US スタンダード ファンフォールド、14 7/8 x 11 ｲﾝﾁ", "ドイツ スタンダード ファンフォールド、8 1/2 x 12 ｲﾝﾁ",
    "ドイツ リーガル ファンフォールド、8 1/2 x 13 ｲﾝﾁ"};

struct BinName {
  std::int32_t code;
  std::string_view name;
};
constexpr std::array<BinName, 13> kBinNames{{{1, "上部カセット"}, {2, "下部カセット"}, {3, "中央カセット"},
                                             {4, "手差し"}, {5, "封筒"}, {6, "封筒手差し"}, {7, "自動"},
                                             {8, "トラクタフィーダ"}, {9, "小型カセット"}, {10, "大型カセット"},
                                             {11, "大容量カセット"}, {14, "カセット"}, {12, "クレジットカード"}}};

constexpr std::int32_t kAutoBin = 7;
constexpr std::int32_t kFirstDriverBin = 256;

}  // namespace

std::string_view PaperSizeName(std::int32_t code) {
  if (code >= 1 && code <= static_cast<std::int32_t>(kPaperNames.size())) return kPaperNames[code - 1];
  if (code == 256) return "ユーザー定義のサイズ";
  return "不明";
}

std::string_view PaperBinName(std::int32_t code) {
  for (const auto& bin : kBinNames) {
    if (bin.code == code) return bin.name;
  }
  return {};
}

std::int32_t PaperCodeForMedia(std::string_view media) {
  // Only codes the print command can turn back into the same media name are offered.
  for (std::int32_t code = 1; code < 256; ++code) {
    if (engine::MediaForPaperSize(code) == media) return code;
  }
  return 0;
}

std::int32_t BinCodeForSource(std::string_view source) {
  if (source.starts_with("tray-")) {
    const int tray = std::atoi(std::string(source.substr(5)).c_str());
    return tray > 0 ? kFirstDriverBin + tray - 1 : 0;
  }
  for (std::int32_t code = 1; code < 16; ++code) {
    if (engine::MediaSourceForBin(code) == source) return code;
  }
  return 0;
}

DeviceCapabilities CapabilitiesOf(const std::vector<std::string>& media, const std::vector<std::string>& input_slots) {
  DeviceCapabilities out;
  out.readable = true;
  auto add = [](std::vector<NamedCode>& list, std::int32_t code, std::string name) {
    if (code == 0) return;
    if (std::any_of(list.begin(), list.end(), [&](const NamedCode& n) { return n.code == code; })) return;
    list.push_back({code, std::move(name)});
  };
  for (const auto& name : media) {
    const std::int32_t code = PaperCodeForMedia(name);
    const std::string_view fixed = PaperSizeName(code);
    add(out.papers, code, fixed == "不明" ? name : std::string(fixed));
  }
  for (const auto& slot : input_slots) {
    const std::int32_t code = BinCodeForSource(slot);
    const std::string_view fixed = PaperBinName(code);
    add(out.bins, code, fixed.empty() ? slot : std::string(fixed));
  }
  if (out.bins.empty()) out.bins.push_back({kAutoBin, std::string(PaperBinName(kAutoBin))});
  return out;
}

std::vector<std::string> CupsPrinterCapabilities::Printers() {
  std::vector<std::string> names;
  for (const auto& printer : engine::ListPrinters()) names.push_back(printer.name);
  return names;
}

DeviceCapabilities CupsPrinterCapabilities::Capabilities(std::string_view device) {
  for (const auto& printer : engine::ListPrinters()) {
    if (printer.name == device) return CapabilitiesOf(printer.media, printer.input_slots);
  }
  return {};
}

}  // namespace lupin::catalogue
