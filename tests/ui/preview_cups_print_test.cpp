// A print from the preview to the PDF printer of the test CUPS server: the paper and bin chosen in
// the print settings reach the job, and the printer's calibration moves what is printed.
#include <QTest>

#include <array>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <thread>

#include "catalogue/calibration.h"
#include "support/cups_jobs.h"
#include "ui/preview_window.h"
#include "ui/print_window.h"
#include "ui/setting_window.h"
#include "ui_fixture.h"

namespace lupin::ui::testing {
namespace {

std::string Shell(const std::string& command) {
  std::string output;
  FILE* pipe = popen((command + " 2>&1").c_str(), "r");
  if (pipe == nullptr) return output;
  std::array<char, 4096> buffer{};
  while (fgets(buffer.data(), buffer.size(), pipe) != nullptr) output += buffer.data();
  pclose(pipe);
  return output;
}

// The leftmost inked column of the first page at 72 dpi, in points; -1 while the file is incomplete.
// The queue's backend turns text into outlines, so the ink is read rather than the text.
double LeftmostInk(const std::filesystem::path& pdf) {
  const std::filesystem::path image = pdf.parent_path() / (pdf.stem().string() + "-ink");
  Shell("pdftoppm -f 1 -l 1 -r 72 -gray '" + pdf.string() + "' '" + image.string() + "'");
  const std::filesystem::path pgm = image.string() + "-1.pgm";
  std::ifstream in(pgm, std::ios::binary);
  std::string magic;
  int width = 0, height = 0, maximum = 0;
  if (!(in >> magic >> width >> height >> maximum) || magic != "P5" || maximum != 255) return -1;
  in.get();
  std::vector<unsigned char> pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  if (!in.read(reinterpret_cast<char*>(pixels.data()), static_cast<std::streamsize>(pixels.size()))) return -1;
  std::filesystem::remove(pgm);
  for (int x = 0; x < width; ++x) {
    for (int y = 0; y < height; ++y) {
      if (pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)] < 128) return x;
    }
  }
  return -1;
}

// The leftmost ink of the PDF the queue's backend wrote for a job, -1 when no complete file
// appeared; the backend may work through other tests' jobs first. The folder keeps files of
// earlier servers whose job numbers started at 1 too, so only files written since `since` count.
double JobLeftmostInk(int job_id, std::filesystem::file_time_type since) {
  const char* home = std::getenv("HOME");
  const std::filesystem::path folder = std::filesystem::path(home != nullptr ? home : "/root") / "PDF";
  const std::string suffix = "-job_" + std::to_string(job_id) + ".pdf";
  for (int i = 0; i < 600; ++i) {
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
      if (!entry.path().filename().string().ends_with(suffix)) continue;
      if (entry.last_write_time(error) < since || error) continue;
      if (const double left = LeftmostInk(entry.path()); left >= 0) return left;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
  }
  return -1;
}

class PreviewCupsPrint : public DesktopTest {
 protected:
  void SetUp() override {
    const std::string started = Shell(std::string(LUPIN_SOURCE_DIR) + "/scripts/cups-test-server start");
    const std::string marker = "export CUPS_SERVER=";
    const auto at = started.find(marker);
    ASSERT_NE(at, std::string::npos) << started;
    std::string server = started.substr(at + marker.size());
    server = server.substr(0, server.find('\n'));
    setenv("CUPS_SERVER", server.c_str(), 1);
    cupsSetServer(server.c_str());
    DesktopTest::SetUp();
    // The real printers of the server, not the fake ones.
    session_ = std::make_unique<DesktopSession>(*context_, "", "", &cups_);
    session_->answer_message = [this](std::string_view text, std::string_view caption, int) {
      messages.push_back(std::string(caption) + ": " + std::string(text));
      return entry::kOk;
    };
    Session().Show();
    Pick(54);
    for (QCheckBox* check : Select().chkChumonOption) check->setChecked(false);
  }
  // Prints report 54 from its preview to LupinPDF; the job id.
  int PrintFromPreview() {
    int job = 0;
    Session().answer_print_dialog = [](const std::vector<std::string>& printers, const std::string&) {
      EXPECT_NE(std::find(printers.begin(), printers.end(), "LupinPDF"), printers.end());
      return std::string("LupinPDF");
    };
    Session().drive_modal = [&](std::string_view form, QWidget& window) {
      if (form == "frmPrint") {
        // One order, one page: the queue's backend turns it into its PDF quickly.
        auto& print = static_cast<PrintWindow&>(window);
        print.cmdAllEject->click();
        print.sprList->model()->setData(print.sprList->model()->index(0, 0), Qt::Checked, Qt::CheckStateRole);
        print.cmdPrint();
        return;
      }
      auto& preview = static_cast<PreviewWindow&>(window);
      preview.ToolClick(PreviewWindow::kPrintToolId);
      EXPECT_TRUE(preview.Engine().LastPrint().ok) << preview.Engine().LastPrint().message;
      job = preview.Engine().LastPrint().job_id;
    };
    Select().cmdSelect->click();
    return job;
  }
  catalogue::CupsPrinterCapabilities cups_;
};

TEST_F(PreviewCupsPrint, PaperBinAndCalibrationReachTheJob) {
  Session().drive_modal = [&](std::string_view, QWidget& window) {
    auto& w = static_cast<SettingWindow&>(window);
    for (auto [combo, text] : {std::pair{w.cboDeviceName, "LupinPDF"}, std::pair{w.cboPaperSize, "A3、297 x 420 mm"},
                               std::pair{w.cboPaperBin, "自動"}}) {
      const int index = combo->findText(QString::fromUtf8(text));
      ASSERT_GE(index, 0) << text;
      combo->setCurrentIndex(index);
      emit combo->activated(index);
    }
    w.txtOffsetX->setText("100");  // 10 mm to the right
    w.cmdSetButton->click();
  };
  Select().cmdFormat->click();
  // File times are kept to the second on some file systems.
  const auto since = std::filesystem::file_time_type::clock::now() - std::chrono::seconds(2);
  EXPECT_EQ(catalogue::CalibrationStore(home_.Path()).Get("LupinPDF", 54), (catalogue::CalibrationOffset{100, 0}));

  const int moved = PrintFromPreview();
  ASSERT_GT(moved, 0);
  const lupin::testing::JobAttributes attributes = lupin::testing::ReadJob(moved);
  EXPECT_EQ(attributes.media, "iso_a3_297x420mm");
  EXPECT_EQ(attributes.media_source, "auto");

  catalogue::CalibrationStore(home_.Path()).Set("LupinPDF", 54, {});
  const int plain = PrintFromPreview();
  ASSERT_GT(plain, 0);
  const double moved_left = JobLeftmostInk(moved, since), plain_left = JobLeftmostInk(plain, since);
  if (moved_left < 0 || plain_left < 0) GTEST_SKIP() << "the queue wrote no PDF (cups-pdf is not installed)";
  const double shift_pt = moved_left - plain_left;
  EXPECT_NEAR(shift_pt, 10 / 25.4 * 72, 2);
}

}  // namespace
}  // namespace lupin::ui::testing
