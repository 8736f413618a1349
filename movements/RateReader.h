// Reads the rates that stock can be valued at, item by item.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "session/data/RowGroups.h"
#include "valuation/Rates.h"

namespace pstolvane1 {

// The rows of an item in the order of their rowset, read anew for each item that is asked for.
// What it gives is good until the next call.
class StandardRateReader {
 public:
  explicit StandardRateReader(const Recordset& rows);
  [[nodiscard]] std::span<const StandardRate> Of(std::int64_t item_id);

 private:
  RowGroups by_item_;
  ColumnHandle rate_, from_, to_, year_, sale_;
  std::optional<std::int64_t> item_id_;
  std::vector<StandardRate> rates_;
};

class ActualRateReader {
 public:
  explicit ActualRateReader(const Recordset& rows);
  [[nodiscard]] std::span<const ActualRate> Of(std::int64_t item_id);

 private:
  [[nodiscard]] std::optional<bool> AddedAt(const Recordset::Row& row) const;

  RowGroups by_item_;
  ColumnHandle rate_, date_, opening_, godown_id_, batch_id_;
  std::optional<ColumnHandle> added_;  // not told where all rows are inward
  std::optional<std::int64_t> item_id_;
  std::vector<ActualRate> rates_;
};

}  // namespace pstolvane1
