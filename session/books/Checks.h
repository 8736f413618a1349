// The parts of CheckBooks; each adds what it finds.
#pragma once

#include <string>
#include <vector>

#include "session/books/CheckBooks.h"
#include "session/books/Reader.h"

namespace pstolvane1::books {

using Findings = std::vector<Finding>;

// Tables, columns and their types. False when something that a check of the data needs is missing.
bool CheckTables(Reader& books, Findings& findings);
void CheckIndexes(Reader& books, Findings& findings);

// With complete false, a check that needs a missing table or column is skipped.
void CheckReferences(Reader& books, bool complete, Findings& findings);
void CheckValues(Reader& books, bool complete, Findings& findings);
// The rules about rows that no report reads, each with the keys of its rows.
void CheckUnread(Reader& books, Findings& findings);
void CheckRules(Reader& books, bool complete, Findings& findings);
void CheckYears(Reader& books, bool complete, Findings& findings);
void CheckTrees(Reader& books, bool complete, Findings& findings);

// "1 row", "12 rows".
[[nodiscard]] std::string Counted(long long count, std::string_view one, std::string_view many);

}  // namespace pstolvane1::books
