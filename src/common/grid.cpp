#include "common/grid.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

#include <fmt/format.h>

#include "common/vb.h"

namespace lupin::common {

namespace {

const std::string kEmpty;

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

void PutLength(std::string& out, std::uint32_t length) {
  char bytes[4];
  std::memcpy(bytes, &length, sizeof length);
  out.append(bytes, sizeof bytes);
}

std::uint32_t GetLength(std::string_view in) {
  std::uint32_t length = 0;
  std::memcpy(&length, in.data(), sizeof length);
  return length;
}

}  // namespace

// Rows packed as [total length][length, bytes] per cell, appended to one run of bytes whose front
// part lives in the temporary file. A rewritten row is appended again; the old bytes are left.
struct Grid::RowStore {
  static constexpr std::uint64_t kBlank = static_cast<std::uint64_t>(-1);  // a row of empty cells
  static constexpr std::size_t kTailLimit = std::size_t{1} << 20;
  static constexpr std::size_t kUnpackedRows = 8;
  static constexpr std::size_t kReadChunk = 64 * 1024;

  struct Slot {
    int row = 0;
    std::uint64_t used = 0;
    bool dirty = false;
    std::vector<std::string> cells;
  };

  int cols = 0;                        // cells per row: cols + 1
  std::vector<std::uint64_t> offsets;  // row r at offsets[r - 1]
  std::string tail;                    // the bytes from `spilled` on
  std::uint64_t spilled = 0;
  std::unique_ptr<std::FILE, FileCloser> file;
  std::string chunk;  // bytes of the file from chunk_start, for reading rows in order
  std::uint64_t chunk_start = 0;
  std::vector<Slot> slots;
  std::uint64_t clock = 0;

  std::uint64_t Pack(const std::vector<std::string>& cells) {
    const std::uint64_t offset = spilled + tail.size();
    const std::size_t head = tail.size();
    PutLength(tail, 0);
    for (const std::string& cell : cells) {
      PutLength(tail, static_cast<std::uint32_t>(cell.size()));
      tail += cell;
    }
    const auto total = static_cast<std::uint32_t>(tail.size() - head - 4);
    std::memcpy(tail.data() + head, &total, sizeof total);
    if (tail.size() >= kTailLimit) Spill();
    return offset;
  }

  void Spill() {
    if (!file) file.reset(std::tmpfile());
    // Without a temporary file the rows simply stay in memory.
    if (!file || std::fseek(file.get(), 0, SEEK_END) != 0 ||
        std::fwrite(tail.data(), 1, tail.size(), file.get()) != tail.size() || std::fflush(file.get()) != 0) {
      return;
    }
    spilled += tail.size();
    tail.clear();
  }

  // The bytes [offset, offset + length) of the packed run; a row never straddles file and tail.
  std::string_view Bytes(std::uint64_t offset, std::size_t length) {
    if (offset >= spilled) return std::string_view(tail).substr(static_cast<std::size_t>(offset - spilled), length);
    if (offset < chunk_start || offset + length > chunk_start + chunk.size()) {
      chunk.resize(std::max(kReadChunk, length));
      const std::size_t want = static_cast<std::size_t>(std::min<std::uint64_t>(chunk.size(), spilled - offset));
      std::size_t got = 0;
      if (std::fseek(file.get(), static_cast<long>(offset), SEEK_SET) == 0) got = std::fread(chunk.data(), 1, want, file.get());
      chunk.resize(got);
      chunk_start = offset;
      if (got < length) throw std::runtime_error("一覧の一時ファイルを読めません。");
    }
    return std::string_view(chunk).substr(static_cast<std::size_t>(offset - chunk_start), length);
  }

  void Unpack(std::uint64_t offset, std::vector<std::string>& cells) {
    cells.resize(static_cast<std::size_t>(cols) + 1);
    if (offset == kBlank) {
      for (auto& cell : cells) cell.clear();
      return;
    }
    std::string_view body = Bytes(offset + 4, GetLength(Bytes(offset, 4)));
    for (auto& cell : cells) {
      const std::uint32_t length = GetLength(body);
      cell.assign(body.substr(4, length));
      body.remove_prefix(4 + length);
    }
  }

  Slot& Unpacked(int row) {
    for (Slot& slot : slots) {
      if (slot.row == row) {
        slot.used = ++clock;
        return slot;
      }
    }
    Slot* slot = nullptr;
    if (slots.size() < kUnpackedRows) {
      slot = &slots.emplace_back();
    } else {
      slot = &*std::min_element(slots.begin(), slots.end(), [](const Slot& a, const Slot& b) { return a.used < b.used; });
      Store(*slot);
    }
    Unpack(offsets[static_cast<std::size_t>(row - 1)], slot->cells);
    slot->row = row;
    slot->used = ++clock;
    slot->dirty = false;
    return *slot;
  }

  void Store(Slot& slot) {
    if (slot.dirty && slot.row >= 1 && static_cast<std::size_t>(slot.row) <= offsets.size()) {
      offsets[static_cast<std::size_t>(slot.row - 1)] = Pack(slot.cells);
    }
    slot.dirty = false;
  }

  void StoreAll() {
    for (Slot& slot : slots) Store(slot);
  }

  void Reset() {
    offsets.clear();
    tail.clear();
    spilled = 0;
    file.reset();
    chunk.clear();
    chunk_start = 0;
    slots.clear();
  }

  // Every row again with `new_cols` + 1 cells, cut or padded.
  void Reshape(int new_cols) {
    StoreAll();
    RowStore reshaped;
    reshaped.cols = new_cols;
    std::vector<std::string> cells;
    for (const std::uint64_t offset : offsets) {
      if (offset == kBlank) {
        reshaped.offsets.push_back(kBlank);
        continue;
      }
      Unpack(offset, cells);
      cells.resize(static_cast<std::size_t>(new_cols) + 1);
      reshaped.offsets.push_back(reshaped.Pack(cells));
    }
    *this = std::move(reshaped);
  }
};

Grid::Grid() : store_(std::make_unique<RowStore>()) {}

Grid::Grid(int max_rows, int max_cols) : Grid() {
  SetMaxCols(max_cols);
  SetMaxRows(max_rows);
}

Grid::~Grid() = default;

Grid::Grid(const Grid& other)
    : max_rows_(other.max_rows_), max_cols_(other.max_cols_), captions_(other.captions_), hidden_(other.hidden_),
      store_(std::make_unique<RowStore>()), row_(other.row_), col_(other.col_), redraw_(other.redraw_),
      visible_(other.visible_) {
  store_->cols = max_cols_;
  for (int r = 1; r <= max_rows_; ++r) store_->offsets.push_back(store_->Pack(other.store_->Unpacked(r).cells));
}

Grid& Grid::operator=(const Grid& other) {
  if (this != &other) *this = Grid(other);
  return *this;
}

Grid::Grid(Grid&& other) noexcept = default;
Grid& Grid::operator=(Grid&& other) noexcept = default;

bool Grid::Inside(int row, int col) const {
  return row >= 0 && col >= 0 && row <= max_rows_ && col <= max_cols_;
}

void Grid::SetMaxRows(int rows) {
  if (rows < 0) rows = 0;
  if (rows == 0) {
    store_->Reset();
  } else {
    std::erase_if(store_->slots, [&](const RowStore::Slot& slot) { return slot.row > rows; });
    store_->offsets.resize(static_cast<std::size_t>(rows), RowStore::kBlank);
  }
  max_rows_ = rows;
}

void Grid::SetMaxCols(int cols) {
  if (cols < 0) cols = 0;
  if (cols == max_cols_) return;
  store_->Reshape(cols);
  captions_.resize(static_cast<std::size_t>(cols) + 1);
  max_cols_ = cols;
  hidden_.resize(static_cast<std::size_t>(cols + 1), false);
}

int Grid::AddRow() {
  SetMaxRows(max_rows_ + 1);
  return max_rows_;
}

void Grid::Clear() { SetMaxRows(0); }

std::vector<std::string>& Grid::Unpacked(int row) const { return store_->Unpacked(row).cells; }

std::size_t Grid::PackedBytesInMemory() const { return store_->tail.size(); }

const std::string& Grid::Text(int row, int col) const {
  if (!Inside(row, col)) return kEmpty;
  if (row == 0) return captions_[static_cast<std::size_t>(col)];
  return Unpacked(row)[static_cast<std::size_t>(col)];
}

void Grid::SetText(int row, int col, std::string_view text) {
  if (!Inside(row, col)) return;
  if (row == 0) {
    captions_[static_cast<std::size_t>(col)] = std::string(text);
    return;
  }
  auto& slot = store_->Unpacked(row);
  std::string& cell = slot.cells[static_cast<std::size_t>(col)];
  if (cell == text) return;
  cell.assign(text);
  slot.dirty = true;
}

double Grid::Value(int row, int col) const { return vb::Val(Text(row, col)); }

void Grid::SetValue(int row, int col, double value) { SetText(row, col, fmt::format("{}", value)); }

void Grid::SetValue(int row, int col, long long value) { SetText(row, col, fmt::format("{}", value)); }

void Grid::SetValue(int row, int col, bool value) { SetText(row, col, value ? "1" : "0"); }

bool Grid::Checked(int row) const { return row >= 1 && Value(row, 1) != 0; }

void Grid::SetChecked(int row, bool checked) {
  if (row >= 1) SetValue(row, 1, checked);
}

void Grid::CheckAll(bool checked) {
  for (int r = 1; r <= max_rows_; ++r) SetChecked(r, checked);
}

int Grid::CheckedCount() const {
  int count = 0;
  for (int r = 1; r <= max_rows_; ++r) count += Checked(r) ? 1 : 0;
  return count;
}

bool Grid::ColHidden(int col) const {
  return col >= 0 && col <= max_cols_ && hidden_[static_cast<std::size_t>(col)];
}

void Grid::SetColHidden(int col, bool hidden) {
  if (col >= 0 && col <= max_cols_) hidden_[static_cast<std::size_t>(col)] = hidden;
}

}  // namespace lupin::common
