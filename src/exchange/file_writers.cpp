// The writers by the catalogue's object name, as the print run finds them.
#include <functional>
#include <utility>

#include "exchange/ab_export.h"
#include "exchange/amazon_export.h"
#include "exchange/ehiden_export.h"
#include "exchange/file_writer.h"
#include "exchange/icats_export.h"
#include "exchange/np_export.h"
#include "exchange/wellnet.h"
#include "exchange/yupack_export.h"

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
    {"modICatsCsv", Make<modICatsCsv>},
    {"modICatsCsvV6", Make<modICatsCsvV6>},
    {"modYupack", Make<modYupack>},
    {"modYupackV4", Make<modYupackV4>},
    {"modYupackR", Make<modYupackR>},
    {"clsNPUriage", Make<NPUriageExport>},
    {"clsNPSyukka", Make<NPSyukkaExport>},
    {"clsABUriage", Make<ABUriageExport>},
    {"clsABSyukka", Make<ABSyukkaExport>},
    {"clsWellNet", Make<WellNetWriter>},
    {"modAmazonSyukka", Make<modAmazonSyukka>},
};

}  // namespace

std::unique_ptr<FileWriter> MakeFileWriter(std::string_view object_name) {
  for (const auto& [name, make] : kWriters)
    if (name == object_name) return make();
  return nullptr;
}

}  // namespace lupin::exchange
