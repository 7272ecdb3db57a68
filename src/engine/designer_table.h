#pragma once
// The designer files as the build embedded them (generated from designers/*.json).
#include <cstddef>
#include <string_view>

namespace lupin::engine {

struct DesignerSource {
  std::string_view file_name;  // "rptPickingSyuDate.json"
  std::string_view text;
};

extern const DesignerSource kDesignerSources[];
extern const std::size_t kDesignerSourceCount;

}  // namespace lupin::engine
