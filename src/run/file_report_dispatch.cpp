#include "run/file_report_dispatch.h"

#include "entry/catalogue.h"

namespace lupin::run {

FileReportTarget FileReportTargetOf(const entry::Context& context, std::int32_t report_no) {
  FileReportTarget target;
  const auto beside = [&](const char* file) { return (context.home / file).string(); };
  switch (report_no) {
    case 90: target.setting = "ICatsPath"; target.default_path = "C:\\Program Files\\YTC\\I-CATS\\user\\INPUT"; break;
    case 97: target.setting = "ICatsPath"; target.default_path = "C:\\B2SE\\INPUT"; break;
    case 91: case 96: case 104: target.setting = "EHidenPath"; target.default_path = beside("ehiden_s.csv"); break;
    case 92: target.setting = "WellNetPath"; target.default_path = beside("wellnet.csv"); break;
    case 93: target.setting = "NPUriagePath"; target.default_path = beside("npuriage.csv"); break;
    case 94: target.setting = "NPSyukkaPath"; target.default_path = beside("npsyukka.csv"); break;
    case 89: case 95: case 102: target.setting = "YupackPath"; target.default_path = beside("yupack.csv"); break;
    case 98: target.setting = "ABUriagePath"; target.default_path = beside("aburiage.csv"); break;
    case 99: target.setting = "ABSyukkaPath"; target.default_path = beside("absyukka.csv"); break;
    case 101: target.setting = "AmazonSyukkaPath"; target.default_path = beside("ShippingConfirm.txt"); break;
    default: return target;
  }
  target.filter = report_no == 101 ? "ﾃｷｽﾄﾌｧｲﾙ (*.txt)|*.txt|全て (*.*)|*.*" : "CSVﾌｧｲﾙ (*.csv)|*.csv|全て (*.*)|*.*";
  target.current = context.settings.GetSetting(0, "", target.setting);
  return target;
}

std::unique_ptr<exchange::FileWriter> FileWriterFor(std::int32_t report_no) {
  const auto& entry = entry::CatalogueOf(report_no);
  if (entry.output != entry::OutputKind::File) return nullptr;
  return exchange::MakeFileWriter(entry.object);
}

std::string MissingWriterMessage(std::int32_t report_no) {
  return "帳票番号 " + std::to_string(report_no) + " のファイル出力は、このバージョンではまだ使用できません。";
}

}  // namespace lupin::run
