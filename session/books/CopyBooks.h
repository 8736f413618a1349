// Books from one engine to another.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "session/books/ImportBooks.h"

namespace pstolvane1::books {

// Called before each table is read, again with every few thousand rows, and when the table is
// indexed. What it throws ends the copy, and nothing of it stays.
using CopyProgress = std::function<void(std::string_view table)>;

// What the first books have beside the tables and columns of the reference schema.
enum class Extras {
  kRefused,  // is an error that names it
  kLeftOut,
};

// The tables ("Notes") and columns ("Items1.Shelf") of these books that the reference schema does
// not have, by name: aliases and conditions of a host may use them. Error 501.
[[nodiscard]] std::vector<std::string> ExtrasOf(const std::string& connection_string);

// Makes the books that the second connection names, with the reference schema, and fills them with
// the rows of the first ones: all tables and columns of the reference schema that those have, as
// they are in one moment. All of it or nothing. Gives the tables that were there, in the schema's
// order.
//
// Error 501 when the first cannot be read, when the second exists already or cannot be written, and
// for what does not fit there, such as a text that is longer than its column. Error 3001 for extras
// that are refused. A text in a column of whole numbers is told with its table, key and column.
std::vector<ImportedTable> CopyBooks(const std::string& from, const std::string& to,
                                     const CopyProgress& progress = {},
                                     Extras extras = Extras::kRefused);

class ServerWriter;

// Adds the rows of these tables of a file of books to those on a server.
void CopyRows(const std::string& path, const std::vector<ImportedTable>& tables,
              ServerWriter& writer);

}  // namespace pstolvane1::books
