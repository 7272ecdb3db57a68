#include "app/cli_support.h"

#include <unistd.h>

#include <exception>
#include <iostream>
#include <regex>

namespace lupin::app {

void Exit(int code) { throw CLI::RuntimeError(code); }

void Fail(const std::string& text, int code) {
  std::cerr << "エラー: " << text << '\n';
  Exit(code);
}

void RefuseUsage(const std::string& text) { Fail(text, kExitUsage); }

std::filesystem::path ComponentHome(const std::string& home) {
  return home.empty() ? run::DefaultComponentHome() : std::filesystem::path(home);
}

CLI::Option* AddHomeOption(CLI::App& command, std::string& home) {
  return command.add_option("--home", home,
                            "コンポーネントのフォルダ (REPORT.INI, hinmei.txt, Format/, trace.log, 既定の出力ファイル)。"
                            "省略時: " + run::DefaultComponentHome().string());
}

std::unique_ptr<db::Connection> OpenDatabase(const std::string& url) {
  if (const std::string refusal = run::MissingSqliteDatabase(url); !refusal.empty()) Fail(refusal, kExitNotOpened);
  try {
    return db::OpenConnection(url);
  } catch (const std::exception& e) {
    Fail(std::string("データベースに接続できません: ") + e.what(), kExitNotOpened);
  }
}

std::string JapaneseParseError(const CLI::ParseError& error) {
  const std::string text = error.what();
  struct Rule {
    std::regex pattern;
    std::string japanese;  // $1, $2 … from the pattern
  };
  static const Rule rules[] = {
      {std::regex("^A subcommand is required$"),
       "サブコマンドを指定してください (init, catalogue, run, tax, settings など)。lupinprint --help で一覧を表示します。"},
      {std::regex("^(\\S+) is required$"), "$1 は必須です。"},
      {std::regex("^The following arguments? (?:was|were) not expected: (.*)$"), "使えない引数です: $1"},
      {std::regex("^Could not convert: (\\S+) = (.*)$"), "$1 の値 '$2' は数値ではありません。"},
      {std::regex("^The value (.*) is not an allowed value for (\\S+)$"), "$2 の値 '$1' は使えません。"},
      {std::regex("^(\\S+): Value (\\S+) not in range (\\S+) to (\\S+)$"), "$1 の値 $2 は範囲外です ($3 〜 $4 で指定してください)。"},
      {std::regex("^(\\S+): Value (\\S+) not in range \\[?(\\S+) - (\\S+?)\\]?$"), "$1 の値 $2 は範囲外です ($3 〜 $4 で指定してください)。"},
      {std::regex("^(\\S+): Value (\\S+) must be greater than or equal to 0$"), "$1 の値 $2 は 0 以上で指定してください。"},
      {std::regex("^(\\S+): \\d+ required \\S+ missing$"), "$1 には値が必要です。"},
      {std::regex("^Expected (?:exactly|at least) \\d+ arguments? to (\\S+), got \\d+$"), "$1 には値が必要です。"},
      {std::regex("^(\\S+) excludes (\\S+)$"), "$1 と $2 は同時に指定できません。"},
      {std::regex("^(\\S+) requires (\\S+)$"), "$1 は $2 と一緒に指定してください。"},
      {std::regex("^(\\S+): too many inputs for a flag$"), "$1 は値をとりません。"},
  };
  for (const Rule& rule : rules) {
    std::smatch match;
    if (std::regex_match(text, match, rule.pattern)) return match.format(rule.japanese);
  }
  return "コマンドラインの指定が正しくありません (" + text + ")。";
}

bool ErrorStreamIsTerminal() { return ::isatty(STDERR_FILENO) != 0; }

}  // namespace lupin::app
