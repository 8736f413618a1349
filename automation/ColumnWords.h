// The lines that tables of words over columns are written in.
#pragma once

#include <span>
#include <string_view>

#include "automation/ColumnLooks.h"

namespace pstolvane1::automation {

constexpr ColumnWords Is(std::string_view column, std::string_view label, int telling = 0) {
  return {.column = column, .label = label, .telling = telling};
}
constexpr ColumnWords First(std::string_view column, std::string_view label) {
  return {.column = column, .label = label, .leads = true};
}
constexpr ColumnWords Unit(std::string_view column, std::string_view quantity) {
  return {.column = column, .label = "Unit", .unit_of = quantity};
}
// Told by another column as well, or nothing that people read.
constexpr ColumnWords Hidden(std::string_view column, int level = 0) {
  return {.column = column, .label = {}, .shown = false, .level = level};
}
// The names of a tree, each with a mark in front for every level above it.
constexpr ColumnWords MarkedTree(std::string_view column, std::string_view label, char mark) {
  return {.column = column, .label = label, .leads = true, .depth_mark = mark};
}
// Fills the cells of the other column that are empty.
constexpr ColumnWords Fills(std::string_view column, std::string_view other) {
  return {.column = column, .label = {}, .shown = false, .stands_in = other};
}
// Stands in the other column as a whole, on lines of this depth, or by itself.
constexpr ColumnWords Below(std::string_view column, std::string_view label, std::string_view other,
                            int level) {
  return {.column = column, .label = label, .stands_in = other, .level = level};
}
constexpr ColumnWords In(std::string_view column, std::string_view label, std::string_view other) {
  return Below(column, label, other, 0);
}
constexpr ColumnWords Heading(std::string_view column, std::string_view other,
                              std::string_view nameless = {}) {
  ColumnWords heading = Below(column, "Heading", other, ColumnLook::kHeading);
  heading.nameless = nameless;
  return heading;
}

// What has the same name and meaning wherever it stands.
[[nodiscard]] std::span<const ColumnWords> EnglishEverywhere();

}  // namespace pstolvane1::automation
