// lupinprint: the headless entry of the print component, for scripts, batch jobs and tests.
#include <CLI/CLI.hpp>

#include <clocale>
#include <exception>
#include <iostream>

#include "app/cli_support.h"
#include "app/command_registry.h"

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "C.UTF-8");
  CLI::App root{"lupinprint — LupinOrder6 の印刷・出力コンポーネント (コマンドライン版)"};
  root.require_subcommand(1);
  root.footer(
      "例:\n"
      "  lupinprint init --db sqlite:demo.db --demo 1000     デモデータベースを作成\n"
      "  lupinprint catalogue --db sqlite:demo.db            帳票の一覧\n"
      "  lupinprint run --db sqlite:demo.db --report 25 --sql 選択の SQL 文\n"
      "  lupinprint tax --db sqlite:demo.db --id 1           受注 1 の税率別計算\n"
      "  lupinprint settings list                            設定の一覧\n"
      "終了コード: 0 完了, 1 システムのメッセージで停止, 2 データベースか出力先を開けない,\n"
      "            3 印刷・出力するデータがない, 64 コマンドラインの指定の誤り\n"
      "各サブコマンドの詳細は lupinprint SUBCOMMAND --help で表示します。");
  for (const auto& install : lupin::app::Installers()) install(root);
  // Without a subcommand the desktop opens.
  char gui[] = "gui";
  char* desktop_argv[] = {argv[0], gui, nullptr};
  if (argc == 1) {
    argc = 2;
    argv = desktop_argv;
  }
  try {
    root.parse(argc, argv);
  } catch (const CLI::Success& e) {
    return root.exit(e);  // --help
  } catch (const CLI::RuntimeError& e) {
    return e.get_exit_code();  // the subcommand has said what there was to say
  } catch (const CLI::ParseError& e) {
    std::cerr << "エラー: " << lupin::app::JapaneseParseError(e) << "\n--help で使い方を表示します。\n";
    return lupin::app::kExitUsage;
  } catch (const std::exception& e) {
    std::cerr << "エラー: " << e.what() << '\n';
    return lupin::app::kExitStopped;
  }
  return lupin::app::kExitDone;
}
