// lupinprint tax: an order's tax by rate, recomputed and written to CHUMON_T.
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "app/cli_support.h"
#include "app/command_registry.h"
#include "common/settings.h"
#include "db/connection.h"
#include "entry/context.h"
#include "money/calc_chumon_t.h"
#include "money/errors.h"

namespace lupin::app {
namespace {

struct TaxArgs {
  std::string db_url;
  std::optional<std::int32_t> id;
  bool all = false;
  std::optional<std::int32_t> from;
  std::optional<std::int32_t> to;
  std::optional<int> dialect;  // none: ResouceMode of the settings
  std::string settings_dir;    // folder of the three settings stores
  std::string home;            // the component folder
  bool json = false;
  int batch = 500;  // orders per transaction in --all; 0 or 1: none
};

void PrintResults(std::int32_t id, const money::clsCalcChumonT& calc, bool json) {
  const char* const names[] = {"標準税率", "軽減税率", "旧税率"};
  const vb::Currency rates[] = {calc.Zeirate1(), calc.Zeirate2(), calc.Zeirate3()};
  const std::int32_t komikin[] = {calc.Komikin1(), calc.Komikin2(), calc.Komikin3()};
  const std::int32_t zeikin[] = {calc.Zeikin1(), calc.Zeikin2(), calc.Zeikin3()};
  if (json) {
    nlohmann::ordered_json rows = nlohmann::ordered_json::array();
    for (int i = 0; i < 3; ++i) {
      rows.push_back({{"name", names[i]}, {"rate", rates[i].ToDouble()}, {"komikin", komikin[i]}, {"zeikin", zeikin[i]}});
    }
    std::cout << nlohmann::ordered_json{{"id", id}, {"rates", rows}}.dump(1) << '\n';
    return;
  }
  std::cout << "受注ID: " << id << '\n';
  for (int i = 0; i < 3; ++i) {
    std::cout << "税率" << i + 1 << " (" << names[i] << "): " << rates[i].ToString() << "  税込金額"
              << i + 1 << ": " << komikin[i] << "  消費税額" << i + 1 << ": " << zeikin[i] << '\n';
  }
}

std::vector<std::int32_t> OrderIds(db::Connection& connection, const TaxArgs& args) {
  std::string statement = "SELECT [ID] FROM [CHUMON]";
  std::string where;
  if (args.from) where += "[ID] >= " + std::to_string(*args.from);
  if (args.to) where += (where.empty() ? "" : " AND ") + std::string("[ID] <= ") + std::to_string(*args.to);
  if (!where.empty()) statement += " WHERE " + where;
  statement += " ORDER BY [ID]";
  db::Recordset rs = connection.Open(statement);
  std::vector<std::int32_t> ids;
  ids.reserve(rs.RecordCount());
  for (; !rs.Eof(); rs.MoveNext()) ids.push_back(static_cast<std::int32_t>(rs["ID"].Long()));
  return ids;
}

// Orders read at once when each is written in a transaction of its own.
constexpr std::size_t kPrefetchOrders = 500;

// On a terminal the line is redrawn; in a log a line per tenth is enough.
void ShowProgress(std::size_t done, std::size_t total, bool terminal) {
  if (terminal) {
    std::cerr << "\r再計算中: " << done << " / " << total << " 件" << std::flush;
  } else if (done == total || done % std::max<std::size_t>(total / 10, 1) == 0) {
    std::cerr << "再計算中: " << done << " / " << total << " 件\n";
  }
}

struct Progress {
  std::size_t total = 0;
  std::size_t done = 0;
  std::size_t step = 1;
  bool terminal = false;

  void Advance() {
    ++done;
    if (done % step == 0 || done == total) ShowProgress(done, total, terminal);
  }
};

void ReportFailure(std::int32_t id, const std::string& message, bool terminal) {
  std::cerr << (terminal ? "\n" : "") << "受注ID " << id << " の計算に失敗しました: " << message << '\n';
}

// One order outside any transaction; a failure is reported and counted, never ends the run.
std::size_t CalcAlone(money::clsCalcChumonT& calc, std::int32_t id, bool terminal) {
  calc.SetId(id);
  try {
    calc.Calc();
    return 0;
  } catch (const std::exception& e) {
    ReportFailure(id, e.what(), terminal);
    return 1;
  }
}

// A batch of orders in one transaction: one commit per batch instead of two per order. A database
// error may have spoilt the transaction, so the batch is then rolled back and redone order by order.
std::size_t CalcBatch(db::Connection& connection, money::clsCalcChumonT& calc,
                      const std::vector<std::int32_t>& ids, std::size_t first, std::size_t count,
                      Progress& progress) {
  std::vector<std::pair<std::int32_t, std::string>> failures;
  try {
    db::Transaction transaction(connection);
    // The batch's orders in one read: the IDs are every order between its first and last.
    calc.Prefetch(ids[first], ids[first + count - 1]);
    for (std::size_t i = first; i < first + count; ++i) {
      calc.SetId(ids[i]);
      try {
        calc.Calc();
      } catch (const db::DbError&) {
        throw;
      } catch (const std::exception& e) {
        failures.emplace_back(ids[i], e.what());
      }
    }
    transaction.Commit();
  } catch (const db::DbError&) {
    std::size_t failed = 0;
    for (std::size_t i = first; i < first + count; ++i) {
      failed += CalcAlone(calc, ids[i], progress.terminal);
      progress.Advance();
    }
    return failed;
  }
  for (const auto& [id, message] : failures) ReportFailure(id, message, progress.terminal);
  for (std::size_t i = 0; i < count; ++i) progress.Advance();
  return failures.size();
}

int RecalculateAll(db::Connection& connection, money::clsCalcChumonT& calc, const TaxArgs& args) {
  const std::vector<std::int32_t> ids = OrderIds(connection, args);
  const auto start = std::chrono::steady_clock::now();
  // A progress line per percent keeps stderr readable on long runs.
  Progress progress{ids.size(), 0, ids.size() < 100 ? 1 : ids.size() / 100, ::isatty(STDERR_FILENO) != 0};
  std::size_t failed = 0;
  if (args.batch <= 1) {
    for (std::size_t i = 0; i < ids.size(); ++i) {
      if (i % kPrefetchOrders == 0) calc.Prefetch(ids[i], ids[std::min(ids.size(), i + kPrefetchOrders) - 1]);
      failed += CalcAlone(calc, ids[i], progress.terminal);
      progress.Advance();
    }
  } else {
    const auto batch = static_cast<std::size_t>(args.batch);
    for (std::size_t first = 0; first < ids.size(); first += batch) {
      failed += CalcBatch(connection, calc, ids, first, std::min(batch, ids.size() - first), progress);
    }
  }
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  if (progress.terminal && !ids.empty()) std::cerr << '\n';
  if (args.json) {
    std::cout << nlohmann::ordered_json{{"recalculated", ids.size() - failed}, {"failed", failed}, {"seconds", seconds}}.dump(1)
              << '\n';
  } else {
    std::cout << "再計算しました: " << ids.size() - failed << " 件 (失敗 " << failed << " 件, " << seconds << " 秒)\n";
  }
  if (ids.empty()) {
    std::cerr << "再計算する受注がありません。\n";
    return kExitNothing;
  }
  return failed == 0 ? kExitDone : kExitStopped;
}

void Run(const TaxArgs& args) {
  std::unique_ptr<db::Connection> connection = OpenDatabase(args.db_url);
  const auto stores = args.settings_dir.empty() ? settings::StorePaths::Default()
                                                : settings::StorePaths::InFolder(args.settings_dir);
  // The dialect is the workstation's, read as the selection form reads it.
  entry::Context context(connection.get(), stores, ComponentHome(args.home));
  entry::InitialiseContextSettings(context);
  money::clsCalcChumonT calc{settings::Settings(stores)};
  try {
    calc.SetDb(*connection, args.dialect.value_or(context.dialect));
    calc.PrepareRun();
  } catch (const money::TypeMismatchError& e) {
    Fail(std::string("消費税率 (TAX) に軽減税率の行がありません: ") + e.what());
  } catch (const std::exception& e) {
    Fail(std::string("消費税率 (TAX) を読めません: ") + e.what());
  }
  if (args.all) {
    int code = 0;
    try {
      code = RecalculateAll(*connection, calc, args);
    } catch (const std::exception& e) {
      Fail(std::string("受注 (CHUMON) を読めません: ") + e.what());
    }
    if (code != kExitDone) Exit(code);
    return;
  }
  calc.SetId(*args.id);
  bool exists = false;
  try {
    // Calc itself would only report the end of data for an unknown id; the order read here is
    // the one Calc uses.
    calc.Prefetch(*args.id, *args.id);
    exists = calc.IsPrefetched(*args.id);
  } catch (const std::exception& e) {
    Fail(std::string("受注 (CHUMON) を読めません: ") + e.what());
  }
  if (!exists) Fail("受注ID " + std::to_string(*args.id) + " は受注 (CHUMON) にありません。");
  try {
    calc.Calc();
  } catch (const std::exception& e) {
    Fail("受注ID " + std::to_string(*args.id) + " の計算に失敗しました: " + e.what());
  }
  PrintResults(*args.id, calc, args.json);
}

const RegisterCommand kRegistration([](CLI::App& root) {
  auto args = std::make_shared<TaxArgs>();
  CLI::App* cmd = root.add_subcommand(
      "tax", "受注の税率別の税込金額と消費税額を計算し、CHUMON_T を書き直します");
  cmd->add_option("--db", args->db_url, "接続先 (sqlite:PATH, postgresql://...)")->required();
  CLI::Option* id = cmd->add_option("--id", args->id, "計算する受注ID");
  CLI::Option* all = cmd->add_flag("--all", args->all, "すべての受注を再計算 (--from/--to で範囲指定)");
  CLI::Option* from = cmd->add_option("--from", args->from, "--all の範囲: この受注ID から");
  CLI::Option* to = cmd->add_option("--to", args->to, "--all の範囲: この受注ID まで");
  cmd->add_option("--batch", args->batch, "--all で 1 つのトランザクションにまとめる受注の件数 (0: まとめない)")
      ->check(CLI::NonNegativeNumber);
  cmd->add_option("--dialect", args->dialect, "SQL の方言 (0, 1, 2)。既定は設定 ResouceMode")->check(CLI::Range(0, 2));
  cmd->add_option("--settings", args->settings_dir, "設定ファイルのフォルダ (machine.ini, lupin.ini, fallback.ini)");
  AddHomeOption(*cmd, args->home);
  cmd->add_flag("--json", args->json, "結果を JSON で表示 (金額と税率は数値)");
  cmd->footer("終了コード: 0 完了, 1 計算の失敗, 2 データベースを開けない, 3 再計算する受注がない, 64 指定の誤り");
  id->excludes(all);
  from->needs(all);
  to->needs(all);
  cmd->callback([args] {
    if (!args->id && !args->all) RefuseUsage("--id か --all のどちらかを指定してください。");
    Run(*args);
  });
});

}  // namespace
}  // namespace lupin::app
