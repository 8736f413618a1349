// Whether the values that are stored in the columns of a statement are of the columns' types.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "session/engine/WrongValue.h"
#include "session/engine/sqlite/FunctionCall.h"

namespace pstolvane1::sqlite {

class Database;

// SQLite stores any value in any column, and its comparisons, joins and sums take what is there: a
// row whose date is "hello" would only be missing from a report. So the columns that a statement
// touches are looked through before it is read, each once for a state of the books. Belongs to one
// connection; connections that read the same state share what they know.
class ColumnCheck {
 public:
  // The engine's number for the state that the connection reads. Under another one than before
  // nothing is known any more.
  void BeginState(std::int64_t data_version);
  // The same, for a state that the other one's connection reads as well.
  void BeginState(std::int64_t data_version, const ColumnCheck& other);

  // To be held during Check. Whoever shares the state waits for it, and looks at less afterwards.
  [[nodiscard]] std::unique_lock<std::mutex> Turn() const;

  // Null fits every column. Otherwise: whole numbers and flags are integers, or reals without a
  // fraction; money and the other numbers are integers and finite reals; dates are ISO texts; texts
  // are anything but binary data. Error 13 as WrongValue tells it. Looks through each table once,
  // inside a Running of the database.
  void Check(Database& database, std::span<const TableColumn> columns);

 private:
  static void CheckTable(Database& database, std::span<const TableColumn> columns);

  // Of one state.
  struct Known {
    std::mutex turn;
    std::set<std::string> columns;  // "table.column" that fit
  };

  std::int64_t data_version_ = -1;
  std::shared_ptr<Known> known_ = std::make_shared<Known>();
};

// pst_misfit(kinds, value, ...): 1 where one of the values does not fit its kind, a letter each, as
// the check writes it; else 0. Of the library's own statements only.
[[nodiscard]] std::span<const ScalarFunction> ColumnCheckFunctions();

}  // namespace pstolvane1::sqlite
