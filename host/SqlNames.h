// The tables and columns of a database, for people who write a SELECT on it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "session/books/Reader.h"
#include "session/data/Error.h"
#include "session/data/Recordset.h"

namespace pstolvane1::host {

// Opens the database by the first question. Errors are 501 with the engine's words.
class SqlNames {
 public:
  explicit SqlNames(std::string connection) : connection_(std::move(connection)) {}
  ~SqlNames();

  // One column, "Table", by name.
  [[nodiscard]] RecordsetPtr Tables();
  // "Column" and "Type", in the table's order. Error 3001 for a table that is not there, with the
  // name most like it.
  [[nodiscard]] RecordsetPtr Columns(const std::string& table);

  // The same error, with the name that may have been meant where the text names a table or a column
  // that is not there.
  [[nodiscard]] Error WithSuggestion(const Error& error, const std::string& text);

 private:
  [[nodiscard]] books::Reader& Opened();
  [[nodiscard]] std::vector<std::string> ColumnsOf(const std::string& table);
  [[nodiscard]] std::string SuggestionFor(const std::string& description, const std::string& text);

  std::string connection_;
  std::unique_ptr<books::Reader> reader_;
};

}  // namespace pstolvane1::host
