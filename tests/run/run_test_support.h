#pragma once
// A context on a temporary component directory and settings folder, for the form-model tests.
#include <filesystem>
#include <string>
#include <vector>

#include "entry/context.h"
#include "entry/ui.h"
#include "run/preview_runner.h"
#include "support/temp_files.h"

namespace lupin::run::testing {

using lupin::testing::TempFolder;

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

// A report engine that records which object ran and how often it printed, answering as told.
struct FakeRunner : PreviewRunner {
  bool Run(entry::Context&, std::string_view object) override {
    ran = object;
    return ++runs, true;
  }
  int RecordCount() const override { return records; }
  bool Print() override { return ++prints, print_succeeds; }
  int Pages() const override { return pages; }
  bool Has(std::string_view) const override { return has_objects; }
  int records = 1, pages = 1;
  bool print_succeeds = true, has_objects = true;
  std::string ran;
  int runs = 0, prints = 0;
};

struct TestContext {
  explicit TestContext(db::Connection* connection, std::string client = "PC01")
      : context(connection, settings::StorePaths::InFolder(folder.Path() / "settings"), folder.Path()) {
    context.login.client_name = std::move(client);
  }
  TempFolder folder;
  entry::Context context;
};

}  // namespace lupin::run::testing
