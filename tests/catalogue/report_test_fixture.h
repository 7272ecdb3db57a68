#pragma once
// A fresh database with the schema, a component directory in a temporary folder, and a context.
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>

#include "entry/context.h"
#include "entry/schema.h"
#include "support/test_databases.h"

namespace lupin::catalogue::testing {

class ReportDbTest : public lupin::testing::EngineTest {
 protected:
  void SetUp() override {
    EngineTest::SetUp();
    entry::CreateSchema(Db());
    home_ = std::filesystem::temp_directory_path() / ("lupin_catalogue_" + std::to_string(std::random_device{}()));
    std::filesystem::create_directories(home_);
    context_ = std::make_unique<entry::Context>(&Db(), settings::StorePaths::InFolder(home_), home_);
  }
  void TearDown() override { std::filesystem::remove_all(home_); }

  void PutReportIni(const std::string& content) {
    std::ofstream(home_ / "REPORT.INI", std::ios::binary) << content;
  }

  std::filesystem::path home_;
  std::unique_ptr<entry::Context> context_;
};

}  // namespace lupin::catalogue::testing
