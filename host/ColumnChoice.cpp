#include "host/ColumnChoice.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <set>

#include "session/data/TextFold.h"

namespace pstolvane1::host {
namespace {

constexpr std::size_t kGap = 2;

// The column with the unit that belongs to it, or that it is the unit of.
std::vector<std::size_t> Together(const ReportView& view, std::size_t place) {
  const ReportView::Column& one = view.Columns()[place];
  if (const auto quantity = view.PlaceOf(one.unit_of)) return {*quantity, place};
  for (std::size_t i = 0; i < view.Columns().size(); ++i) {
    if (EqualFolded(view.Columns()[i].unit_of, one.name)) return {place, i};
  }
  return {place};
}

// The first column, and the first that holds names.
std::set<std::size_t> AlwaysShown(const ReportView& view) {
  std::set<std::size_t> shown = {0};
  const auto named = std::ranges::find_if(
      view.Columns(), [](const ReportView::Column& column) { return !column.numeric; });
  if (named != view.Columns().end()) {
    shown.insert(static_cast<std::size_t>(named - view.Columns().begin()));
  }
  return shown;
}

std::vector<std::size_t> MostTellingFirst(const ReportView& view,
                                          const std::set<std::size_t>& always) {
  std::vector<std::size_t> order(always.begin(), always.end());
  std::vector<std::size_t> telling;
  for (std::size_t place = 0; place < view.Columns().size(); ++place) {
    if (view.Columns()[place].telling > 0) telling.push_back(place);
  }
  std::ranges::stable_sort(telling, {},
                           [&](std::size_t place) { return view.Columns()[place].telling; });
  order.insert(order.end(), telling.begin(), telling.end());
  for (std::size_t place = 1; place < view.Columns().size(); ++place) order.push_back(place);
  return order;
}

// What to call a column by: a label that several have is no name.
const std::string& NameFor(const ReportView& view, std::size_t place) {
  const ReportView::Column& column = view.Columns()[place];
  const auto same = std::ranges::count_if(view.Columns(), [&](const ReportView::Column& one) {
    return EqualFolded(one.label, column.label);
  });
  return same == 1 ? column.label : column.name;
}

}  // namespace

ChosenColumns ColumnsThatFit(const ReportView& view, const std::vector<std::size_t>& widths,
                             std::size_t room) {
  const std::set<std::size_t> always = AlwaysShown(view);
  std::set<std::size_t> shown;
  std::size_t used = 0;
  for (const std::size_t place : MostTellingFirst(view, always)) {
    if (shown.contains(place)) continue;
    const std::vector<std::size_t> together = Together(view, place);
    const std::size_t needed =
        std::accumulate(together.begin(), together.end(), std::size_t{0},
                        [&](std::size_t sum, std::size_t one) { return sum + widths[one] + kGap; });
    const bool fits = room == 0 || always.contains(place) || used + needed <= room + kGap;
    if (!fits) continue;
    used += needed;
    shown.insert(together.begin(), together.end());
  }
  ChosenColumns chosen{{shown.begin(), shown.end()}, {}};
  for (std::size_t place = 0; place < view.Columns().size(); ++place) {
    if (!shown.contains(place)) chosen.left_out.push_back(NameFor(view, place));
  }
  return chosen;
}

}  // namespace pstolvane1::host
