#include "session/sql/Translate.h"

#include "session/sql/Binder.h"
#include "session/sql/Parser.h"
#include "session/sql/PostgresEmitter.h"
#include "session/sql/SqliteEmitter.h"

namespace pstolvane1::sql {

namespace {

template <typename Emit>
Translation TranslateWith(std::string_view select, const Catalog& catalog, const Emit& emit) {
  const Statement statement = Parse(select);
  const bound::Query query = Bind(statement, catalog);
  Translation translation;
  translation.text = emit(query, statement);
  for (const bound::SourceColumn& column : query.columns) {
    // The word NULL alone counts as a whole number.
    const Type type = column.type.type == Type::kNull ? Type::kWhole : column.type.type;
    translation.columns.push_back({column.name, type, column.type.size});
  }
  translation.named = query.named;
  return translation;
}

}  // namespace

Translation TranslateForSqlite(std::string_view select, const Catalog& catalog) {
  return TranslateWith(select, catalog, [](const bound::Query& query, const Statement&) {
    return EmitSqlite(query);
  });
}

Translation TranslateForPostgres(std::string_view select, const Catalog& catalog) {
  return TranslateWith(select, catalog, [&](const bound::Query& query, const Statement& statement) {
    return EmitPostgres(query, statement, catalog.TextCharacters());
  });
}

}  // namespace pstolvane1::sql
