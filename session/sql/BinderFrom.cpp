#include <algorithm>

#include "session/sql/Binder.h"
#include "session/sql/Names.h"

namespace pstolvane1::sql {
namespace {

std::string FullName(const bound::Source& source, std::size_t column) {
  return Quoted(source.name) + "." + Quoted(source.columns[column].name);
}

std::optional<std::size_t> FindColumn(const bound::Source& source, std::string_view name) {
  for (std::size_t i = 0; i < source.columns.size(); ++i) {
    if (SameName(source.columns[i].name, name)) return i;
  }
  return std::nullopt;
}

// What is wrong with a column that is there and that the dialect has no type for; empty for others.
std::string WhyUnread(const bound::Source& source, std::string_view column) {
  const std::string_view type =
      source.table == nullptr ? std::string_view{} : source.table->UnreadType(column);
  if (type.empty()) return "";
  return "the column " + Quoted(column) + " of " + Quoted(source.table->name) + " has the type " +
         Quoted(type) + ", which is none that the reports can read";
}

bound::FromPtr MakeFrom(std::unique_ptr<bound::Source> source) {
  auto from = std::make_unique<bound::From>();
  from->node = std::move(source);
  return from;
}

}  // namespace

bound::FromPtr Binder::BindFrom(const TableRef& table, const Scope* outer, Scope& visible) {
  if (const auto* join = table.As<Join>()) {
    Scope joined{outer, {}};
    bound::Join bound{join->kind, nullptr, nullptr, nullptr};
    bound.left = BindFrom(*join->left, outer, joined);
    bound.right = BindFrom(*join->right, outer, joined);
    if (join->on) bound.on = BindCondition(*join->on, {&joined, nullptr, Clause::kOn});
    for (const bound::Source* source : joined.sources) {
      const bool twice = std::ranges::any_of(visible.sources, [&](const bound::Source* other) {
        return SameName(other->name, source->name);
      });
      if (twice) {
        Refuse(table.place,
               Quoted(source->name) + " stands twice in the FROM: give one of them another alias");
      }
      visible.sources.push_back(source);
    }
    auto from = std::make_unique<bound::From>();
    from->node = std::move(bound);
    return from;
  }
  auto source = std::make_unique<bound::Source>();
  Place place = table.place;
  if (const auto* named = table.As<NamedTable>()) {
    source->table = catalog_.Find(named->table.text);
    if (source->table == nullptr) {
      Refuse(named->table.place, "unknown table " + Quoted(named->table.text));
    }
    source->name = named->alias ? named->alias.text : source->table->name;
    if (named->alias) place = named->alias.place;
    for (const CatalogColumn& column : source->table->columns) {
      source->columns.push_back({column.name, TypeOfColumn(column)});
    }
  } else {
    const auto& derived = *table.As<DerivedTable>();
    source->name = derived.alias.text;
    place = derived.alias.place;
    source->query =
        std::make_unique<bound::Query>(BindQuery(*derived.query, outer, Role::kDerivedTable));
    CheckDerivedColumns(*derived.query, *source->query, derived.alias);
    source->columns = source->query->columns;
  }
  for (const bound::Source* other : visible.sources) {
    if (!SameName(other->name, source->name)) continue;
    Refuse(place,
           Quoted(source->name) + " stands twice in the FROM: give one of them another alias");
  }
  visible.sources.push_back(source.get());
  return MakeFrom(std::move(source));
}

bound::ExprPtr Binder::MakeColumn(const bound::Source& source, std::size_t index, Place place) {
  if (source.table != nullptr) {
    const std::pair named(source.table, &source.table->columns[index]);
    if (std::ranges::find(named_, named) == named_.end()) named_.push_back(named);
  }
  return MakeExpr(bound::Column{&source, index}, source.columns[index].type, place);
}

bound::ExprPtr Binder::ResolveColumn(const ColumnRef& column, Place place, const Scope& scope) {
  for (const Scope* at = &scope; at != nullptr; at = at->outer) {
    const bound::Source* found = nullptr;
    std::size_t index = 0;
    for (const bound::Source* source : at->sources) {
      if (column.table && !SameName(source->name, column.table.text)) continue;
      const std::optional<std::size_t> here = FindColumn(*source, column.column.text);
      if (column.table && !here) {
        const std::string why = WhyUnread(*source, column.column.text);
        if (!why.empty()) Refuse(column.column.place, why);
        Refuse(column.column.place,
               Quoted(source->name) + " has no column " + Quoted(column.column.text));
      }
      if (!here) continue;
      if (found != nullptr) {
        Refuse(place, Quoted(column.column.text) + " is ambiguous: " + FullName(*found, index) +
                          " or " + FullName(*source, *here));
      }
      found = source;
      index = *here;
    }
    if (found != nullptr) return MakeColumn(*found, index, place);
  }
  if (column.table) {
    Refuse(column.table.place, "unknown table or alias " + Quoted(column.table.text));
  }
  for (const Scope* at = &scope; at != nullptr; at = at->outer) {
    for (const bound::Source* source : at->sources) {
      const std::string why = WhyUnread(*source, column.column.text);
      if (!why.empty()) Refuse(place, why);
    }
  }
  Refuse(place, "unknown column " + Quoted(column.column.text));
}

}  // namespace pstolvane1::sql
