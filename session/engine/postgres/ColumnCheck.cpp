#include "session/engine/postgres/ColumnCheck.h"

#include <algorithm>

#include "session/sql/EngineText.h"

namespace pstolvane1::postgres {
namespace {

using sql::Type;

std::string KeyOf(const NamedColumn& column) {
  return sql::QuotedName(column.first->schema) + sql::QuotedName(column.first->name) +
         sql::QuotedName(column.second->name);
}

// NaN lies behind all numbers, infinity behind all dates.
std::string WrongText(const sql::CatalogColumn& column) {
  const std::string name = sql::QuotedName(column.name);
  switch (column.type) {
    case Type::kDate:
      return "(" + name + " < '0100-01-01' OR " + name + " >= '10000-01-01')";
    case Type::kMoney:
    case Type::kDecimal:
      return name + column.reading + " IN ('NaN', 'Infinity', '-Infinity')";
    default:
      return name + "::float8 IN ('NaN', 'Infinity', '-Infinity')";
  }
}

}  // namespace

std::vector<NamedColumn> Doubtful(std::span<const NamedColumn> columns) {
  std::vector<NamedColumn> doubtful;
  for (const NamedColumn& column : columns) {
    const Type type = column.second->type;
    const bool number = type >= Type::kMoney && type <= Type::kReal;
    if (number || type == Type::kDate) doubtful.push_back(column);
  }
  return doubtful;
}

std::string WrongValuesText(std::span<const NamedColumn> columns) {
  std::vector<std::size_t> places(columns.size());
  for (std::size_t i = 0; i < places.size(); ++i) places[i] = i;
  std::ranges::stable_sort(places, {}, [&](std::size_t i) { return columns[i].first; });
  std::string text;
  for (auto first = places.begin(); first != places.end();) {
    const sql::CatalogTable* table = columns[*first].first;
    std::string which;
    std::string value;
    std::string any;
    for (; first != places.end() && columns[*first].first == table; ++first) {
      const sql::CatalogColumn& column = *columns[*first].second;
      const std::string wrong = WrongText(column);
      which += " WHEN " + wrong + " THEN " + std::to_string(*first);
      value += " WHEN " + wrong + " THEN " + sql::QuotedName(column.name) + "::text";
      any += (any.empty() ? "" : " OR ") + wrong;
    }
    text += text.empty() ? "" : " UNION ALL ";
    text += "(SELECT CASE" + which + " END, CASE" + value + " END FROM " +
            sql::QuotedName(table->schema) + "." + sql::QuotedName(table->name) + " WHERE " + any +
            " LIMIT 1)";
  }
  return "SELECT * FROM (" + text + ") AS wrong LIMIT 1";
}

TableColumn WhereOf(const NamedColumn& column) {
  return {column.first->name, column.second->name, column.second->type};
}

std::vector<NamedColumn> SoundColumns::Unknown(const std::string& state,
                                               std::span<const NamedColumn> columns) const {
  const std::lock_guard lock(mutex_);
  std::vector<NamedColumn> unknown;
  for (const NamedColumn& column : columns) {
    if (state != state_ || !columns_.contains(KeyOf(column))) unknown.push_back(column);
  }
  return unknown;
}

void SoundColumns::Remember(const std::string& state, std::span<const NamedColumn> columns) {
  const std::lock_guard lock(mutex_);
  if (state != state_) columns_.clear();
  state_ = state;
  for (const NamedColumn& column : columns) columns_.insert(KeyOf(column));
}

}  // namespace pstolvane1::postgres
