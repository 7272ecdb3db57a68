// Where the outside systems publish their layouts: which of our fields fit them. The B2 layout's
// column count and byte limits are checked against every line of the pinned B2 files (the column
// counts of every other file are checked by csv_columns.py).
#include <gtest/gtest.h>

#include <map>
#include <vector>

#include "common/text.h"
#include "exchange_fixture.h"

namespace lupin::exchange {
namespace {

using namespace lupin::exchange::testing;

// Splits a line of always-quoted fields (no value holds a quote: the writers turn them full-width).
std::vector<std::string> QuotedFields(const std::string& line) {
  std::vector<std::string> fields;
  std::size_t at = 0;
  while (at < line.size()) {
    const std::size_t end = line.find('"', at + 1);
    fields.push_back(line.substr(at + 1, end - at - 1));
    at = end + 2;
  }
  return fields;
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t from = 0, end; (end = text.find("\r\n", from)) != std::string::npos; from = end + 2)
    lines.push_back(text.substr(from, end - from));
  return lines;
}

// The B2 layout's byte limits of the fields this system fills. The first seven (customer control
// number 20, slip kind and cool class 1, waybill number 12, the two dates 10, time band 4) are as the
// carrier's published layout gives them.
const std::map<int, int> kB2Limits = {
    {1, 20},  {2, 1},   {3, 1},   {4, 12},  {5, 10},  {6, 10},  {7, 4},   {9, 15},  {11, 8},  {12, 64},
    {13, 32}, {14, 50},
    {15, 50}, {16, 32}, {18, 4},  {20, 15}, {22, 8},  {23, 64}, {24, 32}, {25, 32}, {27, 30}, {28, 50},
    {29, 30}, {30, 50}, {33, 32}, {34, 7},  {35, 7},  {36, 1},  {38, 2},  {39, 1},  {40, 12}, {41, 3},
    {42, 2},  {43, 1},  {45, 23}, {48, 1},  {52, 1},  {53, 1},
};

TEST(PublishedLayouts, B2LinesHaveTheColumnsAndFitTheByteLimits) {
  for (const char* file : {"b2/b2_a.csv", "b2/b2_b.csv"}) {
    const std::string text = ReadBytes(std::filesystem::path(LUPIN_GOLDEN_DIR) / file);
    ASSERT_FALSE(text.empty()) << file;
    for (const std::string& line : Lines(text)) {
      const auto fields = QuotedFields(line);
      ASSERT_EQ(fields.size(), 71u) << file;
      for (const auto& [no, limit] : kB2Limits) {
        // Our amounts come from the print list as it shows them, so "1,100" counts its comma.
        EXPECT_LE(static_cast<int>(fields[static_cast<std::size_t>(no - 1)].size()), limit)
            << file << " field " << no << ": " << text::FromCp932(fields[static_cast<std::size_t>(no - 1)]);
      }
    }
  }
}

}  // namespace
}  // namespace lupin::exchange
