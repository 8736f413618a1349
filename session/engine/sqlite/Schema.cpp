#include "session/engine/sqlite/Schema.h"

#include <algorithm>
#include <optional>
#include <sqlite3.h>
#include <string>
#include <utility>
#include <vector>

#include "session/engine/sqlite/Errors.h"

namespace pstolvane1::sqlite {
namespace {

constexpr const char* kDoing = "reading the schema of the books";

struct Described {
  struct Column {
    std::string name;
    std::string declared;
    std::optional<sql::CatalogColumn> typed;
  };
  std::string name;
  std::string view;  // its SELECT; empty for a table
  std::vector<Column> columns;

  [[nodiscard]] bool IsTyped() const {
    return std::all_of(columns.begin(), columns.end(),
                       [](const Column& column) { return column.typed.has_value(); });
  }
  [[nodiscard]] sql::CatalogTable Table() const {
    sql::CatalogTable table{.name = name, .columns = {}};
    table.is_view = !view.empty();
    for (const Column& column : columns) {
      if (column.typed) {
        table.columns.push_back(*column.typed);
      } else if (!column.declared.empty()) {
        table.unread.emplace_back(column.name, column.declared);
      }
    }
    return table;
  }
};

std::string TextOf(sqlite3_stmt* statement, int column) {
  const unsigned char* text = sqlite3_column_text(statement, column);
  return text == nullptr ? std::string()
                         : std::string(static_cast<const char*>(static_cast<const void*>(text)));
}

std::vector<Described> NamesOf(Database& database) {
  // "_" is a wildcard, and only the engine's own names begin with "sqlite_".
  const NativeStatement statement = database.Prepare(
      "SELECT name, CASE type WHEN 'view' THEN sql END FROM sqlite_schema WHERE type IN ('table', "
      "'view') AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY name");
  std::vector<Described> names;
  while (database.Step(statement.get(), kDoing)) {
    names.push_back({.name = TextOf(statement.get(), 0),
                     .view = std::string(BodyOfView(TextOf(statement.get(), 1))),
                     .columns = {}});
  }
  return names;
}

// False for a view that refers to what there is not, or a table of a module that is not here: it
// does not stop the books from being opened.
bool ReadColumns(Database& database, sqlite3_stmt* columns, Described& table) {
  sqlite3_bind_text(columns, 1, table.name.c_str(), -1, SQLITE_TRANSIENT);
  int code = sqlite3_step(columns);
  for (; code == SQLITE_ROW; code = sqlite3_step(columns)) {
    std::string name = TextOf(columns, 0);
    std::string declared = TextOf(columns, 1);
    std::optional<sql::CatalogColumn> typed = sql::ColumnOfDeclaration(name, declared);
    table.columns.push_back({std::move(name), std::move(declared), std::move(typed)});
  }
  if (code != SQLITE_DONE && Classify(code) != Failure::kOther) throw database.Failed(code, kDoing);
  sqlite3_reset(columns);
  return code == SQLITE_DONE;
}

sql::Catalog CatalogOf(const std::vector<Described>& tables) {
  std::vector<sql::CatalogTable> described;
  described.reserve(tables.size());
  for (const Described& table : tables) described.push_back(table.Table());
  return sql::Catalog(std::move(described));
}

sql::Type TypeOfExpression(sql::Type found) {
  switch (found) {
    case sql::Type::kNull:
    case sql::Type::kText:
    case sql::Type::kFlag:
    case sql::Type::kDate:
      return found;
    default:
      return sql::Type::kReal;
  }
}

// True when it has given a type to a column that had none.
bool TypeExpressions(Described& view, const Translator& translate, const sql::Catalog& catalog) {
  std::vector<sql::ResultColumn> found;
  try {
    found = translate(view.view, catalog).columns;
  } catch (const Error&) {
    return false;  // a view need not be of the dialect
  }
  if (found.size() != view.columns.size()) return false;
  for (std::size_t i = 0; i < found.size(); ++i) {
    Described::Column& column = view.columns[i];
    if (column.typed) continue;
    column.typed = sql::CatalogColumn{.name = column.name,
                                      .type = TypeOfExpression(found[i].type),
                                      .size = found[i].size,
                                      .date_has_time = true};
  }
  return true;
}

bool IsNameCharacter(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
         c == '$' || (static_cast<unsigned char>(c) & 0x80U) != 0;
}

// Where the quoted text, comment or parenthesis that begins there has ended; the place itself when
// nothing of that kind begins.
std::size_t BehindQuoted(std::string_view text, std::size_t at) {
  const auto behind = [&](std::string_view end, std::size_t from) {
    const std::size_t found = text.find(end, from);
    return found == text.npos ? text.size() : found + end.size();
  };
  switch (text[at]) {
    case '\'':
    case '"':
    case '`':
      return behind(text.substr(at, 1), at + 1);
    case '[':
      return behind("]", at + 1);
    case '(':
      return behind(")", at + 1);
    case '-':
      return text.substr(at, 2) == "--" ? behind("\n", at) : at;
    case '/':
      return text.substr(at, 2) == "/*" ? behind("*/", at + 2) : at;
    default:
      return at;
  }
}

}  // namespace

std::string_view BodyOfView(std::string_view create) {
  for (std::size_t at = 0; at < create.size();) {
    if (const std::size_t behind = BehindQuoted(create, at); behind != at) {
      at = behind;
      continue;
    }
    std::size_t end = at;
    while (end < create.size() && IsNameCharacter(create[end])) ++end;
    if (end - at == 2 && (create[at] | 0x20) == 'a' && (create[at + 1] | 0x20) == 's') {
      return create.substr(end);
    }
    at = std::max(end, at + 1);
  }
  return {};
}

sql::Catalog ReadCatalog(Database& database, const Translator& translate, Watch& watch) {
  const Database::Running running(database, watch);
  const NativeStatement columns =
      database.Prepare("SELECT name, type FROM pragma_table_xinfo(?1) WHERE hidden <> 1");
  std::vector<Described> tables = NamesOf(database);
  std::erase_if(tables,
                [&](Described& table) { return !ReadColumns(database, columns.get(), table); });
  // A view may stand on another one, so this goes on as long as it finds something.
  for (bool found = true; found;) {
    found = false;
    const sql::Catalog catalog = CatalogOf(tables);
    for (Described& table : tables) {
      if (table.view.empty() || table.IsTyped()) continue;
      found = TypeExpressions(table, translate, catalog) || found;
    }
  }
  return CatalogOf(tables);
}

}  // namespace pstolvane1::sqlite
