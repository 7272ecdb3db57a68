#include "catalogue/catalogue_listing.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>

#include "catalogue/whole_number.h"
#include "common/text.h"

namespace lupin::catalogue {
namespace {

constexpr std::size_t kColumns = 7;

std::array<std::string, kColumns> Cells(const CatalogueRow& row) {
  const entry::CatalogueEntry& entry = entry::CatalogueOf(row.report_no);
  return {std::to_string(row.report_no), row.report_name, row.enabled ? "有効" : "無効", std::to_string(row.ord),
          std::string(OutputKindText(entry.output)), std::string(entry.object), std::string(CarrierText(entry.carrier))};
}

// Terminal columns of a text: CP932 bytes, where a full-width character takes two and a
// half-width one (katakana included) takes one.
int DisplayWidth(std::string_view text) { return text::ByteLen(text); }

void AppendPadded(std::string& out, const std::string& cell, int width, bool right) {
  const std::string padding(static_cast<std::size_t>(std::max(0, width - DisplayWidth(cell))), ' ');
  if (right) out += padding;
  out += cell;
  if (!right) out += padding;
}

}  // namespace

std::vector<CatalogueRow> ReadCatalogueRows(db::Connection& connection) {
  std::vector<CatalogueRow> rows;
  db::Recordset rs = connection.Open(
      "SELECT [REPORT_NO], [REPORT_NAME], [ENABLED], [ORD] FROM [REPORT] ORDER BY [ORD], [REPORT_NO]");
  for (; !rs.Eof(); rs.MoveNext()) {
    CatalogueRow row;
    row.report_no = WholeNumber<std::int32_t>(rs["REPORT_NO"].Number()).value_or(0);
    row.report_name = rs["REPORT_NAME"].Text();
    row.enabled = rs["ENABLED"].Number() != 0;
    row.ord = WholeNumber<std::int32_t>(rs["ORD"].Number()).value_or(0);
    rows.push_back(std::move(row));
  }
  rs.Close();
  return rows;
}

std::string_view OutputKindText(entry::OutputKind kind) {
  switch (kind) {
    case entry::OutputKind::Report: return "帳票";
    case entry::OutputKind::File: return "ファイル";
    case entry::OutputKind::None: break;
  }
  return "なし";
}

std::string_view CarrierText(entry::Carrier carrier) {
  switch (carrier) {
    case entry::Carrier::Yamato: return "ヤマト";
    case entry::Carrier::Sagawa: return "佐川";
    case entry::Carrier::NipponExpress: return "日通";
    case entry::Carrier::YuPack: return "ゆうパック";
    case entry::Carrier::Fukuyama: return "福山";
    case entry::Carrier::Seino: return "西濃";
    case entry::Carrier::None: break;
  }
  return "";
}

std::string FormatCatalogueTable(const std::vector<CatalogueRow>& rows) {
  static const std::array<std::string, kColumns> kCaptions{"番号", "帳票名", "状態", "順序", "出力", "オブジェクト",
                                                           "運送会社"};
  // Numbers line up on the right, texts on the left.
  static constexpr std::array<bool, kColumns> kRight{true, false, false, true, false, false, false};

  std::vector<std::array<std::string, kColumns>> table;
  table.reserve(rows.size() + 1);
  table.push_back(kCaptions);
  for (const CatalogueRow& row : rows) table.push_back(Cells(row));

  std::array<int, kColumns> widths{};
  for (const auto& line : table)
    for (std::size_t c = 0; c < kColumns; ++c) widths[c] = std::max(widths[c], DisplayWidth(line[c]));

  std::string out;
  for (const auto& line : table) {
    std::string text;
    for (std::size_t c = 0; c < kColumns; ++c) {
      if (c > 0) text += "  ";
      AppendPadded(text, line[c], widths[c], kRight[c]);
    }
    text.erase(text.find_last_not_of(' ') + 1);
    out += text;
    out += '\n';
  }
  return out;
}

std::string FormatCatalogueJson(const std::vector<CatalogueRow>& rows) {
  nlohmann::json list = nlohmann::json::array();
  for (const CatalogueRow& row : rows) {
    const entry::CatalogueEntry& entry = entry::CatalogueOf(row.report_no);
    list.push_back({{"REPORT_NO", row.report_no},
                    {"REPORT_NAME", row.report_name},
                    {"ENABLED", row.enabled},
                    {"ORD", row.ord},
                    {"output", OutputKindText(entry.output)},
                    {"object", entry.object},
                    {"carrier", CarrierText(entry.carrier)}});
  }
  return list.dump(2) + "\n";
}

}  // namespace lupin::catalogue
