#pragma once
// A fresh database with the schema, a component directory in a temporary folder, and a context.
#include <filesystem>
#include <fstream>
#include <memory>
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
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string(info->test_suite_name()) + "_" + info->name();
    for (char& c : name)
      if (c == '/') c = '_';
    home_ = std::filesystem::temp_directory_path() / ("lupin_catalogue_" + name);
    std::filesystem::remove_all(home_);
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
