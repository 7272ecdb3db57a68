#include "exchange/ehiden_generation.h"

namespace lupin::exchange {

std::optional<EhidenGeneration> EhidenGenerationOf(std::int32_t report_no) {
  switch (report_no) {
    case 91: return EhidenGeneration::I;
    case 96: return EhidenGeneration::II;
    case 104: return EhidenGeneration::III;
    default: return std::nullopt;
  }
}

}  // namespace lupin::exchange
