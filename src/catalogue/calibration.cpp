#include "catalogue/calibration.h"

#include <charconv>
#include <cmath>

#include "common/settings.h"
#include "engine/render_error.h"
#include "engine/render_pdf.h"

namespace lupin::catalogue {

namespace {

constexpr double kTwipsPerMm = 56.7;  // the system's own conversion
constexpr double kFirstCrossMm = 20;
constexpr double kCrossStepMm = 50;
constexpr double kCrossArmMm = 5;

std::int32_t TenthsToTwips(int tenths) { return static_cast<std::int32_t>(std::lround(tenths * kTwipsPerMm / 10.0)); }
std::int32_t MmToTwips(double mm) { return static_cast<std::int32_t>(std::lround(mm * kTwipsPerMm)); }

bool ParseInt(std::string_view text, int& value) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size() && !text.empty();
}

engine::PageItem LineItem(std::string name, std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) {
  engine::PageItem item;
  item.section = "Detail";
  item.name = std::move(name);
  item.kind = engine::ItemKind::Line;
  item.left = left;
  item.top = top;
  item.width = width;
  item.height = height;
  item.line_weight = 0.5;
  return item;
}

engine::PageItem TextItem(std::string name, std::string text, std::int32_t left, std::int32_t top, std::int32_t width) {
  engine::PageItem item;
  item.section = "Detail";
  item.name = std::move(name);
  item.kind = engine::ItemKind::Label;
  item.text = std::move(text);
  item.left = left;
  item.top = top;
  item.width = width;
  item.height = MmToTwips(5);
  item.font.name = "ＭＳ ゴシック";
  item.font.size = 8;
  return item;
}

}  // namespace

CalibrationStore::CalibrationStore(const std::filesystem::path& component_directory)
    : file_(component_directory / "CALIBRATE.INI") {}

CalibrationOffset CalibrationStore::Get(std::string_view printer, std::int32_t report_no) const {
  CalibrationOffset offset;
  if (printer.empty()) return offset;
  const std::string text = settings::ReadProfileString(file_, printer, std::to_string(report_no), "");
  if (!ParseOffset(text, offset)) return {};
  return offset;
}

bool CalibrationStore::Set(std::string_view printer, std::int32_t report_no, CalibrationOffset offset) const {
  if (printer.empty()) return false;
  return settings::WriteProfileString(file_, printer, std::to_string(report_no), OffsetText(offset));
}

bool ParseOffset(std::string_view text, CalibrationOffset& offset) {
  const auto comma = text.find(',');
  if (comma == std::string_view::npos) return false;
  CalibrationOffset parsed;
  if (!ParseInt(text.substr(0, comma), parsed.x) || !ParseInt(text.substr(comma + 1), parsed.y)) return false;
  offset = parsed;
  return true;
}

std::string OffsetText(CalibrationOffset offset) { return std::to_string(offset.x) + "," + std::to_string(offset.y); }

void ShiftPage(engine::Page& page, CalibrationOffset offset) {
  const std::int32_t dx = TenthsToTwips(offset.x), dy = TenthsToTwips(offset.y);
  if (dx == 0 && dy == 0) return;
  for (auto& item : page.items) {
    item.left += dx;
    item.top += dy;
  }
}

void OffsetSink::AddPage(const engine::Page& page) {
  if (offset_ == CalibrationOffset{}) {
    target_.AddPage(page);
    return;
  }
  engine::Page moved = page;
  ShiftPage(moved, offset_);
  target_.AddPage(moved);
}

engine::Page CalibrationSheet(double width_mm, double height_mm, std::string_view printer, std::int32_t report_no) {
  engine::Page page;
  page.number = 1;
  page.width = MmToTwips(width_mm);
  page.height = MmToTwips(height_mm);
  page.items.push_back(TextItem("lblTitle",
                                "位置合わせシート  プリンタ: " + std::string(printer) + "  帳票番号: " +
                                    std::to_string(report_no),
                                MmToTwips(kFirstCrossMm + 8), MmToTwips(8), MmToTwips(width_mm - 2 * kFirstCrossMm)));
  page.items.push_back(TextItem("lblHint", "十字の中心が印の位置からずれた分を、右・下を正として 0.1mm 単位で設定します。",
                                MmToTwips(kFirstCrossMm + 8), MmToTwips(13), MmToTwips(width_mm - 2 * kFirstCrossMm)));
  int n = 0;
  for (double y = kFirstCrossMm; y <= height_mm - 10; y += kCrossStepMm) {
    for (double x = kFirstCrossMm; x <= width_mm - 10; x += kCrossStepMm) {
      const std::string id = std::to_string(++n);
      const std::int32_t cx = MmToTwips(x), cy = MmToTwips(y), arm = MmToTwips(kCrossArmMm);
      page.items.push_back(LineItem("linH" + id, cx - arm, cy, 2 * arm, 0));
      page.items.push_back(LineItem("linV" + id, cx, cy - arm, 0, 2 * arm));
      page.items.push_back(TextItem("lblPos" + id,
                                    "X" + std::to_string(std::lround(x)) + " Y" + std::to_string(std::lround(y)),
                                    cx + MmToTwips(1), cy + MmToTwips(1), MmToTwips(25)));
    }
  }
  return page;
}

engine::PrintOutcome PrintCalibrationSheet(std::string_view printer, std::int32_t report_no, CalibrationOffset offset,
                                           int paper_size, int paper_bin) {
  const std::string pdf = (std::filesystem::temp_directory_path() / "lupinprint-calibration.pdf").string();
  try {
    engine::PdfRenderer renderer(pdf);
    renderer.Begin({"calibration", "位置合わせシート"});
    engine::Page sheet = CalibrationSheet(210, 297, printer, report_no);
    ShiftPage(sheet, offset);
    renderer.AddPage(sheet);
    renderer.End();
  } catch (const engine::RenderError& e) {
    engine::PrintOutcome failed;
    failed.message = e.what();
    return failed;
  }
  engine::PrintJob job;
  job.pdf_path = pdf;
  job.device_name = std::string(printer);
  job.title = "位置合わせシート";
  job.paper_size = paper_size;
  job.paper_bin = paper_bin;
  return engine::SubmitPdf(job);
}

}  // namespace lupin::catalogue
