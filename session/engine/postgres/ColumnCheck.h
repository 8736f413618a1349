// Whether the values that are stored in the columns of a statement are values of the columns' types
// to the dialect.
#pragma once

#include <mutex>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "session/engine/WrongValue.h"
#include "session/sql/Catalog.h"

namespace pstolvane1::postgres {

using NamedColumn = std::pair<const sql::CatalogTable*, const sql::CatalogColumn*>;

// The columns whose type on the server has values that the dialect's has not: NaN and infinite
// numbers, and dates beyond the years 100 to 9999. All others cannot hold a wrong value.
[[nodiscard]] std::vector<NamedColumn> Doubtful(std::span<const NamedColumn> columns);

// A SELECT that gives one row when a column holds a wrong value: the column's place among those
// given, and the value as a text; else none.
[[nodiscard]] std::string WrongValuesText(std::span<const NamedColumn> columns);

[[nodiscard]] TableColumn WhereOf(const NamedColumn& column);

// Which columns hold no wrong value in one state of the books; any thread.
class SoundColumns {
 public:
  // Under another state than the last nothing is known.
  [[nodiscard]] std::vector<NamedColumn> Unknown(const std::string& state,
                                                 std::span<const NamedColumn> columns) const;
  void Remember(const std::string& state, std::span<const NamedColumn> columns);

 private:
  mutable std::mutex mutex_;
  std::string state_;
  std::set<std::string> columns_;
};

}  // namespace pstolvane1::postgres
