#include "run/print_form.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <exception>
#include <unordered_set>

#include "common/sql.h"
#include "common/vb.h"
#include "entry/catalogue.h"
#include "run/carrier_filter.h"
#include "run/ledger.h"
#include "run/select_form.h"
#include "run/staging.h"

namespace lupin::run {

namespace {

constexpr std::string_view kNoData = "該当するデータがありません。";
constexpr std::string_view kNothingChecked = "印刷するデータを選択して下さい。";
constexpr std::string_view kNoPath = "出力先を指定して下さい。";

std::string FieldText(const db::Recordset& rs, std::string_view field) {
  return field.empty() ? std::string() : rs[field].Text();
}

int OpenTrace(const std::filesystem::path& home) {
  const std::string path = (home / "trace.log").string();
  return ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
}

}  // namespace

std::string PrintButtonCaption(std::int32_t report_no) {
  if (report_no == 101) return "出力";
  const bool csv = (report_no >= 89 && report_no <= 99) || report_no == 102 || report_no == 104;
  return csv ? "CSV出力" : "ﾌﾟﾚﾋﾞｭｰ";
}

PrintForm::PrintForm(entry::Context& context, entry::Ui& ui, const SelectForm& select)
    : ledger_date(LedgerDate), context_(context), ui_(ui), select_(select) {
  static constexpr std::string_view kListCaptions[] = {"", "", "ID", "会社名", "氏名", "", "受注日", "", "", "",
                                                       "商品ID", "請求額", "消費税", "印紙", "メールアドレス",
                                                       "電話番号", "郵便番号"};
  for (int col = 1; col <= kListColumns; ++col) sprList.SetCaption(col, kListCaptions[col]);
  static constexpr std::string_view kCustomerCaptions[] = {"", "", "会社名", "氏名", "住所", "TEL番号", "郵便番号", "顧客NO"};
  for (int col = 1; col <= kCustomerColumns; ++col) sprCustomer.SetCaption(col, kCustomerCaptions[col]);
  for (const int col : {kColItem1, kColAmount, kColMail, kColTel, kColZip}) sprList.SetColHidden(col, true);
}

void PrintForm::Message(std::string_view text, int style) { ui_.MessageBox(text, kPrintCaption, style); }

bool PrintForm::CustomerReport() const { return entry::ListsCustomers(context_.current.other_tbl_name); }
common::Grid& PrintForm::VisibleGrid() { return CustomerReport() ? sprCustomer : sprList; }
const common::Grid& PrintForm::VisibleGrid() const { return CustomerReport() ? sprCustomer : sprList; }

bool PrintForm::Form_Activate() {
  Siryo = false;
  const std::int32_t report_no = context_.current.report_no;
  cmdPrintButton.caption = PrintButtonCaption(report_no);
  cmdPathButton.visible = entry::IsFileReport(report_no);
  cmdSiryoButton.visible = report_no == 92;
  if (activated_) return !unloaded;
  activated_ = true;
  sprCustomer.SetVisible(CustomerReport());
  sprList.SetVisible(!CustomerReport());
  LoadList();
  if (sprList.MaxRows() == 0 && sprCustomer.MaxRows() == 0) {
    Message(kNoData);
    unloaded = true;
  }
  return !unloaded;
}

void PrintForm::Trace(std::string_view text) {
  const std::time_t now = std::time(nullptr);
  if (now != trace_second_) {
    std::tm local{};
    localtime_r(&now, &local);
    std::strftime(trace_clock_, sizeof trace_clock_, "%H:%M:%S", &local);
    trace_second_ = now;
  }
  std::string line;
  line.reserve(text.size() + 12);
  line.append(trace_clock_).append("\t").append(text).append("\r\n");
  const bool held = trace_fd_ >= 0;
  const int fd = held ? trace_fd_ : OpenTrace(context_.home);
  if (fd < 0) return;
  [[maybe_unused]] const auto written = ::write(fd, line.data(), line.size());
  if (!held) ::close(fd);
}

double PrintForm::OrderTaxTotal(std::int64_t id) {
  auto rs = context_.Db().Open(std::string("SELECT") + " [ZEIRATE1ZEI]" + ",[ZEIRATE2ZEI]" + ",[ZEIRATE3ZEI]" +
                               " FROM [CHUMON_T]" + " WHERE [ID] = " + std::to_string(id));
  if (rs.Eof()) return 0;
  return rs["ZEIRATE1ZEI"].Number() + rs["ZEIRATE2ZEI"].Number() + rs["ZEIRATE3ZEI"].Number();
}

void PrintForm::PrepareColumns() {
  const auto& def = context_.current;
  sprList.SetCaption(kColReportDate, def.date_label);
  const std::pair<int, int> remarks[] = {{kColBiko1, 0}, {kColBiko2, 1}, {kColBiko3, 2}};
  for (const auto& [col, k] : remarks) {
    const bool shown = !def.biko_lbl[static_cast<std::size_t>(k)].empty();
    sprList.SetColHidden(col, !shown);
    if (shown) sprList.SetCaption(col, def.biko_lbl[static_cast<std::size_t>(k)]);
  }
  const bool collect = entry::IsCollectReport(def.report_no);
  sprList.SetColHidden(kColTax, !collect);
  sprList.SetColHidden(kColStamp, !collect);
}

void PrintForm::LoadList() {
  trace_fd_ = OpenTrace(context_.home);
  struct CloseTrace {
    int& fd;
    ~CloseTrace() {
      if (fd >= 0) ::close(fd);
      fd = -1;
    }
  } close_trace{trace_fd_};
  Trace("display start");
  const auto& def = context_.current;
  const std::string date_field = def.date_field;
  PrepareColumns();
  sprList.SetReDraw(false);
  sprCustomer.SetReDraw(false);

  auto rs = context_.Db().OpenForward(select_.SQL);
  const bool customer = CustomerReport();
  const bool collect = entry::IsCollectReport(def.report_no);
  const bool dedupe = select_.dedupe != 0 && def.lbl_rpt != 0 && !customer;
  const bool carrier_filter = select_.NoCarrierFilter == 1;
  std::unordered_set<std::string> seen;

  for (; !rs.Eof(); rs.MoveNext()) {
    if (dedupe) {
      const std::string name = rs["氏名"].Text();
      const std::string tel = rs["検索用電話番号"].Text();
      // A person without name and telephone cannot be recognised again.
      if (!(name.empty() && tel.empty()) && !seen.insert(name + '\x1f' + tel).second) continue;
    }
    if (carrier_filter && !CarrierMatches(def.report_no, rs["宅配業者"].Text())) continue;

    if (!customer) {
      const int row = sprList.AddRow();
      Trace("行:" + std::to_string(row));
      sprList.SetValue(row, kColCheck, 1);
      sprList.SetText(row, kColId, rs["ID"].Text());
      sprList.SetText(row, kColOrderDate, rs["受注日"].Text());
      sprList.SetText(row, kColReportDate, FieldText(rs, date_field));
      sprList.SetText(row, kColItem1, rs["商品ID1"].Text());
      const double amount = rs["請求額"].Number();
      sprList.SetValue(row, kColAmount, amount);
      if (collect) {
        Trace("get include tax start");
        const double tax = OrderTaxTotal(rs["ID"].Long());
        Trace("get include tax end");
        sprList.SetValue(row, kColTax, tax);
        sprList.SetValue(row, kColStamp, amount - tax >= kStampThreshold);
      }
      sprList.SetText(row, kColName, rs["氏名"].Text());
      if (!def.biko_lbl[0].empty()) sprList.SetText(row, kColBiko1, FieldText(rs, def.biko_fld[0]));
      if (!def.biko_lbl[1].empty()) sprList.SetText(row, kColBiko2, FieldText(rs, def.biko_fld[1]));
      if (!def.biko_lbl[2].empty()) sprList.SetText(row, kColBiko3, FieldText(rs, def.biko_fld[2]));
      sprList.SetText(row, kColMail, rs["メールアドレス"].Text());
      sprList.SetText(row, kColTel, rs["検索用電話番号"].Text());
      sprList.SetText(row, kColZip, sql::NumericText(rs["郵便番号"].Text()));
      sprList.SetText(row, kColCompany, rs["会社名"].Text());
    } else {
      const int row = sprCustomer.AddRow();
      Trace("行:" + std::to_string(row));
      sprCustomer.SetText(row, kCusName, rs["顧客名"].Text());
      sprCustomer.SetText(row, kCusAddress, rs["住所"].Text());
      sprCustomer.SetText(row, kCusZip, sql::NumericText(rs["郵便番号"].Text()));
      sprCustomer.SetText(row, kCusCompany, rs["顧客会社名"].Text());
      sprCustomer.SetText(row, kCusTel, rs["TEL番号"].Text());
      sprCustomer.SetText(row, kCusNo, rs["顧客NO"].Text());
      sprCustomer.SetValue(row, kCusCheck, 1);
    }
    if (progress) progress(std::max(sprList.MaxRows(), sprCustomer.MaxRows()));
  }
  rs.Close();
  sprList.SetReDraw(true);
  sprCustomer.SetReDraw(true);
  Trace("display end");
}

void PrintForm::cmdAllSelect() { VisibleGrid().CheckAll(true); }
void PrintForm::cmdAllEject() { VisibleGrid().CheckAll(false); }

PrintOutcome PrintForm::cmdPrint() {
  staged_rows = 0;
  if (entry::IsFileReport(context_.current.report_no)) return PrintFile();
  return StageAndPreview();
}

PrintOutcome PrintForm::cmdSiryo() {
  Siryo = true;
  staged_rows = 0;
  return StageAndPreview();
}

PrintOutcome PrintForm::StageAndPreview() {
  const auto result = StageRows(context_.Db(), context_.ClientName(), VisibleGrid(), CustomerReport(),
                                context_.current.report_no);
  if (!result.ok) {
    Message(result.error);
    return PrintOutcome::Failed;
  }
  staged_rows = result.rows;
  if (!result.has_data) {
    Message(kNothingChecked);
    return PrintOutcome::NothingChecked;
  }
  ui_.ShowModal("frmPreview");
  return PrintOutcome::Preview;
}

PrintOutcome PrintForm::PrintFile() {
  const std::int32_t report_no = context_.current.report_no;
  const FileReportTarget target = FileReportTargetOf(context_, report_no);
  const bool needs_path = report_no == 93 || report_no == 94 || report_no == 98 || report_no == 99;
  if (needs_path && target.current.empty()) {
    Message(kNoPath);
    return PrintOutcome::Failed;
  }
  auto writer = writer_for ? writer_for(report_no) : nullptr;
  if (!writer) {
    Message(MissingWriterMessage(report_no));
    return PrintOutcome::Failed;
  }
  const auto written = writer->Write(context_, ui_, sprList, target.current);
  if (written.code != 0) {
    Message(written.message);
    return PrintOutcome::Failed;
  }
  try {
    WriteFileLedger(context_.Db(), report_no, sprList, ledger_date());
  } catch (const std::exception& e) {
    Message(e.what());
    return PrintOutcome::Failed;
  }
  Message(std::to_string(sprList.CheckedCount()) + "件出力しました。");
  return PrintOutcome::FileWritten;
}

FileReportTarget PrintForm::cmdPath_Start() const { return FileReportTargetOf(context_, context_.current.report_no); }

void PrintForm::cmdPath_Confirm(std::string_view path) {
  const auto target = cmdPath_Start();
  if (!target.setting.empty()) context_.settings.SaveSetting(0, path, target.setting);
}

}  // namespace lupin::run
