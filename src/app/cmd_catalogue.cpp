// lupinprint catalogue: the installation's REPORT rows with what each number does.
#include <exception>
#include <iostream>
#include <memory>
#include <string>

#include "app/cli_support.h"
#include "app/command_registry.h"
#include "catalogue/catalogue_listing.h"
#include "db/connection.h"

namespace lupin::app {
namespace {

struct CatalogueArgs {
  std::string db_url;
  bool json = false;
};

void Run(const CatalogueArgs& args) {
  std::unique_ptr<db::Connection> connection = OpenDatabase(args.db_url);
  std::vector<catalogue::CatalogueRow> rows;
  try {
    rows = catalogue::ReadCatalogueRows(*connection);
  } catch (const db::DbError& e) {
    Fail(std::string("帳票の一覧 (REPORT) を読めません: ") + e.what());
  }
  std::cout << (args.json ? catalogue::FormatCatalogueJson(rows) : catalogue::FormatCatalogueTable(rows));
}

const RegisterCommand kRegistration([](CLI::App& root) {
  auto args = std::make_shared<CatalogueArgs>();
  CLI::App* cmd = root.add_subcommand("catalogue", "帳票の一覧 (REPORT) と各帳票番号の出力内容を表示します");
  cmd->add_option("--db", args->db_url, "接続先 (sqlite:PATH, postgresql://...)")->required();
  cmd->add_flag("--json", args->json, "JSON で表示");
  cmd->footer("終了コード: 0 完了, 1 REPORT を読めない, 2 データベースを開けない, 64 指定の誤り");
  cmd->callback([args] { Run(*args); });
});

}  // namespace
}  // namespace lupin::app
