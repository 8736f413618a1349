// Tests as text: what goes in and what must come out stand together in one file.
#pragma once

#include <string>
#include <vector>

namespace pstolvane1::sql {

// A case file holds "#" lines that say what follows, and cases:
//   > the input; several such lines are joined with line ends
//   = what it must give, likewise; or "! " and the error that it must give
//   ~ the words that PostgreSQL has for that error, where they are others
struct TextCase {
  std::string where;  // "file:line" of the first input line
  std::string input;
  std::string expected;
  bool is_error = false;
  std::string on_postgres;  // instead of expected; empty where it is the same
};

// Throws std::runtime_error for a file that cannot be read or is not of this form.
[[nodiscard]] std::vector<TextCase> ReadCaseFile(const std::string& path);

}  // namespace pstolvane1::sql
