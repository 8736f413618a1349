// What a method of valuation hands to the statements: its stock keys, and what each is worth.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "session/data/Recordset.h"
#include "stock/StockFigures.h"
#include "stock/StockWriter.h"

namespace pstolvane1 {

// A name, "" for Null. Under an alias it may be a number or a day.
[[nodiscard]] std::string NameText(const Recordset::Row& row, ColumnHandle column);

// Where the names and ids of a stock key stand in a source rowset. The methods' queries differ in
// what they call them, and the simple average's items have no godowns and batches.
class StockKeyColumns {
 public:
  explicit StockKeyColumns(const Recordset& keys);

  [[nodiscard]] std::int64_t ItemId(const Recordset::Row& row) const { return row.Int64(item_id_); }
  [[nodiscard]] std::string ItemName(const Recordset::Row& row) const {
    return NameText(row, item_name_);
  }
  [[nodiscard]] StockUnits Units(const Recordset::Row& row) const;
  // The godown, and four blanks and the batch behind it where the item has batches.
  [[nodiscard]] std::string GodownText(const Recordset::Row& row) const;
  [[nodiscard]] std::int64_t GodownId(const Recordset::Row& row) const;
  [[nodiscard]] std::int64_t BatchId(const Recordset::Row& row) const;

 private:
  ColumnHandle item_id_, item_name_, unit_, alt_unit_, relation_formula_;
  std::optional<ColumnHandle> godown_, godown_id_, batch_, batch_id_, maintain_batches_;
};

// How the block of an item ends in a detailed statement.
enum class BlockEnd {
  kRuleInHeader,  // GrpLine in the item's own line while there is stock; blocks stand apart
  kRuleLine,      // a rule line and a spacer behind the block; the header takes two DummySorts
};

struct StockRows {
  RecordsetPtr keys;  // one row a stock key, the rows of an item together
  // The figures of a row of keys, called once for each row in the statement's order; nothing for a
  // row that the statement passes over.
  std::function<std::optional<StockFigures>(const Recordset::Row&)> value;
  BlockEnd block_end = BlockEnd::kRuleInHeader;
};

}  // namespace pstolvane1
