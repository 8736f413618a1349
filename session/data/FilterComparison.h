// One comparison of a filter: a column against a value, over typed cells.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "session/data/Chunk.h"
#include "session/data/RowKeys.h"

namespace pstolvane1 {

enum class FilterOperator {
  kEqual,
  kNotEqual,
  kLess,
  kLessOrEqual,
  kGreater,
  kGreaterOrEqual,
  kLike
};

// The comparison that holds for a value where this one does not; of a Null neither holds. kLike has
// none.
[[nodiscard]] FilterOperator Opposite(FilterOperator op);

// What a filter's text compares a column with.
struct FilterValue {
  enum class Kind { kNumber, kText, kDate, kTrue, kFalse, kNull };
  Kind kind;
  std::string_view text;  // the number or the text; it must outlive the comparison
  Date date;
};

// Made for a column of one type. All numbers are compared by value, exactly; a value for a Single
// column is rounded to a Single first, so that 0.1 is found. True is any number that is not 0.
// Text ignores case. A cell that is Null meets no comparison but "= Null".
struct FilterComparison {
  // Cells within the bounds meet it, or, with negate, those outside.
  struct Whole {
    std::int64_t low, high;
  };
  struct Real {
    double low, high;
  };
  using TestFunction = bool (*)(const FilterComparison&, const Chunk&, std::size_t row);
  using ScanFunction = void (*)(const FilterComparison&, const Chunk&, std::size_t first,
                                std::size_t end, std::uint64_t* bits);

  int column = 0;
  bool negate = false;
  Whole whole{0, 0};
  Real real{0, 0};
  std::string_view text;
  int sign = 0;  // of an ordering of texts: what CompareFolded gives for texts that meet it
  bool or_equal = false;
  // Of an equality that an index can answer.
  bool is_equality = false;
  CellKey key;

  TestFunction test = nullptr;
  ScanFunction scan = nullptr;

  [[nodiscard]] bool Test(const Chunk& chunk, std::size_t row) const {
    return test(*this, chunk, row);
  }
  // Sets one bit per row from first (a multiple of 64) to end.
  void Scan(const Chunk& chunk, std::size_t first, std::size_t end, std::uint64_t* bits) const {
    scan(*this, chunk, first, end, bits);
  }
};

// What is wrong with a comparison: a sentence, or empty.
using FilterProblem = std::optional<std::string>;

// negated: what kLike finds is left out instead.
[[nodiscard]] FilterProblem Bind(FilterComparison& comparison, int number, const ColumnInfo& column,
                                 FilterOperator op, bool negated, const FilterValue& value);

}  // namespace pstolvane1
