#pragma once
// The print run without windows: the selection form, the print list and the print command driven
// from options, one option per control. Messages a window would show go to the error stream.
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <iosfwd>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "entry/ui.h"
#include "run/option_values.h"
#include "run/preview_runner.h"

namespace lupin::run {

// The exit codes of every lupinprint subcommand.
enum ExitCode : int {
  kExitDone = 0,
  kExitStopped = 1,     // the run stopped on a message of the system (validation, a bad row)
  kExitNotOpened = 2,   // the database or an output could not be opened
  kExitNothing = 3,     // nothing to print or export: the list is empty or nothing is checked
  kExitUsage = 64,      // bad command-line usage: an option or its value is not one the command takes
};

// The component folder when none is named: $XDG_DATA_HOME (or ~/.local/share)/Veltrona/LupinOrder6,
// the folder init and the demo use. Never the current directory.
std::filesystem::path DefaultComponentHome();

// For a "sqlite:PATH" whose file does not exist, the refusal; "" otherwise. Only init creates a
// database.
std::string MissingSqliteDatabase(std::string_view url);

struct RunOptions {
  // Context.
  std::string db_url;
  std::string login_user;
  std::int16_t login_number = 0;
  std::string client_name;
  std::string home;           // component directory; empty: DefaultComponentHome()
  std::string settings_dir;   // folder of the three settings stores
  std::vector<std::pair<std::string, std::string>> settings;  // for this run only; the stores stay
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
  bool quiet = false;         // no table; warnings still go to the error stream
  bool terminal = false;      // the error stream is a terminal: progress lines are redrawn there

  // Pages: the preview files, and the print command (outputs.print, which books first).
  PreviewOutputs outputs;
};

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

// Runs one print run; returns an ExitCode. The list, the statement or the filters go to out (data
// only); messages, warnings and "出力しました: FILE" lines to err. runner: the report engine's hook;
// null takes the registered one for options.outputs.
int RunHeadless(const RunOptions& options, std::ostream& out, std::ostream& err, PreviewRunner* runner = nullptr);

}  // namespace lupin::run
