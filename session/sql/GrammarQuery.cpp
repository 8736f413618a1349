// SELECT and its clauses, UNION, ORDER BY and the end of the text.
#include <algorithm>
#include <charconv>
#include <iterator>
#include <utility>

#include "session/sql/Grammar.h"
#include "session/sql/Parser.h"

namespace pstolvane1::sql {
namespace {

// Places in the list of clauses that FailBehindQuery names.
enum Clause : std::size_t { kFrom, kWhere, kGroupBy, kHaving, kUnion, kOrderBy, kNoClause };

}  // namespace

Statement Parse(std::string_view text) { return Grammar(text).Read(); }

Query Grammar::ReadQuery(Where where) {
  const Nesting nesting(*this);
  Query query{};
  query.place = Peek().place;
  ReadBranch(query, UnionKind::kFirst);
  while (IsKeyword(Keyword::kUnion)) {
    if (!query.order_by.empty()) {
      Fail(query.order_by[0].value->place, "ORDER BY stands behind the last SELECT of a UNION");
    }
    Take();
    ReadBranch(query, TakeKeyword(Keyword::kAll) ? UnionKind::kAll : UnionKind::kDistinct);
  }
  if (query.branches.size() > Limits::kBranches) {
    Fail(query.place, "a UNION has more than " + std::to_string(Limits::kBranches) + " members");
  }
  if (IsKeyword(Keyword::kOrder)) ReadOrderBy(query, where);
  SetHeight(query);
  return query;
}

// A first branch in parentheses is as if they were not there; UNION joins from left to right.
void Grammar::ReadBranch(Query& query, UnionKind joined_by) {
  if (!IsSign("(") || !EnclosesQuery()) {
    if (!IsKeyword(Keyword::kSelect)) FailExpected("SELECT");
    query.branches.push_back({joined_by, ReadSelect()});
    return;
  }
  const Place place = Take().place;
  Query inner = ReadQuery(Where::kInside);
  if (!TakeSign(")")) FailBehindQuery("\")\"");
  if (joined_by == UnionKind::kFirst) {
    query.branches = std::move(inner.branches);
    query.order_by = std::move(inner.order_by);
    return;
  }
  AddEnclosed(query, joined_by, std::move(inner), place);
}

// What is joined in the same way needs no parentheses: each double row goes, or each stays.
// Otherwise the parentheses are a derived table.
void Grammar::AddEnclosed(Query& query, UnionKind joined_by, Query inner, Place place) {
  const bool alike = std::ranges::all_of(inner.branches, [&](const QueryBranch& branch) {
    return joined_by == UnionKind::kDistinct || branch.joined_by != UnionKind::kDistinct;
  });
  if (alike && inner.order_by.empty()) {
    for (QueryBranch& branch : inner.branches) {
      query.branches.push_back({joined_by, std::move(branch.select)});
    }
    return;
  }
  Select select{};
  select.place = place;
  select.id = statement_.selects++;
  select.items.push_back({nullptr, {}, {}, place});
  select.from.push_back(MakeTable(
      place, DerivedTable{std::make_unique<Query>(std::move(inner)), {"in parentheses", place}}));
  query.branches.push_back({joined_by, std::move(select)});
}

Select Grammar::ReadSelect() {
  Select select{};
  select.place = Take().place;
  select.id = statement_.selects++;
  select.distinct = TakeKeyword(Keyword::kDistinct);
  if (!select.distinct) TakeKeyword(Keyword::kAll);
  if (TakeKeyword(Keyword::kTop)) ReadTop(select);
  ReadItems(select);
  ReadClauses(select);
  return select;
}

void Grammar::ReadTop(Select& select) {
  const bool enclosed = TakeSign("(");
  const Token count = Peek();
  std::int64_t rows = 0;
  const char* end = count.text.data() + count.text.size();
  const auto read = std::from_chars(count.text.data(), end, rows);
  if (count.kind != TokenKind::kNumber || read.ptr != end || read.ec != std::errc()) {
    FailExpected("the number of rows behind TOP, a whole number");
  }
  Take();
  if (enclosed) ExpectSign(")");
  if (IsKeyword(Keyword::kPercent) || IsKeyword(Keyword::kWith)) {
    Fail(Peek().place, "TOP " + count.text + " " + Peek().text + " is not part of the dialect");
  }
  select.top = rows;
}

void Grammar::ReadItems(Select& select) {
  do {
    select.items.push_back(ReadItem());
  } while (TakeSign(","));
  CheckColumns(select.items.size(), select.place);
}

SelectItem Grammar::ReadItem() {
  SelectItem item{};
  item.place = Peek().place;
  if (TakeSign("*")) return item;
  if (IsName() && IsSign(".", 1) && IsSign("*", 2)) {
    item.star_of = ExpectName("a table");
    at_ += 2;
    return item;
  }
  if (IsName() && IsSign("=", 1)) {
    item.alias = ExpectName("an alias");
    Take();
    item.value = ReadValue();
    return item;
  }
  item.value = ReadValue();
  item.alias = ReadItemAlias();
  return item;
}

// With or without AS: a name, or a text in single quotes.
Name Grammar::ReadItemAlias() {
  const bool announced = TakeKeyword(Keyword::kAs);
  if (Peek().kind != TokenKind::kText)
    return announced || IsName() ? ExpectName("an alias") : Name{};
  Token token = Take();
  if (token.text.empty()) Fail(token.place, "an alias cannot be empty");
  if (token.text.size() > Limits::kNameBytes) {
    Fail(token.place, "the name is longer than " + std::to_string(Limits::kNameBytes) + " bytes");
  }
  return {std::move(token.text), token.place};
}

void Grammar::ReadClauses(Select& select) {
  clause_ = kFrom;
  if (TakeKeyword(Keyword::kFrom)) {
    const std::size_t around = std::exchange(tables_, 0);
    do {
      select.from.push_back(ReadTable());
    } while (TakeSign(","));
    if (std::exchange(tables_, around) > Limits::kTables) {
      Fail(select.place, "a FROM has more than " + std::to_string(Limits::kTables) + " tables");
    }
    clause_ = kWhere;
  }
  if (TakeKeyword(Keyword::kWhere)) {
    select.where = ReadCondition();
    clause_ = kGroupBy;
  }
  if (TakeKeyword(Keyword::kGroup)) {
    ExpectKeyword(Keyword::kBy, "BY");
    do {
      select.group_by.push_back(ReadValue());
    } while (TakeSign(","));
    CheckColumns(select.group_by.size(), select.place);
    clause_ = kHaving;
  }
  if (TakeKeyword(Keyword::kHaving)) {
    select.having = ReadCondition();
    clause_ = kUnion;
  }
}

void Grammar::ReadOrderBy(Query& query, Where where) {
  const Place place = Peek().place;
  if (!query.order_by.empty()) Fail(place, "the query has an ORDER BY already");
  Take();
  ExpectKeyword(Keyword::kBy, "BY");
  if (where == Where::kInside && (query.branches.size() > 1 || !query.branches[0].select.top)) {
    Fail(place, "ORDER BY has no meaning in a subquery or a derived table without TOP");
  }
  do {
    OrderItem item{ReadValue()};
    item.descending = TakeKeyword(Keyword::kDesc);
    if (!item.descending) TakeKeyword(Keyword::kAsc);
    query.order_by.push_back(std::move(item));
  } while (TakeSign(","));
  CheckColumns(query.order_by.size(), place);
  clause_ = kNoClause;
}

void Grammar::ReadEnd() {
  const bool closed = TakeSign(";");
  if (Peek().kind == TokenKind::kEnd) return;
  if (closed) {
    Fail(Peek().place, "expected the end of the text behind \";\", found " + Found() +
                           "; the text must be one SELECT");
  }
  FailBehindQuery("the end of the text");
}

QueryPtr Grammar::ReadEnclosedQuery() {
  ExpectSign("(");
  auto query = std::make_unique<Query>(ReadQuery(Where::kInside));
  if (!TakeSign(")")) FailBehindQuery("\")\"");
  return query;
}

void Grammar::SetHeight(Query& query) const {
  std::uint32_t below = 0;
  const auto add = [&below](const auto& part) {
    if (part) below = std::max(below, part->height);
  };
  for (const QueryBranch& branch : query.branches) {
    const Select& select = branch.select;
    for (const SelectItem& item : select.items) add(item.value);
    for (const TableRefPtr& table : select.from) add(table);
    for (const ExprPtr& key : select.group_by) add(key);
    add(select.where);
    add(select.having);
  }
  for (const OrderItem& item : query.order_by) add(item.value);
  query.height = below + 1;
}

}  // namespace pstolvane1::sql
