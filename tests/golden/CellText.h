// Cells as the files of the cases show them.
//
// Null is an empty cell, an empty text is "", a long rule is "_ x 90", and a text with a bar, a
// quote or blanks at its ends stands in quotes. Empty cells at the end of a line are left out; a
// line of empty cells alone is "|".
#pragma once

#include <string>
#include <vector>

namespace pstolvane1::golden {

using Cells = std::vector<std::string>;  // one line, as it stands; Null is an empty string

[[nodiscard]] Cells SplitCells(const std::string& line);
// The lines with aligned columns; a line with fewer cells than others ends in Nulls.
[[nodiscard]] std::string Aligned(const std::vector<Cells>& lines);
// Rows as columns and columns as rows. Every line has as many cells as the first one.
[[nodiscard]] std::vector<Cells> Turned(const std::vector<Cells>& lines);

// A text as a cell shows it, and back.
[[nodiscard]] std::string CellOf(const std::string& text);
[[nodiscard]] std::string TextOf(const std::string& cell);

// Without blanks at both ends.
[[nodiscard]] std::string Trim(const std::string& text);

}  // namespace pstolvane1::golden
