#include "session/data/RowStore.h"

#include <algorithm>
#include <utility>

#include "session/data/ColumnIndex.h"
#include "session/data/Error.h"
#include "session/data/FilterCache.h"
#include "session/data/RowView.h"

namespace pstolvane1 {

namespace {

// A fabricated rowset is often small: its first chunk begins so and grows to a whole one.
constexpr std::size_t kFirstRoom = 64;

constexpr std::uint32_t kMostRows = std::numeric_limits<std::uint32_t>::max() - 1;

}  // namespace

std::span<const std::uint32_t> ChapterRows::Of(std::uint32_t parent_row) const {
  std::size_t group = parent_row;
  if (!group_of_row.empty()) {
    group = parent_row < group_of_row.size() ? group_of_row[parent_row] : kNoGroup;
  }
  if (group + 1 >= starts.size()) return {};
  return std::span(rows).subspan(starts[group], starts[group + 1] - starts[group]);
}

std::size_t ChapterRows::Bytes() const {
  return (group_of_row.capacity() + starts.capacity() + rows.capacity()) * sizeof(std::uint32_t);
}

RowStore::RowStore(std::vector<ColumnInfo> columns, Kind kind)
    : kind_(kind),
      columns_(std::move(columns)),
      names_(columns_),
      chapters_(columns_.size()),
      optimized_(columns_.size()),
      indexes_(columns_.size()),
      filters_(std::make_unique<FilterCache>()) {
  const auto none = std::make_shared<const ChapterRows>();
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    if (columns_[column].type == adChapter) chapters_[column] = none;
  }
}

RowStore::~RowStore() = default;

void RowStore::SetChapters(int column, std::shared_ptr<const ChapterRows> chapters) {
  chapters_[static_cast<std::size_t>(column)] = std::move(chapters);
}

const std::shared_ptr<const ChapterRows>& RowStore::Chapters(int column) const {
  return chapters_[static_cast<std::size_t>(column)];
}

void RowStore::Append(Chunk chunk) {
  if (!chunks_.empty() && !chunks_.back()->Full()) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                "rows cannot be appended behind a chunk that is not full");
  }
  if (chunks_.size() > 1 && chunks_.back()->Capacity() != Chunk::kRows) {
    throw Error(ErrorNumber::kArgumentOutOfRange,
                "a chunk that is neither the first nor the last does not have " +
                    std::to_string(Chunk::kRows) + " rows");
  }
  if (chunk.RowCount() > kMostRows - rows_) {
    throw Error(ErrorNumber::kOverflow, "a rowset holds at most 4294967294 rows");
  }
  if (chunk.RowCount() == 0) return;
  const std::uint32_t first = rows_;
  const auto count = static_cast<std::uint32_t>(chunk.RowCount());
  if (chunks_.size() == 1) first_rows_ = rows_;
  chunks_.push_back(std::make_unique<Chunk>(std::move(chunk)));
  rows_ += count;
  DropIndexes();
  for (RowView* view : views_) view->OnAppended(first, first + count);
}

std::vector<Chunk> RowStore::TakeChunks() {
  std::vector<Chunk> taken;
  taken.reserve(chunks_.size());
  for (const auto& chunk : chunks_) taken.push_back(std::move(*chunk));
  chunks_.clear();
  first_rows_ = std::numeric_limits<std::size_t>::max();
  rows_ = 0;
  DropIndexes();
  return taken;
}

std::uint32_t RowStore::FirstRowOf(std::size_t chunk) const {
  if (chunk == 0) return 0;
  return static_cast<std::uint32_t>(first_rows_ + (chunk - 1) * Chunk::kRows);
}

std::uint32_t RowStore::AddRow() {
  if (rows_ == kMostRows) {
    throw Error(ErrorNumber::kOverflow, "a rowset holds at most 4294967294 rows");
  }
  if (chunks_.empty()) {
    chunks_.push_back(std::make_unique<Chunk>(columns_, kFirstRoom));
  } else if (chunks_.back()->Full()) {
    if (chunks_.back()->Capacity() < Chunk::kRows && chunks_.size() == 1) {
      chunks_.back()->Reserve(std::min(chunks_.back()->Capacity() * 2, Chunk::kRows));
    } else {
      chunks_.push_back(std::make_unique<Chunk>(columns_));
      first_rows_ = chunks_.front()->Capacity();
    }
  }
  Hide(rows_);
  chunks_.back()->AddRow();
  return rows_++;
}

void RowStore::Hide(std::uint32_t row) {
  if (hidden_.size() <= (row >> 6)) hidden_.resize((row >> 6) + std::size_t{1}, 0);
  hidden_[row >> 6] |= std::uint64_t{1} << (row & 63);
  ++hidden_count_;
}

void RowStore::Show(std::uint32_t row) {
  hidden_[row >> 6] &= ~(std::uint64_t{1} << (row & 63));
  --hidden_count_;
  for (RowView* view : views_) view->OnShown(row);
  for (const auto& index : indexes_) {
    if (index) index->Add(row);
  }
}

void RowStore::Delete(std::uint32_t row) {
  Hide(row);
  for (RowView* view : views_) view->OnDeleted(row);
}

void RowStore::Changed(std::uint32_t row, const std::vector<bool>& changed) {
  for (RowView* view : views_) view->OnChanged(row, changed);
}

void RowStore::Optimize(int column, bool on) {
  optimized_[static_cast<std::size_t>(column)] = on && Column(column).type != adChapter;
  if (!on) indexes_[static_cast<std::size_t>(column)].reset();
}

std::shared_ptr<const ColumnIndex> RowStore::Index(int column) {
  if (!Optimized(column)) return nullptr;
  std::shared_ptr<ColumnIndex>& index = indexes_[static_cast<std::size_t>(column)];
  if (!index) index = std::make_shared<ColumnIndex>(*this, column);
  return index;
}

void RowStore::DropIndexes() {
  for (auto& index : indexes_) index.reset();
}

void RowStore::Attach(RowView& view) { views_.push_back(&view); }

void RowStore::Detach(RowView& view) noexcept {
  // The newest goes first as a rule.
  const auto found = std::find(views_.rbegin(), views_.rend(), &view);
  if (found != views_.rend()) views_.erase(std::next(found).base());
}

std::size_t RowStore::Bytes() const {
  std::size_t bytes = hidden_.capacity() * sizeof(std::uint64_t);
  for (const auto& chunk : chunks_) bytes += chunk->Bytes();
  for (const auto& index : indexes_) bytes += index ? index->Bytes() : 0;
  for (const auto& chapters : chapters_) bytes += chapters ? chapters->Bytes() : 0;
  return bytes;
}

}  // namespace pstolvane1
