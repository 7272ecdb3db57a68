#pragma once
// The print run on demo data with the report engine behind it, and the outside tools that read
// what it wrote (qpdf, pdftotext, pdfinfo).
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>

#include "demo/demo_data.h"
#include "entry/schema.h"
#include "run/headless_run.h"
#include "run/preview_runner_engine.h"
#include "run/run_db_support.h"
#include "run/run_test_support.h"
#include "support/cups_jobs.h"
#include "support/test_databases.h"

namespace lupin::run::testing {

using lupin::testing::CommandResult;
using lupin::testing::RunCommand;

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

using lupin::testing::ReadBytes;

// Temporaries of an atomic write left in a folder.
inline int PartFiles(const std::filesystem::path& folder) {
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    if (entry.path().filename().string().find(".part-") != std::string::npos) ++count;
  return count;
}

using lupin::testing::UseCupsServer;

// The engine runner as the command line registers it, for the life of one test.
class ScopedEngineRunner {
 public:
  ScopedEngineRunner() { RegisterEnginePreviewRunner(); }
  ~ScopedEngineRunner() { RegisteredPreviewRunnerSlot() = nullptr; }
  ScopedEngineRunner(const ScopedEngineRunner&) = delete;
  ScopedEngineRunner& operator=(const ScopedEngineRunner&) = delete;
};

// A quiet run of workstation PC01 on the database, with its home and settings in the folder.
inline RunOptions QuietRun(const db::Connection& db, const TempFolder& folder, int report) {
  RunOptions options;
  options.db_url = lupin::testing::UrlOf(db);
  options.home = folder.Path().string();
  options.settings_dir = (folder.Path() / "settings").string();
  options.client_name = "PC01";
  options.report = report;
  options.quiet = true;
  return options;
}

// Demo orders 1 to 5 checked for workstation PC01, a report of the picking lists picked.
class PreviewRunTest : public lupin::testing::EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    entry::CreateSchema(Db());
    demo::FillCatalogue(Db());
    demo::FillDemoData(Db(), {.orders = 12, .seed = 5});
    options = QuietRun(Db(), folder, 54);
    options.login_user = "山田";
    options.clear_criteria = true;
    options.id = Range{"1", "5"};
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
