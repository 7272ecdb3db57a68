#pragma once
// The print run on demo data with the report engine behind it, and the outside tools that read
// what it wrote (qpdf, pdftotext, pdfinfo).
#include <gtest/gtest.h>

#include <cups/cups.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "demo/demo_data.h"
#include "entry/schema.h"
#include "run/headless_run.h"
#include "run/preview_runner_engine.h"
#include "run/run_db_support.h"
#include "run/run_test_support.h"
#include "support/test_databases.h"

namespace lupin::run::testing {

struct CommandResult {
  int status = -1;
  std::string output;
};

inline CommandResult RunCommand(const std::string& command) {
  CommandResult result;
  FILE* pipe = popen((command + " 2>&1").c_str(), "r");
  if (pipe == nullptr) return result;
  std::array<char, 4096> buffer{};
  while (fgets(buffer.data(), buffer.size(), pipe) != nullptr) result.output += buffer.data();
  const int status = pclose(pipe);
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return result;
}

inline std::string Quoted(const std::filesystem::path& path) { return "'" + path.string() + "'"; }

// A line "Key: value" of pdfinfo, value trimmed.
inline std::string PdfInfo(const std::filesystem::path& pdf, const std::string& key) {
  std::istringstream lines(RunCommand("pdfinfo " + Quoted(pdf)).output);
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind(key + ":", 0) != 0) continue;
    const auto value = line.find_first_not_of(' ', key.size() + 1);
    return value == std::string::npos ? "" : line.substr(value);
  }
  return "";
}

inline std::string ReadAll(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

// Temporaries of an atomic write left in a folder.
inline int PartFiles(const std::filesystem::path& folder) {
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    if (entry.path().filename().string().find(".part-") != std::string::npos) ++count;
  return count;
}

// Points the CUPS client of this process at a server; the client keeps the first one it used.
inline void UseCupsServer(const std::string& server) {
  setenv("CUPS_SERVER", server.c_str(), 1);
  cupsSetServer(server.c_str());
}

// The engine runner as the command line registers it, for the life of one test.
class ScopedEngineRunner {
 public:
  ScopedEngineRunner() { RegisterEnginePreviewRunner(); }
  ~ScopedEngineRunner() { RegisteredPreviewRunnerSlot() = nullptr; }
  ScopedEngineRunner(const ScopedEngineRunner&) = delete;
  ScopedEngineRunner& operator=(const ScopedEngineRunner&) = delete;
};

// Demo orders 1 to 5 checked for workstation PC01, a report of the picking lists picked.
class PreviewRunTest : public lupin::testing::EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    entry::CreateSchema(Db());
    demo::FillCatalogue(Db());
    demo::FillDemoData(Db(), {.orders = 12, .seed = 5});
    options.db_url = lupin::testing::UrlOf(Db());
    options.home = folder.Path().string();
    options.settings_dir = (folder.Path() / "settings").string();
    options.login_user = "山田";
    options.client_name = "PC01";
    options.report = 54;
    options.clear_criteria = true;
    options.id = Range{"1", "5"};
    options.quiet = true;
  }
  int Run() {
    out.str("");
    err.str("");
    return RunHeadless(options, out, err);
  }
  std::filesystem::path File(const std::string& name) const { return folder.Path() / name; }
  long Ledger(int report_no) { return Count(Db(), "FROM [PRINTED] WHERE [REPORT_NO] = " + std::to_string(report_no)); }

  ScopedEngineRunner engine;
  TempFolder folder;
  RunOptions options;
  std::ostringstream out, err;
};

}  // namespace lupin::run::testing
