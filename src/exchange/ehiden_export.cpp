#include "exchange/ehiden_export.h"

#include "exchange/ehiden_layout.h"

namespace lupin::exchange {
namespace {

std::string_view GenerationMark(EhidenGeneration generation) {
  switch (generation) {
    case EhidenGeneration::I: return "";
    case EhidenGeneration::II: return "Ⅱ";
    case EhidenGeneration::III: break;
  }
  return "Ⅲ";
}

}  // namespace

std::string EhidenCsvWriter::NoPathMessage() const {
  return "ｅ飛伝" + std::string(GenerationMark(generation_)) + "データ出力先が設定されていません。";
}

std::string EhidenCsvWriter::NotWrittenMessage() const {
  return "ｅ飛伝" + std::string(GenerationMark(generation_)) + "データファイルに書込みできませんでした。";
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

void EhidenCsvWriter::Begin(entry::Context& context, entry::Ui&, const common::Grid& grid) {
  setup_ = EhidenSetupOf(context, grid, generation_);
  atena_.Clear();
}

// Generation III's header makes the text non-empty, so a selection without lines still replaces the file.
void EhidenCsvWriter::AppendHead(std::string& out) const {
  if (generation_ == EhidenGeneration::III) AppendEhiden3Header(out);
}

RowFailure EhidenCsvWriter::Line(const CheckedOrder& order, db::Connection& db, std::string& out) {
  const EhidenGridCells cells{order.Cell(3), order.Cell(4), order.Cell(11), order.Cell(12)};
  const bool shop_atena = atena_.Of(db, order.Field("ショップID"));
  auto values = ReadEhidenOrder(order.order, cells, shop_atena, setup_);
  if (values.code != 0) return {static_cast<std::int16_t>(values.code), std::move(values.message)};
  AppendEhidenLine(out, values.order, setup_.options, generation_);
  return {};
}

}  // namespace lupin::exchange
