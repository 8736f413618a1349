// A source text with everything looked up: which queries run, and which columns they are joined on.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/data/Chunk.h"
#include "session/data/ShapeCommand.h"

namespace pstolvane1::shape {

struct Plan;

// One SELECT for the engine.
struct QueryPlan {
  std::string select;
  std::string doing;  // "reading the query of chptrans", for errors; empty for a SELECT alone
  std::vector<ColumnInfo> columns;
};

// A column of the result that is reckoned over the rows of a chapter.
struct AggregatePlan {
  Function function = Function::kCount;
  std::optional<int> chapter_column;  // of the chapter's rows; empty to count rows
  int column = 0;                     // of the result
};

// The rows of another plan, one row per group.
struct GroupPlan {
  std::unique_ptr<Plan> rows;
  std::vector<int> by;               // columns of the rows
  std::vector<int> by_columns;       // of the result, in the same order
  std::vector<int> chapter_columns;  // of the result: each is a chapter of the group's rows
  std::vector<AggregatePlan> aggregates;
};

// A chapter that is joined to the rows.
struct RelationPlan {
  std::unique_ptr<Plan> child;
  std::vector<int> parent_keys;
  std::vector<int> child_keys;
  int column = 0;  // of the result
  std::vector<AggregatePlan> aggregates;
};

// What one rowset is made of: the rows of a query or of groups, and the columns appended to them.
struct Plan {
  std::optional<QueryPlan> query;
  std::optional<GroupPlan> groups;  // when there is no query
  std::vector<RelationPlan> relations;
  std::vector<ColumnInfo> columns;  // of the result

  // Rows of a single query, as it gives them.
  [[nodiscard]] bool IsQueryAlone() const { return query && relations.empty(); }
};

// The columns that a SELECT gives, without running it.
using Describe = std::function<std::vector<ColumnInfo>(std::string_view select)>;

// The plan of a shape command, or of one SELECT. Error -2147217900 for what the parser or
// `describe` refuses, and "line L, column C: ..." for a column that does not exist or exists
// already, keys that cannot be compared, and an aggregate of a type that it does not take.
//
// Types of aggregates: COUNT is a whole number; SUM of whole numbers a 64-bit one, of singles and
// doubles a double, of money money; AVG a double, of money money; MIN, MAX and ANY are the
// column's. SUM and AVG take numbers; MIN and MAX also dates and texts.
[[nodiscard]] Plan MakePlan(std::string_view source, const Describe& describe);

}  // namespace pstolvane1::shape
