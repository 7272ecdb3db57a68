// The writers by the catalogue's object name, as the print run finds them.
#include <functional>
#include <utility>

#include "exchange/ehiden_export.h"
#include "exchange/file_writer.h"

namespace lupin::exchange {
namespace {

template <typename Writer>
std::unique_ptr<FileWriter> Make() {
  return std::make_unique<Writer>();
}

using Factory = std::unique_ptr<FileWriter> (*)();

constexpr std::pair<std::string_view, Factory> kWriters[] = {
    {"modEhidenCsv", Make<modEhidenCsv>},
    {"modEhiden2Csv", Make<modEhiden2Csv>},
    {"modEhiden3Csv", Make<modEhiden3Csv>},
};

}  // namespace

std::unique_ptr<FileWriter> MakeFileWriter(std::string_view object_name) {
  for (const auto& [name, make] : kWriters)
    if (name == object_name) return make();
  return nullptr;
}

}  // namespace lupin::exchange
