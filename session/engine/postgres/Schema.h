// What the tables and views of a PostgreSQL database look like to the front end.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "session/engine/postgres/Database.h"
#include "session/sql/Catalog.h"
#include "session/sql/Translate.h"

namespace pstolvane1::postgres {

// Quantities have 32 bits of meaning and are stored as float8, so that 0.1 is the same 0.1 on every
// engine. This is the domain under which the reference schema keeps them, and the comment that a
// plain float8 column has instead: one of a domain of its own is never summed on another server.
inline constexpr std::string_view kSingleMark = "single";

// One column as the server describes it: the name of its type, of its domain or else its comment,
// and the type's modifier. Empty for a type that has no meaning in the dialect.
[[nodiscard]] std::optional<sql::CatalogColumn> ColumnOf(std::string_view name,
                                                         std::string_view type,
                                                         std::string_view mark, int modifier);

// Whether the texts of the session's database may hold every character.
[[nodiscard]] sql::Characters TextCharactersOf(const pg_conn* session);

// The schemas of the books, in the order in which tables are looked for in them, as an expression.
// Valid in the sessions of Database, which find nothing but the server's own by a name alone.
inline constexpr const char* kBooksSchemas = "current_setting('pstolvane1.schemas')::name[]";

// The tables and views of the schemas of the books, the server's own left out, and parts of
// partitioned tables. Columns of types that the dialect does not have are left out.
[[nodiscard]] sql::Catalog ReadCatalog(Database& database, Watch& watch);

// An expression of the server whose value changes with what ReadCatalog would find.
inline constexpr const char* kSchemaVersion =
    "(SELECT count(*) || '/' || coalesce(sum(a.xmin::text::bigint + c.xmin::text::bigint +"
    " a.attrelid::bigint), 0) FROM pg_namespace n JOIN pg_class c ON c.relnamespace = n.oid"
    " JOIN pg_attribute a ON a.attrelid = c.oid WHERE n.nspname ="
    " ANY (current_setting('pstolvane1.schemas')::name[]) AND a.attnum > 0 AND c.relkind IN"
    " ('r', 'v', 'm', 'f', 'p') AND NOT c.relispartition)";

}  // namespace pstolvane1::postgres
