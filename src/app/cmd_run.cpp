// lupinprint run: the print run without windows, one option per control of the selection form.
#include <iostream>
#include <memory>
#include <initializer_list>
#include <sstream>

#include "app/cli_support.h"
#include "app/command_registry.h"
#include "app/setting_names.h"
#include "run/headless_run.h"
#include "run/preview_runner.h"
#include "run/preview_runner_engine.h"

namespace lupin::app {

namespace {

std::vector<std::string> SplitList(const std::vector<std::string>& values) {
  std::vector<std::string> out;
  for (const auto& value : values) {
    std::stringstream stream(value);
    std::string item;
    while (std::getline(stream, item, ',')) {
      if (!item.empty()) out.push_back(item);
    }
  }
  return out;
}

struct RunArgs {
  run::RunOptions options;
  std::string login, date, id, last_sale, tanto, zip, sales, item, period;
  std::vector<std::string> set, uncheck, only;
  bool distinct = false, no_distinct = false;
  std::string payment, shop, tel, eda, nendo, item_shop, date_kind, order_by, denno;
  int kbn = -1, dm = -1, start = 0;
};

void Install(CLI::App& root) {
  auto args = std::make_shared<RunArgs>();
  auto& o = args->options;
  CLI::App* cmd = root.add_subcommand("run", "選択と印刷の流れをウィンドウなしで実行します (帳票の選択, 条件, 印刷一覧, 登録, 出力)");
  cmd->footer("詳しくは docs/run-command.md を参照してください。\n"
              "例: lupinprint run --db sqlite:demo.db --login 山田,1,PC01 --report 25 --date 2024/04/01:2024/04/30\n"
              "    lupinprint run --db sqlite:demo.db --login 山田,1,PC01 --report 54 --pdf picking.pdf\n"
              "    lupinprint run --db sqlite:demo.db --login 山田,1,PC01 --report 25 --denno 1234-5678-9013 --print\n"
              "標準出力には一覧 (--json で JSON)、SQL 文だけを、メッセージ・警告・「出力しました: FILE」は標準エラーに出します。\n"
              "終了コード: 0 完了, 1 システムのメッセージで停止, 2 データベースか出力先を開けない, 3 該当データなし, 64 指定の誤り");

  cmd->add_option("--report", o.report, "帳票番号 (REPORT_NO)")->required();
  cmd->add_option("--db", o.db_url, "接続先 (sqlite:PATH, postgresql://...)")->required();
  cmd->add_option("--login", args->login, "ログイン: USER,NUMBER,CLIENT (CLIENT は CLIENT_NAME)");
  AddHomeOption(*cmd, o.home);
  cmd->add_option("--settings", o.settings_dir, "設定ファイルのフォルダ (machine.ini, lupin.ini, fallback.ini)");
  cmd->add_option("--set", args->set,
                  "この実行だけの設定 KEY=VALUE (繰り返し可。設定ファイルは変わりません。保存は lupinprint settings set)");
  cmd->add_option("--command", o.command, "コマンド文字列");
  cmd->add_flag("--clear-criteria", o.clear_criteria, "帳票の既定の条件をすべて外してから指定を適用");

  cmd->add_option("--date", args->date, "日付の範囲 FROM:TO (chkChumonOption(0))");
  cmd->add_option("--id", args->id, "注文番号の範囲 FROM:TO");
  cmd->add_option("--payment", args->payment, "支払方法 (一覧の表示のとおり, 例: 代引以外)");
  cmd->add_flag("--unprinted", o.unprinted, "未印字のみ");
  cmd->add_option("--shop", args->shop, "ショップID");
  cmd->add_option("--tel", args->tel, "顧客電話番号");
  cmd->add_option("--eda", args->eda, "顧客電話番号枝番");
  cmd->add_option("--kbn", args->kbn, "顧客区分 0, 1, 2");
  cmd->add_option("--last-sale", args->last_sale, "前回売上日 FROM:TO");
  cmd->add_option("--tanto", args->tanto, "担当者コード FROM:TO");
  cmd->add_option("--zip", args->zip, "郵便番号 FROM:TO");
  cmd->add_option("--nendo", args->nendo, "年間売上の年度");
  cmd->add_option("--sales", args->sales, "年間売上 FROM:TO");
  cmd->add_option("--item", args->item, "商品ID FROM:TO");
  cmd->add_option("--dm", args->dm, "DM区分 1-5");
  cmd->add_option("--item-shop", args->item_shop, "商品別売上集計表のショップ");
  cmd->add_option("--period", args->period, "商品別売上集計表の期間 FROM:TO");
  cmd->add_option("--date-kind", args->date_kind, "商品別売上集計表の日付 shipped|ordered");
  cmd->add_option("--order-by", args->order_by, "商品別売上集計表の表示順 id|total|qty");
  cmd->add_option("--start", args->start, "ラベルの印刷開始位置");
  cmd->add_flag("--distinct", args->distinct, "重複を省く(TELと名前)");
  cmd->add_flag("--no-distinct", args->no_distinct, "重複を省かない");
  cmd->add_option("--denno", args->denno, "宅配伝票番号(開始)");
  cmd->add_flag("--no-redenno", o.no_redenno, "「再度付番する」を外す");

  cmd->add_option("--uncheck", args->uncheck, "印刷一覧でチェックを外すID (カンマ区切り)");
  cmd->add_option("--only", args->only, "印刷一覧でこのIDだけをチェック (カンマ区切り)");
  cmd->add_flag("--sql", o.sql_only, "選択の SQL 文を表示して終了");
  cmd->add_flag("--json", o.json, "印刷一覧を JSON で表示 (空の一覧は \"rows\": [])");
  cmd->add_flag("--quiet", o.quiet, "印刷一覧を表示しない (警告とエラーは表示します)");
  cmd->add_flag("--book", o.book, "印刷コマンドの記帳 (印刷台帳, 請求グループ, 宅配伝票番号) を実行");

  auto& pages = o.outputs;
  cmd->add_option("--pdf", pages.pdf, "プレビューを PDF ファイルに書き出す (データベースには書き込まない)");
  cmd->add_option("--png", pages.png_dir, "プレビューをページごとの PNG でこのフォルダに書き出す");
  cmd->add_option("--png-dpi", pages.png_dpi, "PNG の解像度 (10〜1200, 既定 96)")->check(CLI::Range(10.0, 1200.0));
  cmd->add_option("--dump", pages.dump, "プレビューのページの内容を JSON ファイルに書き出す");
  CLI::Option* print = cmd->add_option("--print", pages.printer,
                                       "印刷コマンド: 記帳してからプリンタに送る (省略時は帳票のプリンタ, 空なら既定のプリンタ)")
                           ->expected(0, 1);
  CLI::Option* print_pdf = cmd->add_option("--print-pdf", pages.print_pdf, "印刷コマンド: 記帳してからプリンタの代わりにこのファイルに書き出す");
  print->excludes(print_pdf);

  // The report engine serves the preview and the print of page reports.
  run::RegisterEnginePreviewRunner();

  cmd->callback([args, print, print_pdf]() {
    auto& opt = args->options;
    opt.outputs.print = print->count() > 0 || print_pdf->count() > 0;
    opt.terminal = ErrorStreamIsTerminal();
    if (!args->login.empty()) {
      run::LoginParts login;
      if (const std::string refusal = run::CheckLogin(args->login, login); !refusal.empty()) RefuseUsage(refusal);
      opt.login_user = login.user;
      opt.login_number = login.number;
      opt.client_name = login.client;
    }
    for (const auto& pair : args->set) {
      const auto eq = pair.find('=');
      const SettingName* known = FindSetting(pair.substr(0, eq));
      if (eq == std::string::npos || known == nullptr) {
        RefuseUsage("--set の値 '" + pair + "' は使えません。KEY=VALUE の形で、KEY は次のいずれかです: " + KnownSettingList());
      }
      opt.settings.emplace_back(known->name, pair.substr(eq + 1));
    }
    const auto member = [](const char* option, const std::string& value, std::initializer_list<const char*> allowed) {
      if (value.empty()) return;
      std::string list;
      for (const char* item : allowed) {
        if (value == item) return;
        list += (list.empty() ? "" : ", ") + std::string(item);
      }
      RefuseUsage(std::string(option) + " の値 '" + value + "' は使えません。次のいずれかです: " + list);
    };
    member("--date-kind", args->date_kind, {"shipped", "ordered"});
    member("--order-by", args->order_by, {"id", "total", "qty"});
    const auto range = [](const std::string& text, std::optional<run::Range>& target) {
      if (!text.empty()) target = run::ParseRange(text);
    };
    range(args->date, opt.date);
    range(args->id, opt.id);
    range(args->last_sale, opt.last_sale);
    range(args->tanto, opt.tanto);
    range(args->zip, opt.zip);
    range(args->sales, opt.sales);
    range(args->item, opt.item);
    range(args->period, opt.period);
    const auto text = [](const std::string& value, std::optional<std::string>& target) {
      if (!value.empty()) target = value;
    };
    text(args->payment, opt.payment);
    text(args->shop, opt.shop);
    text(args->tel, opt.tel);
    text(args->eda, opt.eda);
    text(args->nendo, opt.nendo);
    text(args->item_shop, opt.item_shop);
    text(args->date_kind, opt.date_kind);
    text(args->order_by, opt.order_by);
    text(args->denno, opt.denno);
    if (args->kbn >= 0) opt.kbn = args->kbn;
    if (args->dm >= 0) opt.dm = args->dm;
    if (args->start > 0) opt.start = args->start;
    if (args->distinct) opt.distinct = true;
    if (args->no_distinct) opt.distinct = false;
    opt.uncheck = SplitList(args->uncheck);
    opt.only = SplitList(args->only);
    const int code = run::RunHeadless(opt, std::cout, std::cerr);
    if (code != kExitDone) Exit(code);
  });
}

const RegisterCommand kRegister{Install};

}  // namespace

}  // namespace lupin::app
