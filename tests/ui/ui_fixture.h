#pragma once
// The desktop on a demo database: a QApplication on the offscreen platform, a session whose
// message boxes and modal windows the test answers and drives, and a fake printer list.
#include <gtest/gtest.h>

#include <QApplication>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "catalogue/printer_capabilities.h"
#include "entry/context.h"
#include "demo/demo_data.h"
#include "entry/schema.h"
#include "support/test_databases.h"
#include "ui/desktop_session.h"
#include "ui/select_window.h"

namespace lupin::ui::testing {

inline QApplication& App() {
  static int argc = 1;
  static char name[] = "lupin_ui_tests";
  static char* argv[] = {name, nullptr};
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  // Never destroyed: Qt's GUI must not be torn down among the other statics at exit.
  static QApplication* application = new QApplication(argc, argv);
  return *application;
}

class FakePrinters : public catalogue::PrinterCapabilities {
 public:
  std::vector<std::string> Printers() override {
    std::vector<std::string> names;
    for (const auto& [name, caps] : devices) names.push_back(name);
    return names;
  }
  catalogue::DeviceCapabilities Capabilities(std::string_view device) override {
    const auto found = devices.find(std::string(device));
    return found == devices.end() ? catalogue::DeviceCapabilities{} : found->second;
  }
  std::map<std::string, catalogue::DeviceCapabilities> devices;
};

class TempHome {
 public:
  TempHome() : path_(std::filesystem::temp_directory_path() / ("lupin_ui_" + std::to_string(std::random_device{}()))) {
    std::filesystem::create_directories(path_);
  }
  ~TempHome() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// The demo shop with 12 orders, workstation PC01, and a session over it.
class DesktopTest : public ::testing::Test {
 protected:
  void SetUp() override {
    App();
    db_ = lupin::testing::FreshDatabase(db::Engine::Sqlite);
    entry::CreateSchema(*db_);
    demo::FillCatalogue(*db_);
    demo::FillDemoData(*db_, {.orders = demo_orders_, .seed = 5});
    context_ = std::make_unique<entry::Context>(db_.get(), settings::StorePaths::InFolder(home_.Path() / "settings"),
                                                home_.Path());
    context_->login = {"山田", 1, "PC01"};
    printers_.devices["LaserA"] = catalogue::CapabilitiesOf({"iso_a4_210x297mm", "jis_b5_182x257mm"}, {"auto", "manual"});
    printers_.devices["SlipB"] = catalogue::CapabilitiesOf({"iso_a4_210x297mm"}, {"tray-1"});
    session_ = std::make_unique<DesktopSession>(*context_, "", "", &printers_);
    session_->answer_message = [this](std::string_view text, std::string_view caption, int style) {
      messages.push_back(std::string(caption) + ": " + std::string(text));
      return (style & 0x7) == entry::kYesNo ? answer_yes_no : entry::kOk;
    };
  }
  void TearDown() override {
    session_.reset();
    QApplication::processEvents();
  }
  db::Connection& Db() { return *db_; }
  DesktopSession& Session() { return *session_; }
  SelectWindow& Select() { return session_->Select(); }
  long Count(const std::string& from_where) {
    auto rs = db_->Open("SELECT COUNT(*) AS CNT " + from_where);
    return static_cast<long>(rs["CNT"].Long());
  }
  // Picks a report in cboList as the user does: the item of that number, then its click.
  void Pick(int report_no) {
    auto& combo = *Select().cboList;
    for (int i = 0; i < combo.count(); ++i) {
      if (Session().SelectModel().cboList.item_data[static_cast<std::size_t>(i)] == report_no) {
        combo.setCurrentIndex(i);
        emit combo.activated(i);
        return;
      }
    }
    FAIL() << "report " << report_no << " is not listed";
  }

  int demo_orders_ = 12;
  TempHome home_;
  std::unique_ptr<db::Connection> db_;
  std::unique_ptr<entry::Context> context_;
  FakePrinters printers_;
  std::unique_ptr<DesktopSession> session_;
  std::vector<std::string> messages;
  entry::MessageResult answer_yes_no = entry::kYes;
};

}  // namespace lupin::ui::testing
