// What one rowset sees of the rows it shares: which of them, in which order, and where it stands.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "session/data/RowOrder.h"
#include "session/data/RowStore.h"

namespace pstolvane1 {

class RowFilter;

// The view is a list of row numbers, or all rows of the store when nothing limits or orders them.
// The list holds the rows that pass the filter, in the order of the sort, and follows every change
// that the store tells of; rows that are hidden stay in it and are passed over.
//
// The position is BOF, EOF, a row, or the gap that a row left when it was deleted or fell out of
// the filter: there the next move goes to the row that was behind or before it.
class RowView {
 public:
  // All rows of the store; or those listed in base, in ascending order, which owner keeps alive.
  // The position is the first row.
  explicit RowView(std::shared_ptr<RowStore> store);
  RowView(std::shared_ptr<RowStore> store, std::span<const std::uint32_t> base,
          std::shared_ptr<const void> owner);
  // The same rows as the other's base, unfiltered, in their own order, at the first row.
  struct SameRows {};
  RowView(const RowView& other, SameRows);
  ~RowView();
  RowView(const RowView&) = delete;
  RowView& operator=(const RowView&) = delete;

  [[nodiscard]] RowStore& Store() const { return *store_; }
  [[nodiscard]] const std::shared_ptr<RowStore>& SharedStore() const { return store_; }

  [[nodiscard]] std::uint32_t Count() const {  // visible rows
    return all_ ? store_->LiveRows() : visible_;
  }
  // Places in the list, those of hidden rows too; a place is a number below Places().
  [[nodiscard]] std::size_t Places() const { return all_ ? store_->RowCount() : list_.size(); }
  [[nodiscard]] std::uint32_t RowAt(std::size_t place) const {
    return all_ ? static_cast<std::uint32_t>(place) : list_[place];
  }
  // The first place with a visible row at or behind the place given; Places() when there is none.
  [[nodiscard]] std::size_t VisibleFrom(std::size_t place) const {
    const std::size_t end = Places();
    while (place < end && store_->Hidden(RowAt(place))) ++place;
    return place;
  }

  // "" clears. An error leaves the view as it was. Both move to the first row.
  void Filter(std::string_view criteria);
  void Sort(std::string_view columns);
  [[nodiscard]] const std::string& FilterText() const { return filter_text_; }
  [[nodiscard]] const std::string& SortText() const { return sort_text_; }

  // Without any visible row it is both, unless a row outside the view is the current one.
  [[nodiscard]] bool Bof() const { return stand_ == Stand::kBof || (Count() == 0 && !HasRow()); }
  [[nodiscard]] bool Eof() const { return stand_ == Stand::kEof || (Count() == 0 && !HasRow()); }
  void First();
  void Last();
  // False, with nothing moved, at EOF or BOF already.
  bool Next();
  bool Previous();
  // To a row of the store, which need not be in the view: the next move then goes on from where it
  // would stand.
  void GoTo(std::uint32_t row);
  // Forward from the current row, itself included, to the first that meets the comparison, else
  // EOF.
  void Find(std::string_view criterion);
  // The current row. False when there is none; also for a row that another rowset deleted.
  [[nodiscard]] bool HasRow() const {
    return stand_ == Stand::kRow && (!store_->Hidden(row_) || row_ == adding_);
  }
  [[nodiscard]] std::uint32_t Row() const { return row_; }
  // Whether the current row is one that was deleted.
  [[nodiscard]] bool StandsOnDeleted() const { return stand_ == Stand::kRow && !HasRow(); }

  static constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();
  // A hidden row of the store becomes the current row of this rowset alone, until Added.
  void Add(std::uint32_t row);
  [[nodiscard]] std::uint32_t Adding() const { return adding_; }
  void Added() { adding_ = kNone; }

  void OnAppended(std::uint32_t first, std::uint32_t end);
  void OnShown(std::uint32_t row);
  void OnDeleted(std::uint32_t row);
  void OnChanged(std::uint32_t row, const std::vector<bool>& changed);

  [[nodiscard]] std::size_t Bytes() const { return own_.capacity() * sizeof(std::uint32_t); }

 private:
  enum class Stand { kBof, kRow, kEof };

  void Fill();
  void Own();
  void Use(std::span<const std::uint32_t> list);
  [[nodiscard]] bool Belongs(std::uint32_t row) const;
  [[nodiscard]] std::size_t PlaceOf(std::uint32_t row) const;
  [[nodiscard]] std::size_t PlaceFor(std::uint32_t row) const;
  void Insert(std::uint32_t row);
  void Erase(std::size_t place);
  // A current row outside the list stands where its values, as they are now, would put it.
  void StandOutside(std::uint32_t row);
  void StandAt(std::size_t place);      // or at the next visible row, or EOF
  void StandBefore(std::size_t place);  // at the nearest visible row before it, or BOF

  std::shared_ptr<RowStore> store_;
  bool has_base_ = false;
  std::span<const std::uint32_t> base_;
  std::shared_ptr<const void> base_owner_;

  std::string filter_text_;
  std::shared_ptr<const RowFilter> filter_;
  std::string sort_text_;
  RowOrder order_;

  bool all_ = true;
  std::span<const std::uint32_t> list_;  // of own_, of the base, or of an index
  std::shared_ptr<const ColumnIndex> list_owner_;
  std::vector<std::uint32_t> own_;
  std::uint32_t visible_ = 0;  // rows of the list that are not hidden

  Stand stand_ = Stand::kEof;
  std::size_t place_ = 0;  // of the current row or, when it is not in the list, of the one behind
  bool in_list_ = false;   // the row at place_ is the current row
  std::uint32_t row_ = kNone;  // the current row
  std::uint32_t adding_ = kNone;
};

}  // namespace pstolvane1
