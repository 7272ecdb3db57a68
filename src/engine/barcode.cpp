#include "engine/barcode.h"

#include <zint.h>

#include <memory>

namespace lupin::engine {

BarcodeSymbol EncodeBarcode(std::string_view style, std::string_view data) {
  BarcodeSymbol out;
  if (style != "JapanPost") {
    out.message = "未対応のバーコード種別です: " + std::string(style);
    return out;
  }
  if (data.empty()) {
    out.message = "バーコードのデータがありません";
    return out;
  }
  std::unique_ptr<zint_symbol, decltype(&ZBarcode_Delete)> symbol(ZBarcode_Create(),
                                                                   &ZBarcode_Delete);
  if (!symbol) {
    out.message = "バーコードを作成できません: メモリ不足";
    return out;
  }
  symbol->symbology = BARCODE_JAPANPOST;
  symbol->show_hrt = 0;
  symbol->whitespace_width = 0;
  symbol->whitespace_height = 0;
  symbol->border_width = 0;
  int status = ZBarcode_Encode(symbol.get(), reinterpret_cast<const unsigned char*>(data.data()),
                               static_cast<int>(data.size()));
  if (status >= ZINT_ERROR) {
    out.message = "バーコードを作成できません: " + std::string(symbol->errtxt);
    return out;
  }
  status = ZBarcode_Buffer_Vector(symbol.get(), 0);
  if (status >= ZINT_ERROR || symbol->vector == nullptr) {
    out.message = "バーコードを作成できません: " + std::string(symbol->errtxt);
    return out;
  }
  out.width = symbol->vector->width;
  out.height = symbol->vector->height;
  for (const zint_vector_rect* r = symbol->vector->rectangles; r != nullptr; r = r->next) {
    out.bars.push_back({r->x, r->y, r->width, r->height});
  }
  out.ok = !out.bars.empty();
  if (!out.ok) out.message = "バーコードを作成できません: " + std::string(data);
  return out;
}

}  // namespace lupin::engine
