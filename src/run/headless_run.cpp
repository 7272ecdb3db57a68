#include "run/headless_run.h"

#include <nlohmann/json.hpp>

#include <exception>
#include <ostream>
#include <set>

#include "common/files.h"
#include "common/grid.h"
#include "engine/display.h"
#include "entry/catalogue.h"
#include "entry/context.h"
#include "run/preview_form.h"
#include "run/preview_runner_sinks.h"
#include "run/print_form.h"
#include "run/select_form.h"

namespace lupin::run {

namespace {

constexpr int kProgressEvery = 1000;
constexpr int kPageProgressEvery = 100;

// The page count of a long run, redrawn on one line of the error stream.
class PageProgress {
 public:
  explicit PageProgress(std::ostream& err) : err_(err) {}
  void Show(int pages) {
    if (pages % kPageProgressEvery != 0) return;
    err_ << "\rページ " << pages << "..." << std::flush;
    shown_ = true;
  }
  // Ends the progress line before the next message.
  void Finish() {
    if (shown_) err_ << '\n';
    shown_ = false;
  }

 private:
  std::ostream& err_;
  bool shown_ = false;
};

bool SelectByText(common::ComboModel& combo, const std::string& text) {
  for (int i = 0; i < combo.ListCount(); ++i) {
    if (combo.items[static_cast<std::size_t>(i)] == text) {
      combo.list_index = i;
      return true;
    }
  }
  return false;
}

bool SelectByData(common::ComboModel& combo, int data) {
  for (int i = 0; i < combo.ListCount(); ++i) {
    if (combo.item_data[static_cast<std::size_t>(i)] == data) {
      combo.list_index = i;
      return true;
    }
  }
  return false;
}

// Applies the options to the form as a user would type them, with the form's own validation.
// Returns false after a message when an entry is refused.
bool ApplyCriteria(const RunOptions& o, SelectForm& f, std::ostream& err) {
  if (o.clear_criteria) {
    for (auto& box : f.chkChumonOption) box.value = 0;
    for (auto& box : f.chkOption) box.value = 0;
    f.chkDate.value = 0;
  }
  const auto date_pair = [&](const Range& range, int from, int to) {
    f.txtDate[from].text = range.first;
    f.txtDate[to].text = range.second;
    return f.txtDate_Validate(from) && f.txtDate_Validate(to);
  };
  if (o.shop) {
    if (!SelectByText(f.cboShop_id, *o.shop)) {
      err << "ショップ " << *o.shop << " がありません。\n";
      return false;
    }
    f.cboShop_id_Click();
  }
  if (o.date) {
    f.chkChumonOption[0].value = 1;
    if (!date_pair(*o.date, 0, 1)) return false;
  }
  if (o.id) {
    f.chkChumonOption[1].value = 1;
    f.txtId[0].text = o.id->first;
    f.txtId[1].text = o.id->second;
  }
  if (o.payment) {
    if (!SelectByText(f.cboPayment, *o.payment)) {
      err << "支払方法 " << *o.payment << " がありません。\n";
      return false;
    }
    f.chkChumonOption[2].value = 1;
  }
  if (o.unprinted) f.chkChumonOption[3].value = 1;

  if (o.tel) {
    f.txtCustomer.text = *o.tel;
    f.txtCustomer_Change();
  }
  if (o.eda) f.txtEda.text = *o.eda;
  if (o.kbn) {
    if (!SelectByData(f.cboKbn, *o.kbn)) {
      err << "顧客区分 " << *o.kbn << " がありません。\n";
      return false;
    }
    f.cboKbn_Click();
  }
  if (o.last_sale) {
    f.chkOption[2].value = 1;
    if (!date_pair(*o.last_sale, 2, 3)) return false;
  }
  if (o.tanto) {
    f.txtTanto[0].text = o.tanto->first;
    f.txtTanto[1].text = o.tanto->second;
    f.chkOption[3].value = (o.tanto->first.empty() && o.tanto->second.empty()) ? 0 : 1;
  }
  if (o.zip) {
    f.txtTiku[0].text = o.zip->first;
    f.txtTiku[1].text = o.zip->second;
    f.chkOption[4].value = (o.zip->first.empty() && o.zip->second.empty()) ? 0 : 1;
  }
  if (o.nendo) {
    if (!SelectByText(f.cboNendo, *o.nendo)) {
      f.cboNendo.AddItem(*o.nendo, static_cast<std::int32_t>(std::stoi(*o.nendo)));
      f.cboNendo.list_index = f.cboNendo.ListCount() - 1;
    }
    f.chkOption[5].value = 1;
  }
  if (o.sales) {
    f.txtGaku[0].text = o.sales->first;
    f.txtGaku[1].text = o.sales->second;
    f.chkOption[5].value = 1;
    if (f.cboNendo.list_index == -1 && f.cboNendo.ListCount() > 0) f.cboNendo.list_index = 0;
  }
  if (o.item) {
    f.txtItem_id[0].text = o.item->first;
    f.txtItem_id[1].text = o.item->second;
    f.chkOption[6].value = (o.item->first.empty() && o.item->second.empty()) ? 0 : 1;
  }
  if (o.dm) {
    if (!SelectByData(f.cboDMKbn, *o.dm)) {
      err << "DM区分 " << *o.dm << " がありません。\n";
      return false;
    }
    f.cboDMKbn_Click();
  }

  if (o.item_shop && !SelectByText(f.cboShop_id2, *o.item_shop)) {
    err << "ショップ " << *o.item_shop << " がありません。\n";
    return false;
  }
  if (o.period) {
    f.chkDate.value = 1;
    f.txtDate[5].text = o.period->first;
    f.txtDate[4].text = o.period->second;
    if (!f.txtDate_Validate(5) || !f.txtDate_Validate(4)) return false;
  }
  if (o.date_kind) f.cboDate.list_index = *o.date_kind == "ordered" ? 1 : 0;
  if (o.order_by) f.cboOrderBy.list_index = *o.order_by == "total" ? 1 : *o.order_by == "qty" ? 2 : 0;

  if (o.start) {
    f.txtStart.text = std::to_string(*o.start);
    f.txtStart_Validate();
  }
  if (o.distinct) f.chkDistinct.value = *o.distinct ? 1 : 0;
  if (o.denno) {
    f.txtDenNo.text = *o.denno;
    f.txtDenNo_LostFocus();
  }
  if (o.no_redenno) f.chkReDenNo.value = 0;
  return true;
}

void ApplyChecks(const RunOptions& o, PrintForm& p) {
  if (o.uncheck.empty() && o.only.empty()) return;
  const bool customer = p.CustomerReport();
  auto& grid = p.VisibleGrid();
  const int key_col = customer ? static_cast<int>(kCusNo) : static_cast<int>(kColId);
  const std::set<std::string> uncheck(o.uncheck.begin(), o.uncheck.end());
  const std::set<std::string> only(o.only.begin(), o.only.end());
  for (int row = 1; row <= grid.MaxRows(); ++row) {
    const std::string& key = grid.Text(row, key_col);
    if (!only.empty()) grid.SetChecked(row, only.contains(key));
    if (uncheck.contains(key)) grid.SetChecked(row, false);
  }
}

void PrintTable(const common::Grid& grid, bool json, std::ostream& out) {
  std::vector<int> cols;
  for (int col = 1; col <= grid.MaxCols(); ++col) {
    if (!grid.ColHidden(col)) cols.push_back(col);
  }
  if (json) {
    nlohmann::json rows = nlohmann::json::array();
    for (int row = 1; row <= grid.MaxRows(); ++row) {
      nlohmann::json cells = nlohmann::json::object();
      for (int col = 2; col <= grid.MaxCols(); ++col) cells[std::to_string(col)] = grid.Text(row, col);
      rows.push_back({{"checked", grid.Checked(row)}, {"cells", cells}});
    }
    nlohmann::json captions = nlohmann::json::object();
    nlohmann::json hidden = nlohmann::json::array();
    for (int col = 1; col <= grid.MaxCols(); ++col) {
      captions[std::to_string(col)] = grid.Caption(col);
      if (grid.ColHidden(col)) hidden.push_back(col);
    }
    out << nlohmann::json{{"captions", captions}, {"hidden", hidden}, {"rows", rows}}.dump(1) << '\n';
    return;
  }
  const auto line = [&](int row) {
    for (std::size_t i = 0; i < cols.size(); ++i) {
      if (i) out << '\t';
      const int col = cols[i];
      out << (row > 0 && col == 1 ? (grid.Checked(row) ? "[x]" : "[ ]") : grid.Text(row, col));
    }
    out << '\n';
  };
  for (int row = 0; row <= grid.MaxRows(); ++row) line(row);
}

void PrintFilters(const SelectForm& f, bool json, std::ostream& out) {
  const auto& s = f.selection;
  nlohmann::json j;
  if (f.Context().current.report_no == 35) {
    j = {{"shop", s.item_list.shop},         {"date_from", s.item_list.date_from},
         {"date_to", s.item_list.date_to},   {"date_kind", s.item_list.date_kind},
         {"sort_kind", s.item_list.sort_kind}};
  } else {
    j = {{"date_from", s.sales_summary.date_from}, {"date_to", s.sales_summary.date_to},
         {"id_from", s.sales_summary.id_from},     {"id_to", s.sales_summary.id_to},
         {"payment", s.sales_summary.payment},     {"shop", s.sales_summary.shop}};
  }
  if (json) {
    out << j.dump(1) << '\n';
  } else {
    for (const auto& [key, value] : j.items()) out << key << '\t' << (value.is_string() ? value.get<std::string>() : value.dump()) << '\n';
  }
}

// The bookkeeping of an empty preview: its print tool is still there, and the billing rule of 24
// is reached only that way. The series length is the number of staged rows.
int BookWithoutPages(entry::Context& ctx, StreamUi& ui, const SelectForm& form, std::ostream& err) {
  StagedRowsRunner counter;
  counter.Run(ctx, "");
  PreviewForm empty(ctx, ui, form, counter, false);
  empty.cmdPrint();
  err << "台帳 " << empty.last_ledger.rows << " 件\n";
  return empty.last_ledger.ok ? 0 : 1;
}

// The print command of frmPreview: the report runs, then the ledger, the billing groups and the
// waybill numbers are written, and only then the pages go out. What is written stays when the
// printer fails.
int Book(entry::Context& ctx, StreamUi& ui, const SelectForm& form, PreviewRunner& runner,
         const PreviewOutputs& outputs, PageProgress& progress, std::ostream& err) {
  PreviewForm preview(ctx, ui, form, runner, false);
  const bool shown = preview.S_DisplayReport();
  progress.Finish();
  if (!shown) {
    const std::string why = runner.Message();
    if (!why.empty()) {
      ui.MessageBox(why, preview.caption, entry::kExclamation);
      // Nothing is booked for pages that cannot be made: a report that failed while running, or
      // any report when the pages were to go out.
      if (outputs.print || why != engine::kNoReportMessage) return 1;
    }
    const int code = BookWithoutPages(ctx, ui, form, err);
    if (!outputs.print) return code;
    ui.MessageBox("印刷するページがありません。", preview.caption, entry::kExclamation);
    return 1;
  }
  const bool printed = preview.cmdPrint();
  err << "台帳 " << preview.last_ledger.rows << " 件";
  if (entry::IsWaybillReport(ctx.current.report_no)) {
    switch (preview.last_den_no.outcome) {
      case DenNoOutcome::NoStartNumber: err << "、伝票番号なし"; break;
      case DenNoOutcome::Assigned: err << "、伝票番号 " << preview.last_den_no.numbered << " 件"; break;
      case DenNoOutcome::RolledBack: err << "、伝票番号は付番されませんでした"; break;
    }
  }
  err << '\n';
  if (!printed) {
    ui.MessageBox(runner.Message(), preview.caption, entry::kExclamation);
    return 1;
  }
  if (outputs.print) {
    err << "印刷しました: " << runner.Pages() << " ページ → "
        << (!outputs.print_pdf.empty() ? outputs.print_pdf
            : !outputs.printer.empty() ? outputs.printer
            : !ctx.current.device_name.empty() ? ctx.current.device_name
                                               : std::string("既定のプリンタ"))
        << '\n';
  }
  return preview.last_ledger.ok ? 0 : 1;
}

// The preview without a print: the pages go to the preview files only.
int Preview(entry::Context& ctx, StreamUi& ui, const SelectForm& form, PreviewRunner& runner,
            PageProgress& progress, std::ostream& err) {
  PreviewForm preview(ctx, ui, form, runner, false);
  const bool shown = preview.S_DisplayReport();
  progress.Finish();
  if (shown) {
    err << "プレビュー: " << runner.Pages() << " ページ\n";
    return 0;
  }
  if (const std::string why = runner.Message(); !why.empty()) ui.MessageBox(why, preview.caption, entry::kExclamation);
  return entry::IsSilentNoneReport(ctx.current.report_no) ? 0 : 1;
}

}  // namespace

Range ParseRange(const std::string& text) {
  const auto colon = text.find(':');
  if (colon == std::string::npos) return {text, text};
  return {text.substr(0, colon), text.substr(colon + 1)};
}

entry::MessageResult StreamUi::MessageBox(std::string_view text, std::string_view caption, int style) {
  ++messages;
  last_text = text;
  err_ << caption << ": " << text << '\n';
  return (style & 0x7) == entry::kYesNo ? entry::kYes : entry::kOk;
}

int RunHeadless(const RunOptions& o, std::ostream& out, std::ostream& err, PreviewRunner* runner) {
  PageProgress progress(err);
  std::unique_ptr<PreviewRunner> registered;
  if (runner == nullptr) {
    registered = MakeRegisteredPreviewRunner(o.outputs, [&progress](int pages) { progress.Show(pages); });
    runner = registered.get();
  }
  if (runner == nullptr && (o.outputs.Previews() || o.outputs.print)) {
    err << "帳票エンジンがないため、ページを出力できません。\n";
    return 2;
  }
  if (const std::string file = MissingOutputFolder(o.outputs); !file.empty()) {
    err << "ファイル '" << file << "' のフォルダがありません。\n";
    return 2;
  }
  std::unique_ptr<db::Connection> connection;
  try {
    connection = db::OpenConnection(o.db_url);
  } catch (const std::exception& e) {
    err << "データベースに接続できません: " << e.what() << '\n';
    return 2;
  }
  const auto stores = o.settings_dir.empty() ? settings::StorePaths::Default()
                                             : settings::StorePaths::InFolder(o.settings_dir);
  entry::Context ctx(connection.get(), stores, o.home.empty() ? std::filesystem::current_path() : std::filesystem::path(o.home));
  ctx.command = o.command;
  ctx.login = {o.login_user, o.login_number, o.client_name};
  // As the entry object's Show does: slips and files name their goods from hinmei.txt.
  ctx.default_item_name = files::ReadFirstLine(ctx.home / "hinmei.txt");
  for (const auto& [key, value] : o.settings) ctx.settings.SaveSetting(0, value, key);

  StreamUi ui(err);
  try {
    SelectForm form(ctx, ui);
    form.Form_Load();
    form.Form_Activate();
    if (!SelectByData(form.cboList, o.report)) {
      err << "帳票番号 " << o.report << " は一覧にありません (REPORT にないか、ENABLED が 0 です)。\n";
      return 2;
    }
    form.cboList_Click();
    if (!ApplyCriteria(o, form, err)) return 1;
    if (form.cmdSelect() == SelectOutcome::Stopped) return 1;

    const std::int32_t report_no = ctx.current.report_no;
    const bool pages_asked = o.outputs.Previews() || o.outputs.print;
    if (entry::IsDirectReport(report_no)) {
      PrintFilters(form, o.json, out);
      if (o.sql_only) return 0;
      // These reports aggregate by themselves; no list and no staging come before them.
      if (runner == nullptr) {
        err << "集計帳票はプレビューで作成されます (帳票エンジン未接続)。\n";
        return 0;
      }
      if (!pages_asked && !o.book) return 0;
      return o.book || o.outputs.print ? Book(ctx, ui, form, *runner, o.outputs, progress, err)
                                       : Preview(ctx, ui, form, *runner, progress, err);
    }
    if (o.sql_only) {
      out << form.SQL << '\n';
      return 0;
    }

    PrintForm print(ctx, ui, form);
    print.progress = [&](int row) {
      if (row % kProgressEvery == 0) err << "\r一覧 " << row << " 件..." << std::flush;
    };
    const bool listed = print.Form_Activate();
    if (print.VisibleGrid().MaxRows() >= kProgressEvery) err << '\n';
    if (!listed) return 1;
    ApplyChecks(o, print);
    if (!o.quiet) PrintTable(print.VisibleGrid(), o.json, out);

    const PrintOutcome outcome = print.cmdPrint();
    if (outcome == PrintOutcome::FileWritten) return 0;
    if (outcome != PrintOutcome::Preview) return 1;
    err << "WK_PRINT に " << print.staged_rows << " 件を登録しました。\n";
    if (runner == nullptr) {
      if (!o.book) return 0;
      StagedRowsRunner counter;
      return Book(ctx, ui, form, counter, o.outputs, progress, err);
    }
    return o.book || o.outputs.print ? Book(ctx, ui, form, *runner, o.outputs, progress, err)
                                     : Preview(ctx, ui, form, *runner, progress, err);
  } catch (const std::exception& e) {
    err << "エラー: " << e.what() << '\n';
    return 2;
  }
}

}  // namespace lupin::run
