#include "host/print/ColumnFit.h"

#include <algorithm>
#include <numeric>
#include <optional>

namespace pstolvane1::print {
namespace {

constexpr double kLargest = 9, kGood = 8, kSmallest = 7, kStep = 0.5;
constexpr double kGap = 1.1;             // of the letters' size
constexpr double kWidestOfASheet = 0.3;  // for a text, where columns go on several sheets
constexpr int kHalvings = 40;

using Widths = std::vector<double>;
using Sheets = std::vector<std::vector<std::size_t>>;

Widths WholeWidths(const std::vector<ColumnNeed>& needs) {
  Widths widths(needs.size());
  std::ranges::transform(needs, widths.begin(), [](const ColumnNeed& need) { return need.whole; });
  return widths;
}

// No column is wider than the cap, as far as its texts can be broken.
Widths Capped(const std::vector<ColumnNeed>& needs, double cap) {
  Widths widths(needs.size());
  std::ranges::transform(needs, widths.begin(), [cap](const ColumnNeed& need) {
    return std::clamp(cap, need.broken, need.whole);
  });
  return widths;
}

double Sum(const Widths& widths) {
  const auto gaps = static_cast<double>(widths.empty() ? 0 : widths.size() - 1);
  return std::accumulate(widths.begin(), widths.end(), kGap * gaps);
}

// The largest number for which the condition holds, between one for which it does and one for
// which it does not.
template <typename Holds>
double Border(double holds, double fails, const Holds& condition) {
  for (int i = 0; i < kHalvings; ++i) {
    const double middle = (holds + fails) / 2;
    (condition(middle) ? holds : fails) = middle;
  }
  return holds;
}

// The widest columns give way first.
std::optional<Widths> BrokenInto(const std::vector<ColumnNeed>& needs, double room) {
  if (Widths whole = WholeWidths(needs); Sum(whole) <= room) return whole;
  if (Sum(Capped(needs, 0)) > room) return std::nullopt;
  return Capped(needs,
                Border(0, room, [&](double cap) { return Sum(Capped(needs, cap)) <= room; }));
}

// Of a column and those that stand with it.
double WidthTogether(const std::vector<ColumnNeed>& needs, const Widths& widths, std::size_t i) {
  double width = widths[i];
  while (++i < widths.size() && needs[i].with_last) width += kGap + widths[i];
  return width;
}

// As many columns on each sheet as it holds, behind the first one.
Sheets Dealt(const std::vector<ColumnNeed>& needs, const Widths& widths, double room) {
  Sheets sheets = {{0}};
  double used = widths.front();
  for (std::size_t i = 1; i < widths.size(); ++i) {
    const bool fits = used + kGap + WidthTogether(needs, widths, i) <= room;
    if (!fits && !needs[i].with_last && sheets.back().size() > 1) {
      sheets.push_back({0});
      used = widths.front();
    }
    sheets.back().push_back(i);
    used += kGap + widths[i];
  }
  return sheets;
}

// No sheet is much fuller than another.
Sheets DealtEvenly(const std::vector<ColumnNeed>& needs, const Widths& widths, double room) {
  const std::size_t sheets = Dealt(needs, widths, room).size();
  // A room that is smaller than the sheet holds more sheets; search the smallest that does not.
  const double narrower = Border(
      0, room, [&](double less) { return Dealt(needs, widths, room - less).size() == sheets; });
  return Dealt(needs, widths, room - narrower);
}

class Fitting {
 public:
  Fitting(const std::vector<ColumnNeed>& needs, const Paper& paper, double margin)
      : needs_(needs), upright_(paper.width - 2 * margin), across_(paper.height - 2 * margin) {}

  [[nodiscard]] ColumnFit OnPaper() const {
    for (const bool across : {false, true}) {
      for (double size = kLargest; size >= kGood; size -= kStep) {
        const Widths whole = WholeWidths(needs_);
        if (Sum(whole) <= Room(across) / size) return OnOneSheet(across, size, whole);
      }
    }
    for (double size = kLargest; size >= kSmallest; size -= kStep) {
      if (const auto broken = BrokenInto(needs_, across_ / size)) {
        return OnOneSheet(true, size, *broken);
      }
    }
    return OnSheetsSideBySide();
  }

 private:
  [[nodiscard]] double Room(bool across) const { return across ? across_ : upright_; }

  static ColumnFit Placed(bool across, double size, const Widths& widths, Sheets sheets) {
    ColumnFit fit{across, size, kGap * size, widths, std::move(sheets)};
    for (double& width : fit.widths) width *= size;
    return fit;
  }

  static ColumnFit OnOneSheet(bool across, double size, const Widths& widths) {
    std::vector<std::size_t> all(widths.size());
    std::iota(all.begin(), all.end(), std::size_t{0});
    return Placed(across, size, widths, {all});
  }

  [[nodiscard]] Widths WidthsBeside(double size) const {
    return Capped(needs_, kWidestOfASheet * across_ / size);
  }

  // The fewest sheets, and the largest letters that need no more.
  [[nodiscard]] ColumnFit OnSheetsSideBySide() const {
    const std::size_t fewest = Dealt(needs_, WidthsBeside(kSmallest), across_ / kSmallest).size();
    double size = kGood;
    while (size > kSmallest && Dealt(needs_, WidthsBeside(size), across_ / size).size() > fewest) {
      size -= kStep;
    }
    const Widths widths = WidthsBeside(size);
    return Placed(true, size, widths, DealtEvenly(needs_, widths, across_ / size));
  }

  const std::vector<ColumnNeed>& needs_;
  double upright_, across_;
};

}  // namespace

double ColumnFit::WidthOf(const std::vector<std::size_t>& sheet) const {
  double width = sheet.empty() ? 0 : gap * static_cast<double>(sheet.size() - 1);
  for (const std::size_t column : sheet) width += widths[column];
  return width;
}

ColumnFit FitColumns(const std::vector<ColumnNeed>& needs, const Paper& paper, double margin) {
  return Fitting(needs, paper, margin).OnPaper();
}

}  // namespace pstolvane1::print
