// Reads shape commands.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "session/data/ShapeCommand.h"

namespace pstolvane1::shape {

struct Limits {
  static constexpr std::size_t kLength = 1'000'000;  // bytes of a command
  static constexpr int kCommands = 16;               // commands inside each other
  static constexpr int kParentheses = 64;   // more than a printed command needs: 2 for each
  static constexpr int kQueries = 64;       // queries of a command
  static constexpr std::size_t kKeys = 16;  // columns of one RELATE or one BY
};

// True when the text begins with the word SHAPE in any case; everything else is one SELECT.
[[nodiscard]] bool IsCommand(std::string_view text);

// SHAPE source [AS name] [ APPEND item, item ... | COMPUTE column, column ... [BY name, name ...] ]
//   source:  {SELECT} or (SHAPE ...)
//   item:    (source [AS name] RELATE a TO b, c TO d ...) AS name, or an aggregate of a chapter
//   that
//            was appended before it; APPEND may be said once or before each item
//   column:  the source's name, which is the chapter, or FUNCTION(name.column) [AS name]
// Names stand bare, in '', ``, "" or [], keywords in any case; AS may be left out, and so may the
// parentheses around a nested SHAPE. Braces in a SELECT's quotes and comments do not end it.
// Error -2147217900 "line L, column C: expected X, found Y" for anything else.
[[nodiscard]] Command Parse(std::string_view text);

// "line L, column C" of a byte of the text, both from 1; the column counts characters.
[[nodiscard]] std::string PlaceIn(std::string_view text, std::size_t place);

// The query's text moved to the place that it has in the command, so that a place in it is a place
// in the command.
[[nodiscard]] std::string InPlace(std::string_view command, const Query& query);

}  // namespace pstolvane1::shape
