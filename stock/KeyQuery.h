// The stock keys of a statement with their names and their lines.
#pragma once

#include <string>
#include <string_view>

#include "movements/QueryFilter.h"
#include "stock/StockArguments.h"

namespace pstolvane1 {

// Which items a statement lists.
enum class KeyItems { kAll, kMadeByTheYear };

// The movements that a statement reads.
struct StatementLines {
  QueryFilter filter;      // of all of them
  std::string_view order;  // in the key's lines
  std::string in_keys;     // the condition of those that make a stock key
  std::string condition;   // and of those that are read
  std::string line;        // what a line is, in one number: cells are what a line costs
  std::string_view worth;  // its rate or amount, with its name
  bool by_year = false;    // a key of each year
};

// A shape command. One row an item, godown and batch if the item and the godown are not deleted:
// the ids, under a tree ItemCategory_Id, ITEMNAME, GODOWNNAME, BATCHCODE, MAINTAINBATCHES, UOMNAME,
// ALTUOMNAME, RELATIONFORMULA, and YEARNO where it has a key of each year. In no order: see
// KeyOrder. The names are joined to the keys, which are few beside the movements. The chapter
// CHPTRANS has the key's lines: LINE, YEARNO, QUANTITY and what the line is worth. Not normalised.
[[nodiscard]] std::string ComposeKeysWithLines(const StockArguments& arguments, KeyItems items,
                                               const StatementLines& lines);

}  // namespace pstolvane1
