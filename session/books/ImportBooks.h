// Books from files of comma-separated text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pstolvane1::books {

struct ImportedTable {
  std::string_view table;
  std::int64_t rows = 0;
};

// Reads every TABLE.csv of the folder into the table of that name, in books that are made for it or
// that exist already, in a file or on a server, all of it or nothing: on an error new books vanish
// and existing ones are as they were. Gives the tables that had a file, in the schema's order.
//
// A file has a header with column names in any order and case; columns left out are Null. A field
// with nothing in it is Null, "" is an empty text. Whole numbers have 32 bits; flags are true,
// false, 1, 0 and -1; amounts have at most four decimals; dates are ISO dates, with a time only
// where the column has one; text is UTF-8 and not longer than its column.
//
// Error 13, "FILE:LINE:COLUMN: REASON", for what cannot be read or does not fit; 501 for books or a
// folder that cannot be opened or have no such file.
std::vector<ImportedTable> ImportBooks(const std::string& connection, const std::string& folder);

}  // namespace pstolvane1::books
