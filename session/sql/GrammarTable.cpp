// What stands in FROM: tables, derived tables and their joins.
#include <algorithm>

#include "session/sql/Grammar.h"

namespace pstolvane1::sql {
namespace {

struct HeightBelow {
  std::uint32_t operator()(const NamedTable&) const { return 0; }
  std::uint32_t operator()(const DerivedTable& table) const { return table.query->height; }
  std::uint32_t operator()(const Join& join) const {
    return std::max({join.left->height, join.right->height, join.on ? join.on->height : 0});
  }
};

}  // namespace

TableRefPtr Grammar::MakeTable(Place place, TableRef::Node node) {
  const std::uint32_t height = 1 + std::visit(HeightBelow(), node);
  if (height > Limits::kHeight) {
    Fail(place, "tables nest more than " + std::to_string(Limits::kHeight) + " levels deep");
  }
  return std::make_unique<TableRef>(TableRef{std::move(node), place, statement_.tables++, height});
}

// An ON belongs to the nearest join that has none yet: in "a join b join c on p on q" the right
// side of the first join is "b join c on p".
TableRefPtr Grammar::ReadTable() {
  const Nesting nesting(*this);
  TableRefPtr left = ReadSingleTable();
  Join join{};
  for (Place place = Peek().place; TakeJoin(join.kind); place = Peek().place) {
    join.left = std::move(left);
    if (join.kind == JoinKind::kCross) {
      join.right = ReadSingleTable();
    } else {
      join.right = ReadTable();
      ExpectKeyword(Keyword::kOn, "ON of the join");
      join.on = ReadCondition();
    }
    left = MakeTable(place, std::move(join));
    join = Join{};
  }
  return left;
}

// "inner join", "left outer join" and so on; a bare "join" is inner.
bool Grammar::TakeJoin(JoinKind& kind) {
  switch (Peek().keyword) {
    case Keyword::kJoin:
    case Keyword::kInner:
      kind = JoinKind::kInner;
      break;
    case Keyword::kLeft:
      kind = JoinKind::kLeft;
      break;
    case Keyword::kRight:
      kind = JoinKind::kRight;
      break;
    case Keyword::kFull:
      kind = JoinKind::kFull;
      break;
    case Keyword::kCross:
      kind = JoinKind::kCross;
      break;
    default:
      return false;
  }
  const Keyword first = Take().keyword;
  if (first == Keyword::kJoin) return true;
  const bool outer = first != Keyword::kInner && first != Keyword::kCross;
  if (outer) TakeKeyword(Keyword::kOuter);
  ExpectKeyword(Keyword::kJoin, "JOIN");
  return true;
}

TableRefPtr Grammar::ReadSingleTable() {
  if (!IsSign("(")) return ReadNamedTable();
  const Place place = Peek().place;
  if (EnclosesQuery()) {
    ++tables_;
    QueryPtr query = ReadEnclosedQuery();
    Name alias = ReadTableAlias();
    if (!alias) FailExpected("the alias that a derived table needs");
    return MakeTable(place, DerivedTable{std::move(query), std::move(alias)});
  }
  ExpectSign("(");
  TableRefPtr inside = ReadTable();
  if (!IsSign(")")) FailExpected("a join or \")\"");
  Take();
  return inside;
}

TableRefPtr Grammar::ReadNamedTable() {
  ++tables_;
  const Place place = Peek().place;
  Name table = ExpectName("a table");
  if (IsSign(".")) Fail(place, "a table has one name; no database or owner stands in front of it");
  Name alias = ReadTableAlias();
  return MakeTable(place, NamedTable{std::move(table), std::move(alias)});
}

Name Grammar::ReadTableAlias() {
  const bool announced = TakeKeyword(Keyword::kAs);
  return announced || IsName() ? ExpectName("an alias") : Name{};
}

}  // namespace pstolvane1::sql
