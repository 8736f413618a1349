// Cuts a text of the dialect into words, numbers, texts and signs.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "session/sql/Ast.h"

namespace pstolvane1::sql {

enum class TokenKind : std::uint8_t {
  kEnd,
  kWord,        // a name without quotes; keyword tells whether it is reserved
  kQuotedName,  // [name] or "name"
  kText,        // 'text'
  kNumber,
  kSign,  // one of ( ) , . ; = <> < <= > >= + - * / %
};

// Words that cannot be a bare name. Their order is that of the table in Lexer.cpp.
enum class Keyword : std::uint8_t {
  kNone,
  kAll,
  kAlter,
  kAnd,
  kAny,
  kAs,
  kAsc,
  kBegin,
  kBetween,
  kBy,
  kCase,
  kCast,
  kCommit,
  kCompute,
  kCreate,
  kCross,
  kDeclare,
  kDelete,
  kDesc,
  kDistinct,
  kDrop,
  kElse,
  kEnd,
  kEscape,
  kExcept,
  kExec,
  kExecute,
  kExists,
  kFalse,
  kFor,
  kFrom,
  kFull,
  kGrant,
  kGroup,
  kHaving,
  kIn,
  kInner,
  kInsert,
  kIntersect,
  kInto,
  kIs,
  kJoin,
  kLeft,
  kLike,
  kMerge,
  kNot,
  kNull,
  kOn,
  kOption,
  kOr,
  kOrder,
  kOuter,
  kPercent,
  kRevoke,
  kRight,
  kRollback,
  kSelect,
  kSet,
  kSome,
  kThen,
  kTop,
  kTrue,
  kTruncate,
  kUnion,
  kUpdate,
  kUse,
  kValues,
  kWhen,
  kWhere,
  kWith,
};

struct Token {
  TokenKind kind = TokenKind::kEnd;
  Keyword keyword = Keyword::kNone;
  NumberLiteral::Form form = NumberLiteral::Form::kWhole;  // of a number
  Place place = 0;
  Place end = 0;     // behind its last byte
  std::string text;  // a name or text without quotes and with doubled ones undone; else as written
};

// The tokens in order, the last one of kind kEnd at the end of the text. Comments and blanks are
// dropped. Error -2147217900 for a sign that the dialect does not have, an unterminated text or
// name, what is not UTF-8 and what exceeds the limits on bytes, tokens and names.
[[nodiscard]] std::vector<Token> Tokenize(std::string_view text);

// kNone for a word that may be a name; any case.
[[nodiscard]] Keyword KeywordOf(std::string_view word);

// Whether the word can stand as a name without brackets.
[[nodiscard]] bool IsBareName(std::string_view word);

}  // namespace pstolvane1::sql
