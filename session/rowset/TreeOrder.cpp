#include "session/rowset/TreeOrder.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>

namespace pstolvane1 {
namespace {

struct Group {
  std::size_t begin = 0, end = 0;  // its rows
  bool on_top = false;
  bool placed = false;
  std::vector<std::size_t> below = {};
};

class TreeOrder {
 public:
  TreeOrder(const Recordset& rowset, const ReportLook& look, ViewColumns& view)
      : rowset_(rowset), look_(look), view_(view) {}

  void Stand() {
    if (!FindGroups()) return;
    for (const auto& [key, place] : places_) {
      const auto above = places_.find(look_.group_above(key));
      groups_[place].on_top = above == places_.end() || above->second == place;
      if (!groups_[place].on_top) groups_[above->second].below.push_back(place);
    }
    for (std::size_t row = 0; row < groups_.front().begin; ++row) order_.push_back(row);
    for (std::size_t place = 0; place < groups_.size(); ++place) {
      if (groups_[place].on_top) Place(place, 0);
    }
    for (std::size_t place = 0; place < groups_.size(); ++place) Place(place, 0);
    for (std::size_t row = groups_.back().end; row < view_.rows.size(); ++row) {
      order_.push_back(row);
    }
    Arrange();
  }

 private:
  // The last group ends where a rule stands that is none of its own.
  bool FindGroups() {
    const ColumnHandle column = rowset_.Column(look_.group_key);
    for (std::size_t row = 0; row < view_.rows.size(); ++row) {
      const Recordset::Row source = rowset_.RowAt(*view_.rows[row]);
      if (source.IsNull(column)) {
        if (view_.rules[row] != 0) break;
      } else if (view_.levels[row] == 0) {
        if (!places_.emplace(source.Int64(column), groups_.size()).second) return false;
        groups_.push_back({row, row});
      }
      if (!groups_.empty()) groups_.back().end = row + 1;
    }
    return !groups_.empty();
  }

  void Place(std::size_t place, int depth) {
    Group& group = groups_[place];
    if (std::exchange(group.placed, true)) return;
    for (std::size_t row = group.begin; row < group.end; ++row) {
      view_.levels[row] += depth;
      order_.push_back(row);
    }
    std::ranges::sort(group.below);
    for (const std::size_t below : group.below) Place(below, depth + 1);
  }

  template <typename Value>
  void ArrangeOne(std::vector<Value>& values) const {
    std::vector<Value> arranged;
    arranged.reserve(values.size());
    for (const std::size_t row : order_) arranged.push_back(std::move(values[row]));
    values = std::move(arranged);
  }
  void Arrange() {
    for (ViewColumn& column : view_.columns) ArrangeOne(column.texts);
    ArrangeOne(view_.rows);
    ArrangeOne(view_.rules);
    ArrangeOne(view_.levels);
    ArrangeOne(view_.headings);
    ArrangeOne(view_.sums);
  }

  const Recordset& rowset_;
  const ReportLook& look_;
  ViewColumns& view_;
  std::vector<Group> groups_;
  std::map<std::int64_t, std::size_t> places_;  // by key
  std::vector<std::size_t> order_;
};

}  // namespace

void StandAsTheTree(const Recordset& rowset, const ReportLook& look, ViewColumns& view) {
  if (!look.group_above || !rowset.HasColumn(look.group_key)) return;
  TreeOrder(rowset, look, view).Stand();
}

}  // namespace pstolvane1
