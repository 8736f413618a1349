// How the columns of a report go on paper: which way it lies, how large the letters are, and which
// columns go to which of several sheets side by side. Widths and places alone; nothing is drawn.
#pragma once

#include <cstddef>
#include <vector>

#include "host/print/Paper.h"

namespace pstolvane1::print {

// Of letters of one point. Figures are never broken: there both are the same.
struct ColumnNeed {
  double whole;            // that no text in it is broken
  double broken;           // that it can do with
  bool with_last = false;  // stands on the sheet of the column before
};

struct ColumnFit {
  bool across = false;         // the paper's longer side is the upper one
  double size = 0;             // of the letters, points
  double gap = 0;              // between columns, points
  std::vector<double> widths;  // of each column, points
  // The columns of each sheet, from left to right. Each sheet begins with the first column.
  std::vector<std::vector<std::size_t>> sheets;

  // Of all columns of a sheet, with what is between them.
  [[nodiscard]] double WidthOf(const std::vector<std::size_t>& sheet) const;
};

// Upright before across, one sheet before several, whole texts before broken ones, and then the
// largest letters. Example, paper 500 by 800 and letters of 9 to 7 points: a need of 50 in all
// stands upright at 9, one of 80 across at 9, one of 110 across at 7, one of 150 on two sheets.
[[nodiscard]] ColumnFit FitColumns(const std::vector<ColumnNeed>& needs, const Paper& paper,
                                   double margin);

}  // namespace pstolvane1::print
