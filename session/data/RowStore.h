// The rows that a rowset, its clones and its chapters share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "session/data/Chunk.h"
#include "session/data/ColumnNames.h"

namespace pstolvane1 {

class ColumnIndex;
class FilterCache;
class RowStore;
class RowView;

// The child rows of a chapter column, for every parent row. Made once by the joiner, then
// unchanged.
struct ChapterRows {
  static constexpr std::uint32_t kNoGroup = std::numeric_limits<std::uint32_t>::max();

  std::shared_ptr<RowStore> child;
  // Per parent row the group of its children, kNoGroup where it has none; a parent row beyond the
  // end has none. Empty when row n has group n.
  std::vector<std::uint32_t> group_of_row;
  // The children of group g are rows[starts[g]] to rows[starts[g + 1] - 1], in ascending order.
  std::vector<std::uint32_t> starts;
  std::vector<std::uint32_t> rows;

  [[nodiscard]] std::span<const std::uint32_t> Of(std::uint32_t parent_row) const;
  [[nodiscard]] std::size_t Bytes() const;
};

// Rows are numbered from 0 in the order in which they are added and keep their numbers: a bookmark
// is a row number. A deleted row, and one that is added but not yet updated, is hidden. Used by one
// thread at a time; a source that fetches in the background fills chunks of its own and hands them
// over whole.
class RowStore {
 public:
  // A fabricated store can be written through its rowsets, one of a query cannot.
  enum class Kind { kFabricated, kQuery };

  RowStore(std::vector<ColumnInfo> columns, Kind kind);
  ~RowStore();
  RowStore(const RowStore&) = delete;
  RowStore& operator=(const RowStore&) = delete;

  [[nodiscard]] const std::vector<ColumnInfo>& Columns() const { return columns_; }
  [[nodiscard]] const ColumnInfo& Column(int column) const {
    return columns_[static_cast<std::size_t>(column)];
  }
  [[nodiscard]] int FindColumn(std::string_view name) const { return names_.Find(name); }  // or -1
  [[nodiscard]] Kind KindOf() const { return kind_; }

  // The chapters of a column of type adChapter; empty ones until they are set, which may be while
  // rows are still being appended.
  void SetChapters(int column, std::shared_ptr<const ChapterRows> chapters);
  [[nodiscard]] const std::shared_ptr<const ChapterRows>& Chapters(int column) const;

  // Takes over rows that a source has filled, and tells the rowsets on the store: rows appear
  // behind the others, and a rowset that had no visible row goes to the first. All chunks hold as
  // many rows as fit (Chunk::kRows), but the first, whose capacity is free, and the last, which
  // need not be full: error 3001 for a chunk behind one that is not full.
  void Append(Chunk chunk);
  // Gives all chunks away in their order, for a store that only served to join rows: it has no rows
  // and must have no rowsets.
  [[nodiscard]] std::vector<Chunk> TakeChunks();
  // Numbers given so far, those of hidden rows too.
  [[nodiscard]] std::uint32_t RowCount() const { return rows_; }
  [[nodiscard]] std::uint32_t LiveRows() const { return rows_ - hidden_count_; }
  [[nodiscard]] bool AnyHidden() const { return hidden_count_ != 0; }
  [[nodiscard]] bool Hidden(std::uint32_t row) const {
    return hidden_count_ != 0 && (row >> 6) < hidden_.size() &&
           ((hidden_[row >> 6] >> (row & 63)) & 1U) != 0;
  }

  // Adds a hidden row of Nulls. Error 6 beyond 2^32 - 2 rows.
  std::uint32_t AddRow();
  // Shows a row that AddRow gave, and tells the rowsets.
  void Show(std::uint32_t row);
  // Deletes a visible row, and tells the rowsets.
  void Delete(std::uint32_t row);
  // Before a cell of a visible row is written: lets go the index that would no longer be right.
  void Writing(int column) { indexes_[static_cast<std::size_t>(column)].reset(); }
  // Tells the rowsets that cells of a visible row were written. changed has an entry per column.
  void Changed(std::uint32_t row, const std::vector<bool>& changed);

  struct Place {
    Chunk* chunk;
    std::size_t row;
  };
  [[nodiscard]] Place At(std::uint32_t row) const {
    if (row < first_rows_) return {chunks_.front().get(), row};
    const std::size_t behind = row - first_rows_;
    return {chunks_[1 + behind / Chunk::kRows].get(), behind % Chunk::kRows};
  }
  [[nodiscard]] bool IsNull(int column, std::uint32_t row) const {
    const Place at = At(row);
    return at.chunk->IsNull(static_cast<std::size_t>(column), at.row);
  }
  template <typename T>
  [[nodiscard]] T Get(int column, std::uint32_t row) const {
    const Place at = At(row);
    return at.chunk->Get<T>(static_cast<std::size_t>(column), at.row);
  }
  [[nodiscard]] std::string_view Text(int column, std::uint32_t row) const {
    const Place at = At(row);
    return at.chunk->Text(static_cast<std::size_t>(column), at.row);
  }

  // For scans, chunk by chunk.
  [[nodiscard]] std::size_t Chunks() const { return chunks_.size(); }
  [[nodiscard]] const Chunk& ChunkAt(std::size_t number) const { return *chunks_[number]; }
  [[nodiscard]] std::uint32_t FirstRowOf(std::size_t chunk) const;

  // Whether a look-up in the column goes through an index. It is made when it is first needed.
  [[nodiscard]] bool Optimized(int column) const {
    return optimized_[static_cast<std::size_t>(column)];
  }
  void Optimize(int column, bool on);
  // The index of an optimized column; nullptr for any other. A reader of its lists keeps it.
  [[nodiscard]] std::shared_ptr<const ColumnIndex> Index(int column);
  [[nodiscard]] FilterCache& Filters() { return *filters_; }

  // The rowsets to be told, each for as long as it lives.
  void Attach(RowView& view);
  void Detach(RowView& view) noexcept;

  [[nodiscard]] std::size_t Bytes() const;

 private:
  void Hide(std::uint32_t row);
  void DropIndexes();

  Kind kind_;
  std::vector<ColumnInfo> columns_;
  ColumnNames names_;
  std::vector<std::shared_ptr<const ChapterRows>> chapters_;  // null for other columns

  std::vector<std::unique_ptr<Chunk>> chunks_;
  std::size_t first_rows_ =
      std::numeric_limits<std::size_t>::max();  // of the first of several chunks
  std::uint32_t rows_ = 0;
  std::uint32_t hidden_count_ = 0;
  std::vector<std::uint64_t> hidden_;  // a bit per row, as far as any row was hidden

  std::vector<bool> optimized_;
  std::vector<std::shared_ptr<ColumnIndex>> indexes_;
  std::unique_ptr<FilterCache> filters_;
  std::vector<RowView*> views_;
};

}  // namespace pstolvane1
