#pragma once
// The print run without windows: the selection form, the print list and the print command driven
// from options, one option per control. Messages a window would show go to the error stream.
#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "entry/ui.h"
#include "run/preview_runner.h"

namespace lupin::run {

using Range = std::pair<std::string, std::string>;  // FROM:TO, either side may be empty

struct RunOptions {
  // Context.
  std::string db_url;
  std::string login_user;
  std::int16_t login_number = 0;
  std::string client_name;
  std::string home;           // component directory
  std::string settings_dir;   // folder of the three settings stores
  std::vector<std::pair<std::string, std::string>> settings;  // written before the run
  std::string command;

  // Selection form.
  int report = -1;
  bool clear_criteria = false;
  std::optional<Range> date, id;
  std::optional<std::string> payment, shop;
  bool unprinted = false;
  std::optional<std::string> tel, eda;
  std::optional<int> kbn, dm;
  std::optional<Range> last_sale, tanto, zip, sales, item, period;
  std::optional<std::string> nendo, item_shop, date_kind, order_by;
  std::optional<int> start;
  std::optional<bool> distinct;
  std::optional<std::string> denno;
  bool no_redenno = false;

  // Print list and output.
  std::vector<std::string> uncheck, only;
  bool sql_only = false;
  bool json = false;
  bool book = false;
  bool quiet = false;         // no table

  // Pages: the preview files, and the print command (outputs.print, which books first).
  PreviewOutputs outputs;
};

// Parses "FROM:TO"; a missing colon gives FROM:FROM.
Range ParseRange(const std::string& text);

// A Ui for batch runs: every message goes to the error stream, "caption: text".
class StreamUi : public entry::Ui {
 public:
  explicit StreamUi(std::ostream& err) : err_(err) {}
  entry::MessageResult MessageBox(std::string_view text, std::string_view caption, int style) override;
  int messages = 0;
  std::string last_text;

 private:
  std::ostream& err_;
};

// Runs one print run; returns the process exit code (0 done, 1 stopped with a message, 2 a usage
// or environment fault). runner: the report engine's hook; null takes the registered one for
// options.outputs, and without one runs the bookkeeping only.
int RunHeadless(const RunOptions& options, std::ostream& out, std::ostream& err, PreviewRunner* runner = nullptr);

}  // namespace lupin::run
