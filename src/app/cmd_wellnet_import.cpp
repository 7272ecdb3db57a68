// lupinprint wellnet-import: the WellNet receipts file, read as the payment service sends it back,
// so a shop sees which bills were paid and which lines were skipped.
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

#include "app/cli_support.h"
#include "app/command_registry.h"
#include "exchange/wellnet.h"
#include "exchange/wellnet_report.h"

namespace lupin::app {
namespace {

struct WellNetImportArgs {
  std::string file;
  bool json = false;
};

const RegisterCommand kRegistration([](CLI::App& root) {
  auto args = std::make_shared<WellNetImportArgs>();
  CLI::App* cmd = root.add_subcommand("wellnet-import", "WELLNET の収納データファイルを読み、取り込む行とスキップする行を表示");
  cmd->add_option("FILE", args->file, "収納データファイル (Shift-JIS の CSV)")->required();
  cmd->add_flag("--json", args->json, "JSON で表示");
  cmd->callback([args] {
    exchange::clsWellNet wellnet;
    wellnet.fileName = args->file;
    // The skipped lines are listed with the rows instead of one box each.
    wellnet.DisplayMsg = false;
    std::error_code error;
    if (!std::filesystem::is_regular_file(args->file, error)) {
      Fail("収納データファイル '" + args->file + "' がありません。", kExitNotOpened);
    }
    if (wellnet.InputFile() != 0) Fail(wellnet.ErrorMsg, kExitNotOpened);
    std::cout << exchange::FormatWellNetReceipts(wellnet, args->json);
    // A nightly job tells "nothing paid today" from a failure.
    if (wellnet.InputRowCount() == 0) Exit(kExitNothing);
  });
});

}  // namespace
}  // namespace lupin::app
