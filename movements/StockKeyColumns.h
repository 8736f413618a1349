// The names and ids of a stock key in a source rowset.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "session/data/Recordset.h"

namespace pstolvane1 {

// An item's units.
struct StockUnits {
  std::string item;  // whose they are
  std::string unit;
  std::string alt_unit;
  float relation_formula = 0;  // base units in an alternate unit
};

// A quantity in base units as one of alternate units; error 11 where they have no relation.
[[nodiscard]] double AltQuantity(double quantity, const StockUnits& units);

// A name, "" for Null. Under an alias it may be a number or a day.
[[nodiscard]] std::string NameText(const Recordset::Row& row, ColumnHandle column);

// Where the names and ids of a stock key stand in a source rowset. The simple average's items have
// no godowns and batches.
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

}  // namespace pstolvane1
