// The parts of a view's text, found without reading its SELECTs.
#pragma once

#include <string_view>
#include <vector>

namespace pstolvane1::sqlite {

// The SELECT of "CREATE VIEW name AS SELECT ..."; empty when there is none.
[[nodiscard]] std::string_view BodyOfView(std::string_view create);

// The tables that a WITH names before a SELECT, in order. All views are of the text given.
struct WithClause {
  struct Table {
    std::string_view name;
    std::vector<std::string_view> columns;  // where it names them
    // What gives its columns: of one that takes rows of itself the SELECT before the first UNION.
    std::string_view select;
  };
  std::vector<Table> tables;
  std::string_view rest;  // the SELECT
};
// No tables where the text does not begin with WITH, or is not read.
[[nodiscard]] WithClause ReadWith(std::string_view body);

}  // namespace pstolvane1::sqlite
