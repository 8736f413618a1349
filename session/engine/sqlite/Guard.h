// What a statement of the reports may do: select from the tables and views of the books.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "session/engine/WrongValue.h"
#include "session/sql/Catalog.h"

struct sqlite3;

namespace pstolvane1::sqlite {

// The engine asks it while a statement is prepared. It stands behind the front end, which refuses
// the same with better words; a text that gets past the one is still stopped here. Belongs to one
// connection and is used under that connection's lock.
class Guard {
 public:
  // From now on every statement of the connection needs a permission: a catalog for statements of
  // the reports, or Own for the library's. The guard must outlive the connection.
  void StandAt(sqlite3* database);

  // For the statements prepared while it lives: they read the tables of the catalog, or, without
  // one, do what the library itself does on a connection.
  class Permission {
   public:
    Permission(Guard& guard, const sql::Catalog* catalog);
    ~Permission();
    Permission(const Permission&) = delete;
    Permission& operator=(const Permission&) = delete;

   private:
    Guard& guard_;
  };

  // The columns of tables that the statements have named since ClearTouched, those that their views
  // name among them; views themselves are none. Each once.
  [[nodiscard]] const std::vector<TableColumn>& Touched() const { return touched_; }
  void ClearTouched() { touched_.clear(); }

  // Why the last statement was refused; empty if it was not.
  [[nodiscard]] const std::string& Refusal() const { return refusal_; }
  // Whether it had no memory to answer, and therefore refused.
  [[nodiscard]] bool RanOut() const { return ran_out_; }

 private:
  static int Ask(void* guard, int action, const char* first, const char* second,
                 const char* database, const char* view) noexcept;
  void Note(const sql::CatalogTable& table, std::string_view column);
  bool Allows(int action, std::string_view first, std::string_view second, std::string_view place);

  const sql::Catalog* catalog_ = nullptr;
  bool own_ = false;
  std::string refusal_;
  bool ran_out_ = false;
  std::vector<TableColumn> touched_;
};

// Whether a statement may call the function by its own text; views of the books may call any that
// reads nothing beyond its arguments. Any case.
[[nodiscard]] bool IsAllowedFunction(std::string_view name);

}  // namespace pstolvane1::sqlite
