#pragma once
// Each subcommand of lupinprint registers itself from its own file.
#include <CLI/CLI.hpp>

#include <functional>
#include <vector>

namespace lupin::app {

using CommandInstaller = std::function<void(CLI::App& root)>;

inline std::vector<CommandInstaller>& Installers() {
  static std::vector<CommandInstaller> installers;
  return installers;
}

struct RegisterCommand {
  explicit RegisterCommand(CommandInstaller installer) { Installers().push_back(std::move(installer)); }
};

}  // namespace lupin::app
