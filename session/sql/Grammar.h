// The parser's inside: recursive descent over the tokens, one member function per rule.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "session/sql/Ast.h"
#include "session/sql/Lexer.h"

namespace pstolvane1::sql {

// Reads one text once. Rules of expressions are defined in GrammarExpression.cpp and
// GrammarPrimary.cpp, of tables in GrammarTable.cpp, of queries in GrammarQuery.cpp.
class Grammar {
 public:
  explicit Grammar(std::string_view text);
  Statement Read() &&;  // once

 private:
  // Every rule that can contain itself holds one of these, so that no text can exhaust the stack.
  class Nesting {
   public:
    explicit Nesting(Grammar& grammar);
    ~Nesting() { --grammar_.nesting_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

   private:
    Grammar& grammar_;
  };

  // --- Tokens
  const Token& Peek(std::size_t ahead = 0) const;
  bool IsKeyword(Keyword keyword, std::size_t ahead = 0) const;
  bool IsSign(std::string_view sign, std::size_t ahead = 0) const;
  Token Take();
  bool TakeKeyword(Keyword keyword);
  bool TakeSign(std::string_view sign);
  void ExpectKeyword(Keyword keyword, std::string_view spelled);
  void ExpectSign(std::string_view sign);
  Name ExpectName(std::string_view what);
  std::string Found() const;
  [[noreturn]] void Fail(Place place, std::string_view why) const;
  [[noreturn]] void FailExpected(std::string_view what, std::string_view remark = {}) const;
  // Where another clause could stand: what of them, or closing, was expected.
  [[noreturn]] void FailBehindQuery(std::string_view closing) const;
  // Whether the "(" ahead encloses a query, and not a value, a condition or a table.
  bool EnclosesQuery() const;
  void CheckColumns(std::size_t count, Place place) const;

  // --- Expressions
  ExprPtr Make(Place place, Expr::Node node);
  ExprPtr ReadValue();
  ExprPtr ReadCondition();
  ExprPtr ReadExpression();  // of either kind
  ExprPtr ReadChain(LogicalOp op);
  ExprPtr ReadNot();
  ExprPtr ReadPredicate();
  ExprPtr ReadComparison(ExprPtr left);
  ExprPtr ReadAfterIs(ExprPtr operand);
  ExprPtr ReadIn(ExprPtr operand, bool negated);
  ExprPtr ReadBetween(ExprPtr operand, bool negated);
  ExprPtr ReadLike(ExprPtr operand, bool negated);
  ExprPtr ReadSum();
  ExprPtr ReadProduct();
  ExprPtr ReadSigned();
  ExprPtr ReadPrimary();
  ExprPtr ReadParenthesis();
  ExprPtr ReadKeywordPrimary();
  ExprPtr ReadCase();
  ExprPtr ReadCast();
  TypeName ReadTypeName();
  int ReadTypeSize();
  bool IsQuoted(const Name& name) const;
  [[noreturn]] void FailExpectedOperand() const;
  ExprPtr ReadCall(Name function);
  ExprPtr ReadNamed();
  // The same expression, refused where it is of the other kind; start is its first token's place.
  ExprPtr AsValue(ExprPtr expression, Place start) const;
  ExprPtr AsCondition(ExprPtr expression, Place start) const;

  // --- Tables
  TableRefPtr MakeTable(Place place, TableRef::Node node);
  TableRefPtr ReadTable();  // with its joins
  TableRefPtr ReadSingleTable();
  TableRefPtr ReadNamedTable();
  bool TakeJoin(JoinKind& kind);
  Name ReadTableAlias();
  bool IsName() const;

  // --- Queries
  enum class Where { kStatement, kInside };
  Query ReadQuery(Where where);
  void AddEnclosed(Query& query, UnionKind joined_by, Query inner, Place place);
  void ReadBranch(Query& query, UnionKind joined_by);
  Select ReadSelect();
  void ReadTop(Select& select);
  void ReadItems(Select& select);
  SelectItem ReadItem();
  Name ReadItemAlias();
  void ReadClauses(Select& select);
  void ReadOrderBy(Query& query, Where where);
  void ReadEnd();
  QueryPtr ReadEnclosedQuery();  // with its parentheses
  void SetHeight(Query& query) const;

  Statement statement_;
  std::vector<Token> tokens_;
  std::size_t at_ = 0;
  std::uint32_t nesting_ = 0;
  std::size_t tables_ = 0;            // so far in the FROM that is read
  std::vector<std::size_t> closing_;  // of each "(" the token of its ")", or the last token
  std::size_t condition_at_;          // the last token at which a condition had to begin
  std::size_t clause_ = 0;            // of the select that is read: its next possible clause
};

}  // namespace pstolvane1::sql
