#pragma once
// A fresh database with the schema, a component directory in a temporary folder, and a context.
#include <filesystem>
#include <memory>
#include <string>

#include "entry/context.h"
#include "entry/schema.h"
#include "support/temp_files.h"
#include "support/test_databases.h"

namespace lupin::catalogue::testing {

class ReportDbTest : public lupin::testing::EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    entry::CreateSchema(Db());
    context_ = std::make_unique<entry::Context>(&Db(), settings::StorePaths::InFolder(home_), home_);
  }

  void PutReportIni(const std::string& content) { lupin::testing::WriteBytes(home_ / "REPORT.INI", content); }

  lupin::testing::TempFolder folder_{"lupin_catalogue_"};
  const std::filesystem::path home_ = folder_.Path();
  std::unique_ptr<entry::Context> context_;
};

}  // namespace lupin::catalogue::testing
