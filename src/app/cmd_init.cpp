// lupinprint init: the tables of a new database, the report catalogue, and optionally a demo shop.
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <string>

#include "app/cli_support.h"
#include "app/command_registry.h"
#include "common/settings.h"
#include "db/connection.h"
#include "demo/demo_data.h"
#include "entry/schema.h"

namespace lupin::app {
namespace {

struct InitArgs {
  std::string db_url;
  int demo = 0;
  std::uint64_t seed = 1;
  std::string home;
  std::string settings;
};

// 12345 → "12,345"
std::string Grouped(long long value) {
  std::string digits = std::to_string(value < 0 ? -value : value);
  for (int at = static_cast<int>(digits.size()) - 3; at > 0; at -= 3) digits.insert(static_cast<std::size_t>(at), ",");
  return value < 0 ? "-" + digits : digits;
}

// SQLite and PostgreSQL both take dates between apostrophes: dialect 0.
void WriteDialect(const InitArgs& args) {
  settings::StorePaths paths =
      args.settings.empty() ? settings::StorePaths::Default() : settings::StorePaths::InFolder(args.settings);
  if (!args.settings.empty()) {
    // A folder given for the settings is a new installation's: its machine store starts here.
    std::error_code error;
    std::filesystem::create_directories(args.settings, error);
    if (!std::filesystem::exists(paths.machine_ini, error)) std::ofstream(paths.machine_ini).flush();
  }
  settings::Settings store(paths);
  store.SaveSetting(0, "0", "ResouceMode");
  if (store.GetSetting(0, "1", "ResouceMode") != "0") {
    std::cerr << "警告: 設定 ResouceMode を書き込めませんでした (" << paths.machine_ini.string() << ")。\n";
  } else {
    std::cout << "設定: ResouceMode = 0\n";
  }
}

void PrepareHome(const std::filesystem::path& home) {
  std::error_code error;
  std::filesystem::create_directories(home / "Format", error);
  if (error) Fail("フォルダ " + home.string() + " を作成できません: " + error.message(), kExitNotOpened);
  std::cout << "コンポーネントのフォルダ: " << home.string() << '\n';
}

void RunInit(const InitArgs& args) {
  // The one command that may create a database: OpenConnection makes a missing SQLite file.
  std::unique_ptr<db::Connection> connection;
  if (args.db_url.starts_with("sqlite:")) {
    std::error_code ignored;  // a folder that cannot be made shows as the open's failure
    const auto folder = std::filesystem::path(args.db_url.substr(7)).parent_path();
    if (!folder.empty()) std::filesystem::create_directories(folder, ignored);
  }
  try {
    connection = db::OpenConnection(args.db_url);
  } catch (const std::exception& e) {
    Fail(std::string("データベースに接続できません: ") + e.what(), kExitNotOpened);
  }
  const auto start = std::chrono::steady_clock::now();

  entry::CreateSchema(*connection);
  const long existing = demo::CountOrders(*connection);
  if (args.demo > 0 && existing > 0) {
    // Demo orders start at ID 1; adding them to real orders would collide or mix both.
    Fail("このデータベースには既に受注データが " + Grouped(existing) +
         " 件あります。デモデータは受注のないデータベースにだけ作成できます。");
  }
  const demo::CatalogueSummary catalogue = demo::FillCatalogue(*connection);
  PrepareHome(ComponentHome(args.home));

  demo::DemoSummary demo;
  if (args.demo > 0) {
    demo::DemoOptions options;
    options.orders = args.demo;
    options.seed = args.seed;
    const auto demo_start = std::chrono::steady_clock::now();
    const bool terminal = ErrorStreamIsTerminal();  // in a log the summary below is enough
    if (terminal) options.progress = [demo_start](int done, int total) {
      const double seconds =
          std::chrono::duration<double>(std::chrono::steady_clock::now() - demo_start).count();
      const long long rate = seconds > 0 ? static_cast<long long>(done / seconds) : 0;
      std::cerr << "\rデモデータ作成中: " << Grouped(done) << " / " << Grouped(total) << " 件 ("
                << Grouped(rate) << " 件/秒)" << std::flush;
    };
    demo = demo::FillDemoData(*connection, options);
    if (terminal) std::cerr << '\n';
  }
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();

  std::cout << "データベースを初期化しました。\n"
            << "テーブル: " << entry::SchemaTables().size() << " 個\n"
            << "帳票定義 (REPORT): " << catalogue.reports_added << " 件追加\n"
            << "税率 (TAX): " << catalogue.tax_rows_added << " 件追加\n";
  if (args.demo > 0) {
    std::cout << "ショップ: " << demo.shops << " 件、支払方法: " << demo.payments << " 件、商品: " << demo.items
              << " 件、担当者: " << demo.staff << " 件\n"
              << "顧客: " << Grouped(demo.customers) << " 件\n"
              << "受注: " << Grouped(demo.orders) << " 件 (明細 " << Grouped(demo.order_lines) << " 行、シード "
              << args.seed << ")\n";
  }
  char elapsed[32];
  std::snprintf(elapsed, sizeof elapsed, "%.1f", seconds);
  std::cout << "所要時間: " << elapsed << " 秒\n";
  if (args.db_url.starts_with("sqlite:")) std::cerr << "出力しました: " << args.db_url.substr(7) << '\n';
  WriteDialect(args);
}

lupin::app::RegisterCommand reg([](CLI::App& root) {
  auto args = std::make_shared<InitArgs>();
  auto* cmd = root.add_subcommand("init", "データベースのテーブルと帳票定義を作成し、必要ならデモデータを作成します");
  cmd->add_option("--db", args->db_url, "接続先 (sqlite:ファイル または postgresql://...)")->required();
  cmd->add_option("--demo", args->demo, "作成するデモ受注の件数 (0 で作成しない)")->check(CLI::Range(0, 10000000));
  cmd->add_option("--seed", args->seed, "デモデータの乱数シード (同じシードなら同じデータ)");
  AddHomeOption(*cmd, args->home);
  cmd->add_option("--settings", args->settings, "設定ファイルのフォルダ (machine.ini、lupin.ini)");
  cmd->callback([args] { RunInit(*args); });
});

}  // namespace
}  // namespace lupin::app
