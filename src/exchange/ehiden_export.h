#pragma once
// The Sagawa e-飛伝 exports: the checked orders of the print list as one Shift-JIS CSV file for
// the carrier's shipping software, in three generations (reports 91, 96 and 104).
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "common/grid.h"
#include "db/connection.h"
#include "entry/context.h"
#include "exchange/ehiden_generation.h"
#include "exchange/ehiden_order.h"
#include "exchange/file_writer.h"

namespace lupin::exchange {

// Result codes of an export.
inline constexpr std::int16_t kEhidenDone = 0;
inline constexpr std::int16_t kEhidenNoPath = 1;
inline constexpr std::int16_t kEhidenNotWritten = 2;
inline constexpr std::int16_t kEhidenNameMissing = 3;
inline constexpr std::int16_t kEhidenAddressOrTelMissing = 5;
// A failing statement of the data layer; its description is the failure text.
inline constexpr std::int16_t kEhidenDataError = 440;

// The file's text before conversion to Shift-JIS, or the code and message of the row that ended
// the export.
struct EhidenText {
  std::int16_t code = kEhidenDone;
  std::string message;
  std::string text;  // UTF-8
};

// Reads every checked row of the grid and its order: the header (generation III) and one line per
// order that still exists. Throws db::DbError from the data layer.
EhidenText BuildEhidenText(db::Connection& db, const common::Grid& grid, const EhidenSetup& setup);

// What an export needs besides the grid, from the context: the report's free texts, the option
// file (generations II and III), hinmei.txt's line and the name column's caption.
EhidenSetup EhidenSetupOf(const entry::Context& context, const common::Grid& grid, EhidenGeneration generation);

// One generation's export. Write builds the whole file in memory and replaces `path` atomically,
// so a failed export leaves an earlier file as it was.
class EhidenCsvWriter : public FileWriter {
 public:
  explicit EhidenCsvWriter(EhidenGeneration generation) : generation_(generation) {}

  FileResult Write(entry::Context& context, const common::Grid& grid, const std::filesystem::path& path) override;
  // The export entry: the result code, with ErrorText() holding the message.
  std::int16_t Export(entry::Context& context, const common::Grid& grid, const std::filesystem::path& path);
  // The message of the last export. Only meaningful for a non-zero code: a successful write leaves
  // the write-failure text in place.
  const std::string& ErrorText() const { return error_text_; }
  EhidenGeneration Generation() const { return generation_; }

 private:
  std::int16_t Fail(std::int16_t code, std::string message);

  EhidenGeneration generation_;
  std::string error_text_;
};

class modEhidenCsv final : public EhidenCsvWriter {
 public:
  modEhidenCsv() : EhidenCsvWriter(EhidenGeneration::I) {}
};

class modEhiden2Csv final : public EhidenCsvWriter {
 public:
  modEhiden2Csv() : EhidenCsvWriter(EhidenGeneration::II) {}
};

class modEhiden3Csv final : public EhidenCsvWriter {
 public:
  modEhiden3Csv() : EhidenCsvWriter(EhidenGeneration::III) {}
};

// The writer of report 91, 96 or 104; null for any other number.
std::unique_ptr<FileWriter> EhidenWriterFor(std::int32_t report_no);

}  // namespace lupin::exchange
