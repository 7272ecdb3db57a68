#pragma once
// A context on a temporary component directory and settings folder, for the form-model tests.
#include <filesystem>
#include <memory>
#include <random>
#include <string>

#include "entry/context.h"
#include "entry/ui.h"

namespace lupin::run::testing {

class TempFolder {
 public:
  TempFolder() {
    std::random_device device;
    path_ = std::filesystem::temp_directory_path() / ("lupin_run_" + std::to_string(device()));
    std::filesystem::create_directories(path_);
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// Remembers every message, not only the last.
class ListUi : public entry::Ui {
 public:
  entry::MessageResult MessageBox(std::string_view text, std::string_view caption, int style) override {
    texts.emplace_back(text);
    captions.emplace_back(caption);
    styles.push_back(style);
    return entry::kOk;
  }
  void ShowModal(std::string_view form) override { shown.emplace_back(form); }
  void SetFocus(std::string_view control) override { focus = control; }
  std::vector<std::string> texts, captions, shown;
  std::vector<int> styles;
  std::string focus;
};

struct TestContext {
  explicit TestContext(db::Connection* connection, std::string client = "PC01")
      : context(connection, settings::StorePaths::InFolder(folder.Path() / "settings"), folder.Path()) {
    std::filesystem::create_directories(folder.Path() / "settings");
    context.login.client_name = std::move(client);
  }
  TempFolder folder;
  entry::Context context;
};

}  // namespace lupin::run::testing
