// What the books know of names, keys and years, for a call in words.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "automation/BooksKeys.h"
#include "automation/Masters.h"
#include "session/data/Connection.h"
#include "session/data/Date.h"
#include "session/data/Recordset.h"

namespace pstolvane1::host {

// An accounting year with movements: its number, and the days from which and to which it goes.
struct AccountingYear {
  std::int32_t number;
  Date first, last;
};

// Reads the books with a connection of its own, which is opened by the first question. Errors are
// the connection's.
class BooksLookup {
 public:
  explicit BooksLookup(std::string connection) : connection_(std::move(connection)) {}

  // WrongCall when no name or several fit; it lists what is like it.
  [[nodiscard]] std::int32_t KeyOf(const automation::Master& names, const std::string& name);
  // "" for a key that the books lack; several names where a key has several, with commas between.
  [[nodiscard]] std::string NameOf(const automation::Master& names, std::int32_t key);
  // Names and groups above for the look of a report, nothing where books made elsewhere lack them.
  // Good as long as the lookup.
  [[nodiscard]] automation::KeysOfBooks Keys();
  [[nodiscard]] bool HasKey(const automation::Master& names, std::int32_t key);
  // Key and name by name, those that hold the text in any case; "" is all. Deleted ones are left
  // out.
  [[nodiscard]] RecordsetPtr List(const automation::Master& names, const std::string& text);
  // Oldest first. Years begin in the month that all movements agree with, April before others;
  // where none does, a year goes from its first movement to its last.
  [[nodiscard]] const std::vector<AccountingYear>& Years();

 private:
  [[nodiscard]] RecordsetPtr Open(const std::string& select);
  // Good as long as the lookup.
  [[nodiscard]] automation::BooksReader Reader() {
    return [this](const std::string& select) { return Open(select); };
  }

  std::string connection_;
  std::shared_ptr<Connection> books_;
  std::optional<std::vector<AccountingYear>> years_;
};

}  // namespace pstolvane1::host
