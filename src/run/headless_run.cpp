#include "run/headless_run.h"

#include <unistd.h>

#include <cstdlib>
#include <exception>
#include <map>
#include <ostream>
#include <set>

#include "common/files.h"
#include "common/grid.h"
#include "common/sql.h"
#include "entry/catalogue.h"
#include "entry/context.h"
#include "entry/lupns6pt.h"
#include "run/carrier_filter.h"
#include "run/file_report_dispatch.h"
#include "run/headless_run_output.h"
#include "run/output_targets.h"
#include "entry/schema.h"
#include "run/preview_form.h"
#include "run/print_form.h"
#include "run/select_form.h"

namespace lupin::run {

namespace {

constexpr int kProgressEvery = 1000;
constexpr int kPageProgressEvery = 100;

// A count redrawn on one line of a terminal; in a pipe or a log nothing is shown.
class Progress {
 public:
  Progress(std::ostream& err, bool terminal) : err_(err), terminal_(terminal) {}
  void Show(std::string_view what, int count, int every) {
    if (!terminal_ || count % every != 0) return;
    err_ << '\r' << what << ' ' << count << "..." << std::flush;
    shown_ = true;
  }
  // Ends the progress line before the next message.
  void Finish() {
    if (shown_) err_ << '\n';
    shown_ = false;
  }

 private:
  std::ostream& err_;
  bool terminal_;
  bool shown_ = false;
};

int Refuse(std::ostream& err, const std::string& text, int code = kExitUsage) {
  err << "エラー: " << text << '\n';
  return code;
}

std::string Quoted(std::string_view text) { return "'" + std::string(text) + "'"; }

// "A, B, C" of a combo's items; with data, "DATA (TEXT)".
std::string ItemList(const common::ComboModel& combo, bool with_data, int from = 0) {
  std::string list;
  for (int i = from; i < combo.ListCount(); ++i) {
    if (!list.empty()) list += ", ";
    const auto index = static_cast<std::size_t>(i);
    list += with_data ? std::to_string(combo.item_data[index]) + " (" + combo.items[index] + ")" : combo.items[index];
  }
  return list.empty() ? "(なし)" : list;
}

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

std::string NotAnItem(std::string_view option, std::string_view value, std::string_view what,
                      const common::ComboModel& combo, bool with_data, int from = 0) {
  return std::string(option) + " の値 " + Quoted(value) + " の" + std::string(what) + "はありません。" +
         std::string(what) + "は次のいずれかです: " + ItemList(combo, with_data, from);
}

// Applies the options to the form as a user would type them. A value the option cannot take is
// refused with kExitUsage; the form's own validation stops with kExitStopped after its message.
int ApplyCriteria(const RunOptions& o, SelectForm& f, std::ostream& err) {
  if (o.clear_criteria) {
    for (auto& box : f.chkChumonOption) box.value = 0;
    for (auto& box : f.chkOption) box.value = 0;
    f.chkDate.value = 0;
  }
  std::string refusal;
  const auto date_pair = [&](std::string_view option, Range range, bool empty_side_allowed, int from, int to) {
    refusal = CheckDateRange(option, range, empty_side_allowed);
    if (!refusal.empty()) return kExitUsage;
    f.txtDate[static_cast<std::size_t>(from)].text = range.first;
    f.txtDate[static_cast<std::size_t>(to)].text = range.second;
    return f.txtDate_Validate(from) && f.txtDate_Validate(to) ? kExitDone : kExitStopped;
  };
  const auto numbers = [&](std::string_view option, const Range& range) {
    refusal = CheckNumberRange(option, range);
    return refusal.empty();
  };
  if (o.shop) {
    if (!SelectByText(f.cboShop_id, *o.shop)) return Refuse(err, NotAnItem("--shop", *o.shop, "ショップ", f.cboShop_id, false, 1));
    f.cboShop_id_Click();
  }
  if (o.date) {
    f.chkChumonOption[0].value = 1;
    if (const int code = date_pair("--date", *o.date, false, 0, 1); code != kExitDone) return refusal.empty() ? code : Refuse(err, refusal);
  }
  if (o.id) {
    if (!numbers("--id", *o.id)) return Refuse(err, refusal);
    f.chkChumonOption[1].value = 1;
    f.txtId[0].text = o.id->first;
    f.txtId[1].text = o.id->second;
  }
  if (o.payment) {
    if (!SelectByText(f.cboPayment, *o.payment)) return Refuse(err, NotAnItem("--payment", *o.payment, "支払方法", f.cboPayment, false));
    f.chkChumonOption[2].value = 1;
  }
  if (o.unprinted) f.chkChumonOption[3].value = 1;

  if (o.tel) {
    f.txtCustomer.text = *o.tel;
    f.txtCustomer_Change();
  }
  if (o.eda) f.txtEda.text = *o.eda;
  if (o.kbn) {
    if (!SelectByData(f.cboKbn, *o.kbn)) return Refuse(err, NotAnItem("--kbn", std::to_string(*o.kbn), "顧客区分", f.cboKbn, true));
    f.cboKbn_Click();
  }
  if (o.last_sale) {
    f.chkOption[2].value = 1;
    if (const int code = date_pair("--last-sale", *o.last_sale, true, 2, 3); code != kExitDone) return refusal.empty() ? code : Refuse(err, refusal);
  }
  if (o.tanto) {
    if (!numbers("--tanto", *o.tanto)) return Refuse(err, refusal);
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
    // The year names a column ([年度純売上額2024]): only a year the table has may reach the statement.
    const bool digits = !o.nendo->empty() && o.nendo->size() <= 4 &&
                        o.nendo->find_first_not_of("0123456789") == std::string::npos;
    const int year = digits ? std::stoi(*o.nendo) : 0;
    if (year < entry::kFirstSalesYear || year > entry::kLastSalesYear) {
      return Refuse(err, "--nendo の値 " + Quoted(*o.nendo) + " の年間売上はありません。" +
                             std::to_string(entry::kFirstSalesYear) + "～" + std::to_string(entry::kLastSalesYear) +
                             " の西暦年で指定してください。");
    }
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
    if (!SelectByData(f.cboDMKbn, *o.dm)) return Refuse(err, NotAnItem("--dm", std::to_string(*o.dm), "DM区分", f.cboDMKbn, true));
    f.cboDMKbn_Click();
  }

  if (o.item_shop && !SelectByText(f.cboShop_id2, *o.item_shop)) {
    return Refuse(err, NotAnItem("--item-shop", *o.item_shop, "ショップ", f.cboShop_id2, false, 1));
  }
  if (o.period) {
    f.chkDate.value = 1;
    if (const int code = date_pair("--period", *o.period, false, 5, 4); code != kExitDone) return refusal.empty() ? code : Refuse(err, refusal);
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
  return kExitDone;
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

void PrintFilters(const SelectForm& f, std::ostream& out) {
  const auto& s = f.selection;
  if (f.Context().current.report_no == 35) {
    out << "shop\t" << s.item_list.shop << "\ndate_from\t" << s.item_list.date_from << "\ndate_to\t"
        << s.item_list.date_to << "\ndate_kind\t" << s.item_list.date_kind << "\nsort_kind\t" << s.item_list.sort_kind
        << '\n';
  } else {
    out << "date_from\t" << s.sales_summary.date_from << "\ndate_to\t" << s.sales_summary.date_to << "\nid_from\t"
        << s.sales_summary.id_from << "\nid_to\t" << s.sales_summary.id_to << "\npayment\t" << s.sales_summary.payment
        << "\nshop\t" << s.sales_summary.shop << '\n';
  }
}

// Where the system's rules surprise in a slip run: orders of other carriers in the list (the ID
// criterion turns the carrier filter off) and stored waybill numbers about to be overwritten.
void WarnBeforeNumbering(entry::Context& ctx, const SelectForm& form, std::ostream& err) {
  const std::int32_t report_no = ctx.current.report_no;
  auto rs = ctx.Db().Open(
      "SELECT [CHUMON].[宅配業者] AS [CARRIER], [CHUMON].[出荷伝票番号] AS [DENNO] FROM [CHUMON] INNER JOIN "
      "[WK_PRINT] ON [CHUMON].[ID] = [WK_PRINT].[ID] WHERE [WK_PRINT].[CLIENT_NAME] = '" +
      sql::SqlQuote(ctx.ClientName()) + "'");
  std::map<std::string, int> others;
  int other_count = 0, numbered = 0;
  for (; !rs.Eof(); rs.MoveNext()) {
    const std::string carrier = rs["CARRIER"].Text();
    if (!CarrierMatches(report_no, carrier)) {
      ++others[carrier.empty() ? "(空欄)" : carrier];
      ++other_count;
    }
    if (!rs["DENNO"].Text().empty()) ++numbered;
  }
  if (other_count > 0) {
    err << "警告: 一覧に他の配送業者の受注が " << other_count << " 件あります (";
    bool first = true;
    for (const auto& [carrier, count] : others) {
      err << (first ? "" : "、") << carrier << " " << count << " 件";
      first = false;
    }
    err << ")。ID の条件を使うと配送業者では絞り込まれません。\n";
  }
  if (numbered > 0 && !form.txtDenNo.text.empty() && form.chkReDenNo.Checked()) {
    err << "警告: 伝票番号が既にある受注 " << numbered << " 件の番号を書き換えます。\n";
  }
}

void ShowWritten(const PreviewRunner& runner, std::ostream& err) {
  for (const std::string& file : runner.Written()) err << "出力しました: " << file << '\n';
}

// The print command of frmPreview: the report runs, then the ledger, the billing groups and the
// waybill numbers are written, and only then the pages go out. What is written stays when the
// printer fails. With --book alone the pages are laid out and booked, and not sent.
int Book(entry::Context& ctx, StreamUi& ui, const SelectForm& form, PreviewRunner& runner,
         const PreviewOutputs& outputs, Progress& progress, std::ostream& err) {
  PreviewForm preview(ctx, ui, form, runner, false);
  const bool shown = preview.S_DisplayReport();
  progress.Finish();
  if (!shown) {
    // Nothing is booked for pages that were never made.
    if (const std::string why = runner.Message(); !why.empty()) ui.MessageBox(why, preview.caption, entry::kExclamation);
    return kExitStopped;
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
  ShowWritten(runner, err);
  if (outputs.print && !printed) {
    ui.MessageBox(runner.Message(), preview.caption, entry::kExclamation);
    return kExitNotOpened;
  }
  if (outputs.print) {
    err << "印刷しました: " << runner.Pages() << " ページ → "
        << (!outputs.print_pdf.empty() ? outputs.print_pdf
            : !outputs.printer.empty() ? outputs.printer
            : !ctx.current.device_name.empty() ? ctx.current.device_name
                                               : std::string("既定のプリンタ"))
        << '\n';
  } else {
    err << "記帳しました (ページは送っていません): " << runner.Pages() << " ページ\n";
  }
  return preview.last_ledger.ok ? kExitDone : kExitStopped;
}

// The preview without a print: the pages go to the preview files only.
int Preview(entry::Context& ctx, StreamUi& ui, const SelectForm& form, PreviewRunner& runner, Progress& progress,
            std::ostream& err) {
  PreviewForm preview(ctx, ui, form, runner, false);
  const bool shown = preview.S_DisplayReport();
  progress.Finish();
  if (shown) {
    err << "プレビュー: " << runner.Pages() << " ページ\n";
    ShowWritten(runner, err);
    return kExitDone;
  }
  if (const std::string why = runner.Message(); !why.empty()) ui.MessageBox(why, preview.caption, entry::kExclamation);
  return entry::IsSilentNoneReport(ctx.current.report_no) ? kExitDone : kExitStopped;
}

// The output file of a file report, checked before the export; "" when it can be written.
std::string CheckFileReportTarget(const entry::Context& ctx, std::int32_t report_no) {
  const FileReportTarget target = FileReportTargetOf(ctx, report_no);
  if (target.current.empty()) return "";  // the writer says that the path is missing
  std::error_code error;
  const std::filesystem::path path(target.current);
  const std::string what = "出力先 (設定 " + target.setting + ")";
  if (std::filesystem::is_directory(path, error)) {
    return ::access(path.c_str(), W_OK | X_OK) == 0 ? "" : what + ": フォルダ " + Quoted(path.string()) + " に書き込む権限がありません。";
  }
  return CheckWritableFile(what, path);
}

// cmdSiryo of report 92: the fixed request-for-material object, without the report's printer
// settings, the ledger or waybill numbers; --print sends its pages out all the same.
int RequestForMaterial(entry::Context& ctx, StreamUi& ui, const SelectForm& form, PrintForm& print,
                       PreviewRunner& runner, const PreviewOutputs& outputs, Progress& progress, std::ostream& err) {
  const PrintOutcome staged = print.cmdSiryo();
  if (staged == PrintOutcome::NothingChecked) return kExitNothing;
  if (staged != PrintOutcome::Preview) return kExitStopped;
  err << "WK_PRINT に " << print.staged_rows << " 件を登録しました。\n";
  PreviewForm preview(ctx, ui, form, runner, print.Siryo);
  const bool shown = preview.S_DisplayReport();
  progress.Finish();
  if (!shown) {
    ui.MessageBox(runner.Message(), preview.caption, entry::kExclamation);
    return kExitStopped;
  }
  err << "プレビュー: " << runner.Pages() << " ページ\n";
  ShowWritten(runner, err);
  if (outputs.print && !preview.cmdPrint()) {
    ui.MessageBox(runner.Message(), preview.caption, entry::kExclamation);
    return kExitStopped;
  }
  return kExitDone;
}

}  // namespace

std::filesystem::path DefaultComponentHome() {
  return entry::DefaultComponentDirectory(settings::StorePaths::Default());
}

std::string MissingSqliteDatabase(std::string_view url) {
  if (!url.starts_with("sqlite:")) return "";
  const std::string path(url.substr(7));
  if (path.empty() || path == ":memory:") return "";
  std::error_code error;
  if (std::filesystem::is_regular_file(path, error)) return "";
  return "--db: データベースのファイル " + Quoted(path) +
         " がありません。新しいデータベースは lupinprint init --db " + std::string(url) + " で作成します。";
}

entry::MessageResult StreamUi::MessageBox(std::string_view text, std::string_view caption, int style) {
  ++messages;
  last_text = text;
  err_ << caption << ": " << text << '\n';
  return (style & 0x7) == entry::kYesNo ? entry::kYes : entry::kOk;
}

int RunHeadless(const RunOptions& o, std::ostream& out, std::ostream& err, PreviewRunner* runner) {
  Progress progress(err, o.terminal);
  std::unique_ptr<PreviewRunner> registered;
  if (runner == nullptr) {
    registered = MakeRegisteredPreviewRunner(
        o.outputs, [&progress](int pages) { progress.Show("ページ", pages, kPageProgressEvery); });
    runner = registered.get();
  }
  if (runner == nullptr && (o.outputs.Previews() || o.outputs.print || o.book)) {
    return Refuse(err, "帳票エンジンがないため、ページを出力できません。", kExitNotOpened);
  }
  if (const std::string refusal = CheckPreviewOutputs(o.outputs); !refusal.empty()) {
    return Refuse(err, refusal, kExitNotOpened);
  }
  if (const std::string refusal = MissingSqliteDatabase(o.db_url); !refusal.empty()) {
    return Refuse(err, refusal, kExitNotOpened);
  }
  RemoveStaleOutputParts(o.outputs);
  std::unique_ptr<db::Connection> connection;
  try {
    connection = db::OpenConnection(o.db_url);
  } catch (const std::exception& e) {
    return Refuse(err, std::string("データベースに接続できません: ") + e.what(), kExitNotOpened);
  }
  const auto stores = o.settings_dir.empty() ? settings::StorePaths::Default()
                                             : settings::StorePaths::InFolder(o.settings_dir);
  entry::Context ctx(connection.get(), stores, o.home.empty() ? DefaultComponentHome() : std::filesystem::path(o.home));
  {
    std::error_code ignored;  // a folder that cannot be made shows when a file in it is needed
    std::filesystem::create_directories(ctx.home, ignored);
  }
  ctx.command = o.command;
  ctx.login = {o.login_user, o.login_number, o.client_name};
  // As the entry object's Show does: slips and files name their goods from hinmei.txt.
  ctx.default_item_name = files::ReadFirstLine(ctx.home / "hinmei.txt");
  for (const auto& [key, value] : o.settings) ctx.settings.Override(key, value);

  StreamUi ui(err);
  try {
    SelectForm form(ctx, ui);
    form.Form_Load();
    form.Form_Activate();
    if (!SelectByData(form.cboList, o.report)) {
      return Refuse(err, "--report の値 " + std::to_string(o.report) +
                             " は帳票の一覧にありません (REPORT にないか、ENABLED が 0 です)。帳票番号は次のいずれかです: " +
                             ItemList(form.cboList, true));
    }
    form.cboList_Click();
    const std::int32_t report_no = ctx.current.report_no;
    const bool pages_asked = o.outputs.Previews() || o.outputs.print;

    // A page report whose object does not exist has no pages: nothing is staged or booked for it.
    if (!entry::IsFileReport(report_no) && (pages_asked || o.book)) {
      const auto& entry = entry::CatalogueOf(report_no);
      if (entry.output != entry::OutputKind::Report || entry.object.empty() || !runner->Has(entry.object)) {
        if (entry::IsSilentNoneReport(report_no)) return kExitNothing;
        ui.MessageBox("帳票が登録されていません。", kPreviewCaption, entry::kExclamation);
        return kExitStopped;
      }
    }
    if (o.outputs.print && o.outputs.print_pdf.empty()) {
      const std::string device = o.outputs.printer.empty() ? ctx.current.device_name : o.outputs.printer;
      if (const std::string refusal = CheckPrinter(device); !refusal.empty()) return Refuse(err, refusal, kExitNotOpened);
    }
    if (const int code = ApplyCriteria(o, form, err); code != kExitDone) return code;
    DenNoStart den_no;
    if (o.denno) {
      if (const std::string refusal = CheckDenNo(report_no, *o.denno, den_no); !refusal.empty()) return Refuse(err, refusal);
    }
    if (form.cmdSelect() == SelectOutcome::Stopped) return kExitStopped;

    if (entry::IsDirectReport(report_no)) {
      if (!o.quiet || o.sql_only) PrintFilters(form, out);
      if (o.sql_only || (!pages_asked && !o.book)) return kExitDone;
      // These reports aggregate by themselves; no list and no staging come before them.
      return o.book || o.outputs.print ? Book(ctx, ui, form, *runner, o.outputs, progress, err)
                                       : Preview(ctx, ui, form, *runner, progress, err);
    }
    if (o.sql_only) {
      out << form.SQL << '\n';
      return kExitDone;
    }

    PrintForm print(ctx, ui, form);
    print.progress = [&](int row) { progress.Show("一覧", row, kProgressEvery); };
    const bool listed = print.Form_Activate();
    progress.Finish();
    if (!listed) {
      if (o.json && !o.quiet) PrintEmptyListJson(form, out);
      return kExitNothing;
    }
    ApplyChecks(o, print);
    if (!o.quiet) {
      if (o.json) {
        PrintListJson(print.VisibleGrid(), print.CustomerReport(), form, out);
      } else {
        PrintListTable(print.VisibleGrid(), print.CustomerReport(), form, out);
      }
    }

    // Report 92's pages are its request for material (cmdSiryo), which books nothing.
    if (report_no == 92 && pages_asked) return RequestForMaterial(ctx, ui, form, print, *runner, o.outputs, progress, err);
    if (entry::IsFileReport(report_no)) {
      if (const std::string refusal = CheckFileReportTarget(ctx, report_no); !refusal.empty()) {
        return Refuse(err, refusal, kExitNotOpened);
      }
      files::RemoveStalePartFiles(std::filesystem::path(FileReportTargetOf(ctx, report_no).current).parent_path());
    }
    const PrintOutcome outcome = print.cmdPrint();
    if (outcome == PrintOutcome::FileWritten) {
      err << "出力しました: " << FileReportTargetOf(ctx, report_no).current << '\n';
      return kExitDone;
    }
    if (outcome == PrintOutcome::NothingChecked) return kExitNothing;
    if (outcome != PrintOutcome::Preview) return kExitStopped;
    err << "WK_PRINT に " << print.staged_rows << " 件を登録しました。\n";
    if (!pages_asked && !o.book) return kExitDone;
    if (o.book || o.outputs.print) {
      if (entry::IsWaybillReport(report_no)) {
        WarnBeforeNumbering(ctx, form, err);
        if (!den_no.used.empty() && form.chkReDenNo.Checked()) {
          if (den_no.check_digit_replaced()) {
            err << "宅配伝票番号(開始) " << den_no.typed << " のチェックデジットは計算し直します: " << den_no.used
                << " から付番します。\n";
          } else {
            err << "宅配伝票番号 " << den_no.used << " から付番します。\n";
          }
        }
      }
      return Book(ctx, ui, form, *runner, o.outputs, progress, err);
    }
    return Preview(ctx, ui, form, *runner, progress, err);
  } catch (const std::exception& e) {
    // A statement the database refused: the database could not do what the run asked of it.
    return Refuse(err, e.what(), kExitNotOpened);
  }
}

}  // namespace lupin::run
