// Databases for the tests of what the front end writes for SQLite.
#pragma once

#include <memory>
#include <sqlite3.h>
#include <string>
#include <string_view>

#include "session/sql/Catalog.h"

namespace pstolvane1::sql {

// The catalog of the reference schema.
[[nodiscard]] Catalog ReferenceCatalog();

// An in-memory database with the tables that the statements make. The functions of
// SqliteFunctions.h are known by name and arity alone: texts can be prepared, not run.
class PreparingBooks {
 public:
  explicit PreparingBooks(const std::string& statements);

  // "" when SQLite accepts the statement, otherwise SQLite's words.
  [[nodiscard]] std::string WhyNotPrepared(const std::string& statement);
  // The words of EXPLAIN QUERY PLAN, one line each.
  [[nodiscard]] std::string PlanOf(const std::string& statement);

 private:
  struct Closer {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
  };
  std::unique_ptr<sqlite3, Closer> database_;
};

}  // namespace pstolvane1::sql
