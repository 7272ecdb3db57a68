#include "exchange/ehiden_export.h"

#include <map>

#include "common/files.h"
#include "common/sql.h"
#include "common/text.h"
#include "exchange/ehiden_layout.h"
#include "exchange/ehiden_order_fetch.h"

namespace lupin::exchange {
namespace {

std::string_view NoPathMessage(EhidenGeneration generation) {
  switch (generation) {
    case EhidenGeneration::I: return "ｅ飛伝データ出力先が設定されていません。";
    case EhidenGeneration::II: return "ｅ飛伝Ⅱデータ出力先が設定されていません。";
    case EhidenGeneration::III: break;
  }
  return "ｅ飛伝Ⅲデータ出力先が設定されていません。";
}

std::string_view NotWrittenMessage(EhidenGeneration generation) {
  switch (generation) {
    case EhidenGeneration::I: return "ｅ飛伝データファイルに書込みできませんでした。";
    case EhidenGeneration::II: return "ｅ飛伝Ⅱデータファイルに書込みできませんでした。";
    case EhidenGeneration::III: break;
  }
  return "ｅ飛伝Ⅲデータファイルに書込みできませんでした。";
}

// The shop's ATENA flag keeps the shop as the sender of a gift. A shop is asked once per export.
class AtenaFlags {
 public:
  explicit AtenaFlags(db::Connection& db) : db_(db) {}
  bool Of(const std::string& shop_id) {
    const auto known = flags_.find(shop_id);
    if (known != flags_.end()) return known->second;
    auto rs = db_.Open("SELECT [ATENA] FROM [SHOP] WHERE [SHOP_ID] = '" + sql::SqlQuote(shop_id) + "'");
    const bool atena = !rs.Eof() && rs["Atena"].Number() != 0;
    flags_.emplace(shop_id, atena);
    return atena;
  }

 private:
  db::Connection& db_;
  std::map<std::string, bool, std::less<>> flags_;
};

}  // namespace

EhidenText BuildEhidenText(db::Connection& db, const common::Grid& grid, const EhidenSetup& setup) {
  EhidenText result;
  if (setup.generation == EhidenGeneration::III) AppendEhiden3Header(result.text);
  AtenaFlags atena(db);
  EhidenOrderFetch orders(db, grid);
  for (int row = 1; row <= grid.MaxRows(); ++row) {
    if (grid.Text(row, 1) != "1") continue;
    const std::string& id = grid.Text(row, 2);
    const db::Recordset* order = orders.Order(row);
    if (order == nullptr) continue;
    const EhidenGridCells cells{grid.Text(row, 3), grid.Text(row, 4), grid.Text(row, 11), grid.Text(row, 12)};
    const bool shop_atena = atena.Of((*order)["ショップID"].Text());
    auto values = ReadEhidenOrder(*order, cells, shop_atena, setup);
    if (values.code != 0) {
      result.code = static_cast<std::int16_t>(values.code);
      result.message = "ID : " + id + " の" + values.message;
      result.text.clear();
      return result;
    }
    AppendEhidenLine(result.text, values.order, setup.options, setup.generation);
  }
  return result;
}

EhidenSetup EhidenSetupOf(const entry::Context& context, const common::Grid& grid, EhidenGeneration generation) {
  EhidenSetup setup;
  setup.generation = generation;
  setup.sender = EhidenSenderTexts::From(context.current.fld_txt);
  if (generation != EhidenGeneration::I) setup.options = ReadEhidenOptions(context.home / "ehiden2_option.txt");
  setup.item_name = context.default_item_name;
  setup.name_caption = grid.Caption(4);
  return setup;
}

std::int16_t EhidenCsvWriter::Fail(std::int16_t code, std::string message) {
  error_text_ = std::move(message);
  return code;
}

std::int16_t EhidenCsvWriter::Export(entry::Context& context, const common::Grid& grid,
                                     const std::filesystem::path& path) {
  if (path.empty()) return Fail(kEhidenNoPath, std::string(NoPathMessage(generation_)));
  try {
    const EhidenSetup setup = EhidenSetupOf(context, grid, generation_);
    const EhidenText built = BuildEhidenText(context.Db(), grid, setup);
    if (built.code != kEhidenDone) return Fail(built.code, built.message);
    // With nothing to write an earlier file stays; generation III always has its header.
    if (built.text.empty()) return kEhidenDone;
    error_text_ = NotWrittenMessage(generation_);
    if (!files::ReplaceFileAtomically(path, text::ToCp932(built.text).bytes)) return kEhidenNotWritten;
    return kEhidenDone;
  } catch (const db::DbError& e) {
    return Fail(kEhidenDataError, e.what());
  }
}

FileResult EhidenCsvWriter::Write(entry::Context& context, const common::Grid& grid,
                                  const std::filesystem::path& path) {
  const std::int16_t code = Export(context, grid, path);
  return {code, code == kEhidenDone ? std::string() : error_text_};
}

std::unique_ptr<FileWriter> EhidenWriterFor(std::int32_t report_no) {
  const auto generation = EhidenGenerationOf(report_no);
  if (!generation) return nullptr;
  switch (*generation) {
    case EhidenGeneration::I: return std::make_unique<modEhidenCsv>();
    case EhidenGeneration::II: return std::make_unique<modEhiden2Csv>();
    case EhidenGeneration::III: break;
  }
  return std::make_unique<modEhiden3Csv>();
}

}  // namespace lupin::exchange
