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
#include <vector>

#include "app/command_registry.h"
#include "common/settings.h"
#include "db/connection.h"
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
  // SQLite and PostgreSQL both take dates between apostrophes, which is dialect 0.
  int dialect = 0;
};

[[noreturn]] void Fail(const std::string& message) {
  std::cerr << message << '\n';
  throw CLI::RuntimeError(1);
}

void PrintResults(std::int32_t id, const money::clsCalcChumonT& calc) {
  std::cout << "受注ID: " << id << '\n';
  const char* const names[] = {"標準税率", "軽減税率", "旧税率"};
  const vb::Currency rates[] = {calc.Zeirate1(), calc.Zeirate2(), calc.Zeirate3()};
  const std::int32_t komikin[] = {calc.Komikin1(), calc.Komikin2(), calc.Komikin3()};
  const std::int32_t zeikin[] = {calc.Zeikin1(), calc.Zeikin2(), calc.Zeikin3()};
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

// On a terminal the line is redrawn; in a log a line per tenth is enough.
void ShowProgress(std::size_t done, std::size_t total, bool terminal) {
  if (terminal) {
    std::cerr << "\r再計算中: " << done << " / " << total << " 件" << std::flush;
  } else if (done == total || done % std::max<std::size_t>(total / 10, 1) == 0) {
    std::cerr << "再計算中: " << done << " / " << total << " 件\n";
  }
}

int RecalculateAll(db::Connection& connection, money::clsCalcChumonT& calc, const TaxArgs& args) {
  const std::vector<std::int32_t> ids = OrderIds(connection, args);
  const auto start = std::chrono::steady_clock::now();
  std::size_t failed = 0;
  // A progress line per percent keeps stderr readable on long runs.
  const std::size_t step = ids.size() < 100 ? 1 : ids.size() / 100;
  const bool terminal = ::isatty(STDERR_FILENO) != 0;
  for (std::size_t i = 0; i < ids.size(); ++i) {
    calc.SetId(ids[i]);
    try {
      calc.Calc();
    } catch (const std::exception& e) {
      ++failed;
      std::cerr << "\n受注ID " << ids[i] << " の計算に失敗しました: " << e.what() << '\n';
    }
    if ((i + 1) % step == 0 || i + 1 == ids.size()) ShowProgress(i + 1, ids.size(), terminal);
  }
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  if (terminal && !ids.empty()) std::cerr << '\n';
  std::cout << "再計算しました: " << ids.size() - failed << " 件 (失敗 " << failed << " 件, " << seconds
            << " 秒)\n";
  return failed == 0 ? 0 : 1;
}

void Run(const TaxArgs& args) {
  std::unique_ptr<db::Connection> connection;
  try {
    connection = db::OpenConnection(args.db_url);
  } catch (const std::exception& e) {
    Fail(std::string("データベースに接続できません: ") + e.what());
  }
  money::clsCalcChumonT calc(settings::Settings(settings::StorePaths::Default()));
  try {
    calc.SetDb(*connection, args.dialect);
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
    if (code != 0) throw CLI::RuntimeError(code);
    return;
  }
  calc.SetId(*args.id);
  bool exists = false;
  try {
    // Calc itself would only report the end of data for an unknown id.
    exists = !connection->Open("SELECT [ID] FROM [CHUMON] WHERE [ID] = " + std::to_string(*args.id)).Eof();
  } catch (const std::exception& e) {
    Fail(std::string("受注 (CHUMON) を読めません: ") + e.what());
  }
  if (!exists) Fail("受注ID " + std::to_string(*args.id) + " は受注 (CHUMON) にありません。");
  try {
    calc.Calc();
  } catch (const std::exception& e) {
    Fail("受注ID " + std::to_string(*args.id) + " の計算に失敗しました: " + e.what());
  }
  PrintResults(*args.id, calc);
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
  cmd->add_option("--dialect", args->dialect, "SQL の方言 (0, 1, 2)。既定は 0")->check(CLI::Range(0, 2));
  id->excludes(all);
  from->needs(all);
  to->needs(all);
  cmd->callback([args] {
    if (!args->id && !args->all) Fail("--id か --all のどちらかを指定してください。");
    Run(*args);
  });
});

}  // namespace
}  // namespace lupin::app
