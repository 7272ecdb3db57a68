// lupinprint calibrate: the saved offset of a printer for a report, and its calibration sheet.
#include <iostream>
#include <memory>
#include <optional>

#include "app/command_registry.h"
#include "catalogue/calibration.h"
#include "catalogue/repor_info.h"
#include "common/settings.h"
#include "db/connection.h"
#include "entry/lupns6pt.h"

namespace lupin::app {

namespace {

struct CalibrateArgs {
  std::string printer, home, settings_dir, db_url;
  int report = 0;
  std::optional<int> x, y;
  bool sheet = false;
};

int Run(const CalibrateArgs& args) {
  const auto stores = args.settings_dir.empty() ? settings::StorePaths::Default()
                                                : settings::StorePaths::InFolder(args.settings_dir);
  const std::filesystem::path home =
      args.home.empty() ? entry::DefaultComponentDirectory(stores) : std::filesystem::path(args.home);
  const catalogue::CalibrationStore store(home);
  catalogue::CalibrationOffset offset = store.Get(args.printer, args.report);
  if (args.x || args.y) {
    if (args.x) offset.x = *args.x;
    if (args.y) offset.y = *args.y;
    if (!store.Set(args.printer, args.report, offset)) {
      std::cerr << "ファイル '" << store.File().string() << "' に書き込めません。\n";
      return 1;
    }
  }
  std::cout << args.printer << " 帳票 " << args.report << ": 横 " << offset.x << " 縦 " << offset.y
            << " (0.1mm, 右・下が正)\n";
  if (!args.sheet) return 0;

  int paper_size = 0, paper_bin = 0;
  if (!args.db_url.empty()) {
    // The sheet goes on the paper and through the tray the report uses.
    std::unique_ptr<db::Connection> connection = db::OpenConnection(args.db_url);
    catalogue::clsReporInfo info;
    info.Connection(connection.get());
    info.INIFile(home / "REPORT.INI");
    info.GetReportSetting(args.report);
    paper_size = info.PaperSize();
    paper_bin = info.PaperBin();
  }
  const engine::PrintOutcome outcome =
      catalogue::PrintCalibrationSheet(args.printer, args.report, offset, paper_size, paper_bin);
  if (!outcome.ok) {
    std::cerr << outcome.message << '\n';
    return 1;
  }
  std::cout << "位置合わせシートを " << outcome.printer << " に送りました (ジョブ " << outcome.job_id << ")。\n";
  return 0;
}

const RegisterCommand kRegistration([](CLI::App& root) {
  auto args = std::make_shared<CalibrateArgs>();
  CLI::App* cmd = root.add_subcommand("calibrate", "プリンタごと・帳票ごとの印字位置の補正を表示・設定し、位置合わせシートを印刷します");
  cmd->footer("例: lupinprint calibrate --printer LupinPDF --report 25 --x 15 --y -5\n"
              "    lupinprint calibrate --printer LupinPDF --report 25 --sheet --db sqlite:demo.db");
  cmd->add_option("--printer", args->printer, "プリンタ (CUPS のキュー名)")->required();
  cmd->add_option("--report", args->report, "帳票番号")->required();
  cmd->add_option("--x", args->x, "横の補正 (0.1mm 単位, 右が正)");
  cmd->add_option("--y", args->y, "縦の補正 (0.1mm 単位, 下が正)");
  cmd->add_flag("--sheet", args->sheet, "補正を加えた位置合わせシートを印刷");
  cmd->add_option("--db", args->db_url, "接続先: シートを帳票の用紙と給紙方法で印刷するとき");
  cmd->add_option("--home", args->home, "コンポーネントのフォルダ (CALIBRATE.INI)");
  cmd->add_option("--settings", args->settings_dir, "設定ファイルのフォルダ");
  cmd->callback([args] {
    const int code = Run(*args);
    if (code != 0) throw CLI::RuntimeError(code);
  });
});

}  // namespace

}  // namespace lupin::app
