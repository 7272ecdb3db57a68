#pragma once
// The three generations of the Sagawa e-飛伝 file, one report each.

namespace lupin::exchange {

// Report 91 is e-飛伝 (modEhidenCsv), 96 e-飛伝Ⅱ, 104 e-飛伝Ⅲ.
enum class EhidenGeneration { I = 1, II = 2, III = 3 };

}  // namespace lupin::exchange
