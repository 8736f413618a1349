// Names of keys and trees of groups, read from the books.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "automation/Masters.h"
#include "automation/ReportTitles.h"
#include "session/data/Recordset.h"

namespace pstolvane1::automation {

// Opens one SELECT on the books. Errors are its own.
using BooksReader = std::function<RecordsetPtr(const std::string& select)>;

// "" for a key that the books lack; several names where a key has several, with commas between.
[[nodiscard]] std::string NameOfKey(const BooksReader& read, const Master& names, std::int32_t key);
// The key of the group above, of each group that has one.
[[nodiscard]] std::map<std::int64_t, std::int64_t> GroupsAbove(const BooksReader& read,
                                                               const Master& groups);

// Both, read when they are asked for; nothing where books made elsewhere lack a list of names or a
// tree. Good as long as the reader.
[[nodiscard]] KeysOfBooks KeysReadBy(BooksReader read);

}  // namespace pstolvane1::automation
