#include "exchange/wellnet_report.h"

#include <nlohmann/json.hpp>

#include "exchange/field_text.h"

namespace lupin::exchange {

std::string FormatWellNetReceipts(const clsWellNet& wellnet, bool json) {
  if (json) {
    nlohmann::ordered_json out;
    out["rows"] = nlohmann::ordered_json::array();
    for (int i = 1; i <= wellnet.InputRowCount(); ++i) {
      const auto& r = wellnet.InputRow(i);
      out["rows"].push_back({{"id", r.id}, {"yubin", r.Yubin}, {"jusyo", r.Jusyo}, {"simei", r.Simei},
                             {"kigen", r.Kigen}, {"gaku", r.Gaku}, {"nyu_ymd", r.NyuYmd}, {"nyu_time", r.NyuTime},
                             {"syori_ymd", r.SyoriYmd}, {"kbn", r.Kbn}});
    }
    out["skipped"] = nlohmann::ordered_json::array();
    for (const auto& s : wellnet.SkippedLines())
      out["skipped"].push_back({{"line", s.line}, {"message", ReplaceCrLf(s.message, "")}});
    return out.dump(1) + "\n";
  }
  std::string out = "顧客コード\t郵便番号\t住所\t氏名\t支払期限\t金額\t収納日\t収納時刻\t処理日\t区分\n";
  for (int i = 1; i <= wellnet.InputRowCount(); ++i) {
    const auto& r = wellnet.InputRow(i);
    for (const std::string& cell :
         {r.id, r.Yubin, r.Jusyo, r.Simei, std::to_string(r.Kigen), std::to_string(r.Gaku), std::to_string(r.NyuYmd),
          std::to_string(r.NyuTime), std::to_string(r.SyoriYmd)})
      out += cell + "\t";
    out += r.Kbn + "\n";
  }
  for (const auto& s : wellnet.SkippedLines()) out += "取込エラー: " + ReplaceCrLf(s.message, " ") + "\n";
  out += "取込 " + std::to_string(wellnet.InputRowCount()) + " 件、スキップ " +
         std::to_string(wellnet.SkippedLines().size()) + " 件\n";
  return out;
}

}  // namespace lupin::exchange
