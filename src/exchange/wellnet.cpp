#include "exchange/wellnet.h"

#include <algorithm>
#include <exception>
#include <fstream>
#include <iterator>

#include "common/files.h"
#include "common/text.h"
#include "common/vb.h"
#include "exchange/csv_line.h"
#include "exchange/field_text.h"
#include "money/payment_limit.h"

namespace lupin::exchange {
namespace {

constexpr std::string_view kHead =
    "\"顧客コード\",\"郵便番号\",\"住所\",\"氏名\",\"支払期限\",\"金額\",\"識別ID\",\"通信欄\",\"備考欄\"";

std::string PaymentLimitText(std::string_view bill_date, int days) {
  const auto limit = money::PaymentLimit(bill_date, days);
  return limit ? vb::FormatDate(*limit, "yyyymmdd") : std::string();
}

std::int32_t LongOf(std::string_view text) { return vb::CLng(vb::Val(text)); }

}  // namespace

std::vector<std::string> SplitWellNetLine(std::string_view line) {
  std::vector<std::string> fields(1);
  const bool quote_aware = std::count(line.begin(), line.end(), '"') >= 2;
  bool inside = false;
  for (const char c : line) {
    if (quote_aware && c == '"') {
      inside = !inside;
    } else if (c == ',' && !inside) {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

int clsWellNet::OutputFile() {
  if (fileName.empty()) {
    ErrorMsg = "出力先が設定されていません。";
    return 1;
  }
  try {
    std::string text(kHead);
    text += "\r\n";
    for (const std::int64_t order : id) {
      auto rs = Database->Open(
          "SELECT [ID],[郵便番号],[住所],[氏名],[出荷日],[請求額],[請求日],[請求先会社名],[請求先氏名],[請求先郵便番号],[請求先住所] "
          "FROM [CHUMON] "
          "WHERE [ID] = " + std::to_string(order));
      if (rs.Eof()) continue;
      const std::string company = rs["請求先会社名"].Text();
      CsvLine(text)
          .Add(vb::Format(rs["ID"].Number(), "0000000000"))
          .Add(vb::Format(vb::Val(RemoveAll(rs["請求先郵便番号"].Text(), "-")), "0000000000"))
          .Add(text::CharLeft(ReplaceCrLf(rs["請求先住所"].Text(), ""), 60))
          .Add(text::CharLeft(company.empty() ? rs["請求先氏名"].Text() : company, 30))
          .Add(PaymentLimitText(rs["請求日"].Text(), KigenDays))
          .Add(vb::Format(rs["請求額"].Number(), "0"))
          .Empty(3)
          .End();
    }
    if (!files::ReplaceFileAtomically(fileName, text::ToCp932(text).bytes, &ErrorMsg)) return 2;
    return 0;
  } catch (const std::exception& e) {
    ErrorMsg = e.what();
    return 440;
  }
}

void clsWellNet::ReadReceipts(std::string_view content) {
  rows_.clear();
  skipped_.clear();
  int line_no = 0;
  while (!content.empty()) {
    const std::size_t end = content.find_first_of("\r\n");
    const std::string_view line = content.substr(0, end);
    content = end == std::string_view::npos ? std::string_view() : content.substr(end);
    if (content.starts_with("\r\n")) content.remove_prefix(2);
    else if (!content.empty()) content.remove_prefix(1);
    ++line_no;
    if (line_no == 1 && line.find("顧客") != std::string_view::npos) continue;
    const auto f = SplitWellNetLine(line);
    const auto at = [&](std::size_t k) { return k < f.size() ? f[k] : std::string(); };
    clsWellNetInputRow row{at(1), at(2), at(3), at(4), LongOf(at(5)), LongOf(at(6)), LongOf(at(7)),
                           LongOf(at(8)), LongOf(at(9)), at(10)};
    if (f.size() >= 9 && row.NyuYmd != 0) {
      rows_.push_back(std::move(row));
      continue;
    }
    WellNetSkippedLine skipped{line_no, std::to_string(line_no) + "件目に" + "収納日が格納されていません。" + "\r\n" +
                                            "スキップします。"};
    if (DisplayMsg && ui != nullptr) ui->MessageBox(skipped.message, "取込エラー", entry::kExclamation);
    skipped_.push_back(std::move(skipped));
  }
}

int clsWellNet::InputFile() {
  std::ifstream in(fileName, std::ios::binary);
  if (!in) {
    ErrorMsg = "ファイル '" + fileName.string() + "' を開けません。";
    return 1;
  }
  const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  ReadReceipts(text::FromCp932(bytes));
  return 0;
}

FileResult WellNetWriter::Write(entry::Context& context, entry::Ui& ui, const common::Grid& grid,
                                const std::filesystem::path& path) {
  clsWellNet wellnet;
  try {
    wellnet.Database = &context.Db();
  } catch (const std::exception& e) {
    return {440, e.what()};
  }
  wellnet.fileName = path;
  wellnet.KigenDays = money::WellNetKigenDays(context.settings);
  wellnet.ui = &ui;
  for (int row = 1; row <= grid.MaxRows(); ++row)
    if (grid.Text(row, 1) == "1") wellnet.id.push_back(static_cast<std::int64_t>(vb::Val(grid.Text(row, 2))));
  const int code = wellnet.OutputFile();
  return {code, code == 0 ? std::string() : wellnet.ErrorMsg};
}

}  // namespace lupin::exchange
