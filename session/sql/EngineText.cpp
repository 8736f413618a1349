#include "session/sql/EngineText.h"

namespace pstolvane1::sql {
namespace {

std::string WithDoubled(std::string_view text, char quote) {
  std::string quoted(1, quote);
  for (const char c : text) {
    quoted += c;
    if (c == quote) quoted += c;
  }
  return quoted + quote;
}

}  // namespace

std::string QuotedName(std::string_view name) { return WithDoubled(name, '"'); }

std::string QuotedText(std::string_view text) { return WithDoubled(text, '\''); }

std::string_view SignOf(CompareOp op) {
  switch (op) {
    case CompareOp::kEqual:
      return " = ";
    case CompareOp::kNotEqual:
      return " <> ";
    case CompareOp::kLess:
      return " < ";
    case CompareOp::kLessOrEqual:
      return " <= ";
    case CompareOp::kGreater:
      return " > ";
    case CompareOp::kGreaterOrEqual:
      return " >= ";
  }
  return "";
}

}  // namespace pstolvane1::sql
