#pragma once
// The three generations of the Sagawa e-飛伝 file, one report each.
#include <cstdint>
#include <optional>

namespace lupin::exchange {

enum class EhidenGeneration { I = 1, II = 2, III = 3 };

// Report 91 is e-飛伝, 96 e-飛伝Ⅱ, 104 e-飛伝Ⅲ.
std::optional<EhidenGeneration> EhidenGenerationOf(std::int32_t report_no);

}  // namespace lupin::exchange
