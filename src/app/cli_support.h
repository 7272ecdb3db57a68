#pragma once
// What every subcommand shares: the exit codes, refusals in Japanese, the component folder option
// and opening the database.
#include <CLI/CLI.hpp>

#include <memory>
#include <string>

#include "db/connection.h"
#include "run/headless_run.h"

namespace lupin::app {

using run::kExitDone;
using run::kExitNotOpened;
using run::kExitNothing;
using run::kExitStopped;
using run::kExitUsage;

// Ends the subcommand with the exit code; nothing more is printed.
[[noreturn]] void Exit(int code);
// "エラー: text" on the error stream, then the exit code.
[[noreturn]] void Fail(const std::string& text, int code = kExitStopped);
// A value an option cannot take: the text names the option, the value and what is expected.
[[noreturn]] void RefuseUsage(const std::string& text);

// --home, whose help names the folder in use when it is not given.
CLI::Option* AddHomeOption(CLI::App& command, std::string& home);
// The folder named by --home, or the well-known one.
std::filesystem::path ComponentHome(const std::string& home);

// Opens the database of --db; a missing sqlite file or a failed connection ends with exit code 2.
std::unique_ptr<db::Connection> OpenDatabase(const std::string& url);

// The parser's own error in Japanese, naming the option.
std::string JapaneseParseError(const CLI::ParseError& error);

// True when standard error is a terminal, so progress lines may be redrawn there.
bool ErrorStreamIsTerminal();

}  // namespace lupin::app
