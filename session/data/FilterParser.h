// Reads a filter's text into its tree.
#pragma once

#include <cstdint>
#include <string_view>

#include "session/data/CriteriaLexer.h"
#include "session/data/RowFilter.h"

namespace pstolvane1 {

//   filter     = conjunction { Or conjunction }
//   conjunction = term { And term }
//   term       = Not term | "(" filter ")" | comparison
//   comparison = column ( = | <> | < | > | <= | >= ) value | column [Not] Like text
//              | column Is [Not] Null
//   value      = number | 'text' | #date# | True | False | Null
class FilterParser {
 public:
  FilterParser(const RowStore& store, RowFilter& filter, CriteriaText criteria)
      : store_(store), filter_(filter), lexer_(criteria) {}

  // The number of the tree's root. Error 3001 or 3265.
  std::uint32_t ReadWhole();

 private:
  using Node = RowFilter::Node;

  std::uint32_t ReadSequence(Node::Kind kind, bool negated, int depth);
  std::uint32_t ReadTerm(bool negated, int depth);
  std::uint32_t ReadComparison(bool negated);
  FilterOperator ReadOperator(bool& negated, bool& is_null);
  FilterValue ReadValue();
  std::uint32_t AddNode(Node::Kind kind, std::uint32_t first);
  [[noreturn]] void RaiseExpected(std::string_view expected) const;

  const RowStore& store_;
  RowFilter& filter_;
  CriteriaLexer lexer_;
};

}  // namespace pstolvane1
