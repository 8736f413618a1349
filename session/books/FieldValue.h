// A text field of an import as a value of its column.
#pragma once

#include <string>

#include "session/books/CsvReader.h"
#include "session/books/Schema.h"
#include "session/books/Writer.h"

namespace pstolvane1::books {

// Binds the field as the column keeps it, Null where nothing stands in it. Empty when that went
// well, otherwise the reason: "abc" is not a whole number. The field must live until the statement
// ran.
[[nodiscard]] std::string BindField(const CsvField& field, const Column& column,
                                    Statement& statement, int place);

}  // namespace pstolvane1::books
