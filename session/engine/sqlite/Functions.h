// The functions, aggregates and the collation that the text for SQLite relies on.
#pragma once

#include <optional>
#include <span>

#include "session/data/Error.h"
#include "session/engine/sqlite/FunctionCall.h"

struct sqlite3;

namespace pstolvane1::sqlite {

// Makes all that session/sql/SqliteFunctions.h names known to a connection. A function that fails
// leaves its error at failure, which must outlive the connection. Error 501 if the engine refuses.
void RegisterFunctions(sqlite3* database, std::optional<Error>& failure);

// The tables of which RegisterFunctions is made.
[[nodiscard]] std::span<const ScalarFunction> NumberFunctions();
[[nodiscard]] std::span<const ScalarFunction> ConversionFunctions();
[[nodiscard]] std::span<const ScalarFunction> DateFunctions();
[[nodiscard]] std::span<const ScalarFunction> TextFunctions();
[[nodiscard]] std::span<const AggregateFunction> AggregateFunctions();

}  // namespace pstolvane1::sqlite
