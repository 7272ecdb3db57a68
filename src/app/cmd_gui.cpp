// lupinprint gui: the desktop on the configured database. With --screenshot it renders a window
// offscreen to a PNG and ends; without a display it writes a sample preview PDF instead.
#include <QApplication>
#include <QWidget>

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <sstream>

#include "app/cli_support.h"
#include "app/command_registry.h"
#include "common/files.h"
#include "db/connection.h"
#include "entry/lupns6pt.h"
#include "run/headless_run.h"
#include "run/preview_runner_engine.h"
#include "ui/qt_select_form_runner.h"
#include "ui/screenshot.h"

namespace lupin::app {

namespace {

// The report the desktop previews when there is no screen to show it on: the picking list.
constexpr int kSampleReport = 54;

struct GuiArgs {
  std::string db_url, login, home, settings_dir, command, screenshot;
  std::string window;
  int report = -1;
  int page = 1;
  bool preview = false;
};

std::string ConfiguredDatabase(const GuiArgs& args, const settings::Settings& store) {
  if (!args.db_url.empty()) return args.db_url;
  if (const char* env = std::getenv("LUPIN_DB"); env != nullptr && *env != '\0') return env;
  return store.GetSetting(0, "", "ConnectString");
}

bool HasDisplay() {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
    if (const char* value = std::getenv(name); value != nullptr && *value != '\0') return true;
  }
  return false;
}

// The windows --screenshot can draw.
constexpr const char* kWindows[] = {"frmSelect", "frmPrint", "frmPreview", "frmSetting", "frmAllFormat",
                                    "注文一覧", "顧客一覧", "商品一覧"};

entry::LoginRecord ParseLogin(const std::string& text) {
  run::LoginParts parts;
  if (!text.empty()) {
    if (const std::string refusal = run::CheckLogin(text, parts); !refusal.empty()) RefuseUsage(refusal);
  }
  return {parts.user, parts.number, parts.client};
}

void CheckArguments(const GuiArgs& args) {
  ParseLogin(args.login);
  if (args.page < 1) RefuseUsage("--page の値 " + std::to_string(args.page) + " は使えません。1 以上のページ番号で指定してください。");
  if (args.window.empty()) return;
  std::string list;
  for (const char* window : kWindows) {
    if (args.window == window) return;
    list += (list.empty() ? "" : ", ") + std::string(window);
  }
  RefuseUsage("--window の値 '" + args.window + "' は使えません。次のいずれかです: " + list);
}

// A --report that the catalogue of this database does not offer is refused with the ones it does.
void CheckReport(db::Connection& connection, int report) {
  if (report < 0) return;
  auto rs = connection.Open("SELECT [REPORT_NO] FROM [REPORT] WHERE [ENABLED] <> 0 ORDER BY [REPORT_NO]");
  std::string list;
  for (; !rs.Eof(); rs.MoveNext()) {
    const auto number = rs["REPORT_NO"].Long();
    if (number == report) return;
    list += (list.empty() ? "" : ", ") + std::to_string(number);
  }
  RefuseUsage("--report の値 " + std::to_string(report) +
              " は帳票の一覧にありません (REPORT にないか、ENABLED が 0 です)。帳票番号は次のいずれかです: " + list);
}

int WriteSamplePdf(const GuiArgs& args, const std::string& db_url, const std::filesystem::path& home) {
  run::RegisterEnginePreviewRunner();
  run::RunOptions options;
  options.db_url = db_url;
  const entry::LoginRecord login = ParseLogin(args.login);
  options.login_user = login.user;
  options.login_number = login.number;
  options.client_name = login.client_name;
  options.home = home.string();
  options.settings_dir = args.settings_dir;
  options.report = args.report >= 0 ? args.report : kSampleReport;
  options.clear_criteria = true;
  options.quiet = true;
  options.outputs.pdf = (home / "preview.pdf").string();
  std::ostringstream out;
  const int code = run::RunHeadless(options, out, std::cerr);
  if (code == 0) {
    std::cout << "画面がないため、帳票 " << options.report << " のプレビューを PDF に書き出しました: "
              << options.outputs.pdf << '\n';
  }
  return code;
}

int Interactive(const GuiArgs& args, db::Connection& connection, const settings::StorePaths& stores,
                const std::filesystem::path& home) {
  entry::Lupns6pt lupns6pt(stores, home);
  lupns6pt.dbConnection(&connection);
  lupns6pt.LoginInfo(ParseLogin(args.login));
  lupns6pt.Command(args.command);
  if (args.report >= 0) {
    auto rs = connection.Open("SELECT [REPORT_NAME] FROM [REPORT] WHERE [REPORT_NO] = " + std::to_string(args.report));
    if (!rs.Eof()) lupns6pt.Report(rs["REPORT_NAME"].Text());
  }
  ui::RegisterDesktop();
  lupns6pt.Show();
  return 0;
}

int Run(const GuiArgs& args) {
  CheckArguments(args);
  const auto stores = args.settings_dir.empty() ? settings::StorePaths::Default()
                                                : settings::StorePaths::InFolder(args.settings_dir);
  const std::filesystem::path home = ComponentHome(args.home);
  std::error_code ignored;
  std::filesystem::create_directories(home, ignored);
  const std::string db_url = ConfiguredDatabase(args, settings::Settings(stores));
  if (db_url.empty()) {
    Fail("データベースが設定されていません。--db sqlite:PATH か環境変数 LUPIN_DB で指定してください。", kExitNotOpened);
  }
  const bool screenshot = !args.screenshot.empty();
  if (!screenshot && !HasDisplay()) return WriteSamplePdf(args, db_url, home);
  if (screenshot) setenv("QT_QPA_PLATFORM", "offscreen", 1);

  const std::unique_ptr<db::Connection> connection = OpenDatabase(db_url);
  CheckReport(*connection, args.report);
  int argc = 1;
  char name[] = "lupinprint";
  char* argv[] = {name, nullptr};
  QApplication application(argc, argv);
  if (!screenshot) return Interactive(args, *connection, stores, home);

  entry::Context context(connection.get(), stores, home);
  context.login = ParseLogin(args.login);
  context.command = args.command;
  context.default_item_name = files::ReadFirstLine(home / "hinmei.txt");
  ui::ScreenshotRequest request;
  request.file = args.screenshot;
  request.report = args.report;
  request.page = args.page;
  request.window = !args.window.empty() ? args.window : args.preview ? "frmPreview" : "frmSelect";
  return ui::TakeScreenshot(request, context);
}

const RegisterCommand kRegistration([](CLI::App& root) {
  auto args = std::make_shared<GuiArgs>();
  CLI::App* cmd = root.add_subcommand("gui", "デスクトップ (印刷選択の画面) を開きます");
  cmd->footer("例: lupinprint gui --db sqlite:demo.db --login 山田,1,PC01\n"
              "    lupinprint gui --db sqlite:demo.db --screenshot select.png\n"
              "    lupinprint gui --db sqlite:demo.db --screenshot preview.png --report 54 --preview");
  cmd->add_option("--db", args->db_url, "接続先 (sqlite:PATH, postgresql://...); 省略時は LUPIN_DB か設定 ConnectString");
  cmd->add_option("--login", args->login, "ログイン: USER,NUMBER,CLIENT (CLIENT は CLIENT_NAME)");
  AddHomeOption(*cmd, args->home);
  cmd->add_option("--settings", args->settings_dir, "設定ファイルのフォルダ (machine.ini, lupin.ini, fallback.ini)");
  cmd->add_option("--command", args->command, "コマンド文字列");
  cmd->add_option("--report", args->report, "帳票番号: この帳票を選んだ状態で開く");
  cmd->add_option("--screenshot", args->screenshot, "画面を表示せずに PNG ファイルへ描いて終了");
  cmd->add_flag("--preview", args->preview, "--screenshot で、--report の全件のプレビューを描く");
  cmd->add_option("--window", args->window,
                  "--screenshot で描く画面: frmSelect, frmPrint, frmPreview, frmSetting, frmAllFormat, 注文一覧, 顧客一覧, 商品一覧");
  cmd->add_option("--page", args->page, "--preview で描くページ");
  cmd->callback([args] {
    const int code = Run(*args);
    if (code != kExitDone) Exit(code);
  });
});

}  // namespace

}  // namespace lupin::app
