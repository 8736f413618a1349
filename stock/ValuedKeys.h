// What a method of valuation hands to the statements: its stock keys, and what each is worth.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "session/data/Recordset.h"
#include "stock/StockWriter.h"
#include "valuation/StockFigures.h"

namespace pstolvane1 {

// How the block of an item ends in a detailed statement.
enum class BlockEnd {
  kRuleInHeader,  // GrpLine in the item's own line while there is stock; blocks stand apart
  kRuleLine,      // a rule line and a spacer behind the block; the header takes two DummySorts
};

struct ValuedKeys {
  RecordsetPtr keys;                 // one row a stock key
  std::vector<Recordset::Row> rows;  // those of keys in a statement's order
  // The figures of a row of keys, called once for each row in the statement's order; nothing for a
  // row that the statement passes over.
  std::function<std::optional<StockFigures>(const Recordset::Row&)> value;
  BlockEnd block_end = BlockEnd::kRuleInHeader;
};

}  // namespace pstolvane1
