#include "session/data/RowView.h"

#include <algorithm>
#include <utility>

#include "session/data/FilterCache.h"
#include "session/data/RowFilter.h"

namespace pstolvane1 {

namespace {

constexpr std::size_t kNoPlace = std::numeric_limits<std::size_t>::max();

}  // namespace

RowView::RowView(std::shared_ptr<RowStore> store) : store_(std::move(store)) {
  store_->Attach(*this);
  First();
}

RowView::RowView(std::shared_ptr<RowStore> store, std::span<const std::uint32_t> base,
                 std::shared_ptr<const void> owner)
    : store_(std::move(store)), has_base_(true), base_(base), base_owner_(std::move(owner)) {
  store_->Attach(*this);
  Use(base_);
  First();
}

RowView::RowView(const RowView& other, SameRows)
    : store_(other.store_),
      has_base_(other.has_base_),
      base_(other.base_),
      base_owner_(other.base_owner_) {
  store_->Attach(*this);
  if (has_base_) Use(base_);
  First();
}

RowView::~RowView() { store_->Detach(*this); }

void RowView::Use(std::span<const std::uint32_t> list) {
  all_ = false;
  list_ = list;
  visible_ = static_cast<std::uint32_t>(list.size());
  if (!store_->AnyHidden()) return;
  for (const std::uint32_t row : list) visible_ -= store_->Hidden(row) ? 1U : 0U;
}

void RowView::Own() {
  if (list_.data() == own_.data()) return;
  own_.assign(list_.begin(), list_.end());
  list_ = own_;
  list_owner_.reset();
}

void RowView::Fill() {
  if (!filter_ && order_.Empty()) {
    own_ = std::vector<std::uint32_t>();
    list_owner_.reset();
    all_ = !has_base_;
    if (has_base_) Use(base_);
    return;
  }
  if (order_.Empty() && !has_base_) {
    RowFilter::Matches rows = filter_->LookUp(*store_);
    if (rows.owner) {
      list_owner_ = std::move(rows.owner);
      return Use(rows.list);
    }
  }
  std::vector<std::uint32_t> rows;
  if (filter_) {
    rows = has_base_ ? filter_->SelectFrom(*store_, base_) : filter_->Select(*store_);
  } else {
    const std::size_t count = has_base_ ? base_.size() : store_->RowCount();
    rows.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
      const std::uint32_t row = has_base_ ? base_[i] : static_cast<std::uint32_t>(i);
      if (!store_->Hidden(row)) rows.push_back(row);
    }
  }
  if (!order_.Empty()) order_.SortRows(*store_, rows);
  list_owner_.reset();
  own_ = std::move(rows);
  Use(own_);
}

void RowView::Filter(std::string_view criteria) {
  const bool blank = IsBlankText(criteria);
  filter_ = blank ? nullptr : store_->Filters().Get(*store_, criteria);
  filter_text_.assign(blank ? std::string_view() : criteria);
  Fill();
  First();
}

void RowView::Sort(std::string_view columns) {
  RowOrder before = std::exchange(order_, RowOrder(*store_, columns));
  try {
    Fill();
  } catch (...) {
    order_ = std::move(before);
    throw;
  }
  sort_text_.assign(columns);
  First();
}

bool RowView::Belongs(std::uint32_t row) const {
  if (has_base_ && !std::binary_search(base_.begin(), base_.end(), row)) return false;
  return !filter_ || filter_->Test(*store_, row);
}

// Where the row stands or would stand.
std::size_t RowView::PlaceFor(std::uint32_t row) const {
  if (all_) return row;
  const auto place = order_.Empty() ? std::lower_bound(list_.begin(), list_.end(), row)
                                    : std::lower_bound(list_.begin(), list_.end(), row,
                                                       [&](std::uint32_t a, std::uint32_t b) {
                                                         return order_.Before(*store_, a, b);
                                                       });
  return static_cast<std::size_t>(place - list_.begin());
}

// A row whose sorted columns were written stands where it stood until it is updated.
std::size_t RowView::PlaceOf(std::uint32_t row) const {
  if (stand_ == Stand::kRow && in_list_ && row == row_) return place_;
  const std::size_t place = PlaceFor(row);
  if (place < Places() && RowAt(place) == row) return place;
  if (order_.Empty()) return kNoPlace;
  const auto found = std::find(list_.begin(), list_.end(), row);
  return found == list_.end() ? kNoPlace : static_cast<std::size_t>(found - list_.begin());
}

void RowView::Insert(std::uint32_t row) {
  Own();
  const std::size_t place = PlaceFor(row);
  own_.insert(own_.begin() + static_cast<std::ptrdiff_t>(place), row);
  list_ = own_;
  ++visible_;
  if (stand_ != Stand::kRow) return;
  if (row == row_) {
    place_ = place;
    in_list_ = true;
  } else if (!in_list_) {
    place_ = PlaceFor(row_);
  } else if (place <= place_) {
    ++place_;
  }
}

void RowView::Erase(std::size_t place) {
  Own();
  own_.erase(own_.begin() + static_cast<std::ptrdiff_t>(place));
  list_ = own_;
  --visible_;
  if (stand_ != Stand::kRow) return;
  if (in_list_ && place < place_) {
    --place_;
  } else if (!in_list_ || place == place_) {
    in_list_ = false;
    place_ = PlaceFor(row_);
  }
}

void RowView::StandAt(std::size_t place) {
  place = VisibleFrom(place);
  if (place == Places()) {
    stand_ = Stand::kEof;
    return;
  }
  stand_ = Stand::kRow;
  place_ = place;
  row_ = RowAt(place);
  in_list_ = true;
}

void RowView::First() { StandAt(0); }

void RowView::StandBefore(std::size_t end) {
  while (end > 0 && store_->Hidden(RowAt(end - 1))) --end;
  if (end == 0) {
    stand_ = Stand::kBof;
  } else {
    StandAt(end - 1);
  }
}

void RowView::Last() { StandBefore(Places()); }

bool RowView::Next() {
  if (Eof()) return false;
  if (stand_ == Stand::kBof) {
    First();
  } else {
    StandAt(in_list_ ? place_ + 1 : place_);
  }
  return true;
}

bool RowView::Previous() {
  if (Bof()) return false;
  StandBefore(stand_ == Stand::kEof ? Places() : place_);
  return true;
}

void RowView::GoTo(std::uint32_t row) {
  const std::size_t place = PlaceOf(row);
  stand_ = Stand::kRow;
  row_ = row;
  in_list_ = place != kNoPlace;
  place_ = in_list_ ? place : PlaceFor(row);
}

void RowView::Find(std::string_view criterion) {
  const auto wanted = RowFilter::ReadCriterion(*store_, criterion);
  if (stand_ == Stand::kEof) return;
  std::size_t place = stand_ == Stand::kBof ? 0 : place_;
  if (all_) {
    const RowFilter::Matches rows = wanted->LookUp(*store_);
    if (rows.owner) {
      auto found = std::lower_bound(rows.list.begin(), rows.list.end(), place);
      while (found != rows.list.end() && store_->Hidden(*found)) ++found;
      return StandAt(found == rows.list.end() ? Places() : *found);
    }
  }
  for (place = VisibleFrom(place); place < Places(); place = VisibleFrom(place + 1)) {
    if (wanted->Test(*store_, RowAt(place))) break;
  }
  StandAt(place);
}

void RowView::Add(std::uint32_t row) {
  adding_ = row;
  stand_ = Stand::kRow;
  row_ = row;
  in_list_ = all_;
  place_ = all_ ? row : Places();
}

void RowView::OnAppended(std::uint32_t first, std::uint32_t end) {
  const bool was_empty = Count() == (all_ ? end - first : 0);
  if (!all_ && !has_base_) {
    Own();
    for (std::uint32_t row = first; row < end; ++row) {
      if (!filter_ || filter_->Test(*store_, row)) {
        own_.push_back(row);
        ++visible_;
      }
    }
    list_ = own_;  // also if the sort is abandoned
    if (!order_.Empty()) order_.SortRows(*store_, own_);
    list_ = own_;
    if (stand_ == Stand::kRow && in_list_) {
      place_ = static_cast<std::size_t>(std::find(own_.begin(), own_.end(), row_) - own_.begin());
    }
  }
  if (was_empty) First();
}

void RowView::OnShown(std::uint32_t row) {
  if (all_) return;
  if (Belongs(row)) return Insert(row);
  StandOutside(row);
}

void RowView::StandOutside(std::uint32_t row) {
  if (stand_ == Stand::kRow && row == row_ && !in_list_) place_ = PlaceFor(row);
}

void RowView::OnDeleted(std::uint32_t row) {
  if (!all_ && PlaceOf(row) != kNoPlace) --visible_;
}

void RowView::OnChanged(std::uint32_t row, const std::vector<bool>& changed) {
  const bool moves = order_.Uses(changed);
  if (all_ || !(moves || (filter_ && filter_->Uses(changed)))) return;
  const std::size_t place = PlaceOf(row);
  const bool was_here = place != kNoPlace;
  const bool belongs = Belongs(row);
  if (was_here && (!belongs || moves)) Erase(place);
  if (belongs && (!was_here || moves)) return Insert(row);
  StandOutside(row);
}

}  // namespace pstolvane1
