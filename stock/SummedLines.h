// Lines of stock keys that a statement sums: how a query tells what each counts in, and how that is
// read.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "session/data/Recordset.h"
#include "valuation/MovedLine.h"

namespace pstolvane1 {

// Conditions on Godownitem1: what a line counts in.
struct SummedIn {
  std::string_view average;  // "" for no line
  std::string opening;       // the position before the period
  std::string closing;       // the position at its end; "" for every line
  std::string period;
};

// LINE of such a line.
[[nodiscard]] std::string ComposeSummedLine(const SummedIn& conditions);
// What it is worth, reckoned by the engine as it reckons in sums.
inline constexpr std::string_view kAmount =
    "CAST ( GODOWNITEM1.QTY * GODOWNITEM1.RATE AS FLOAT ) AS AMOUNT";

// Where such a line stands, the same in the lines of every key of a statement.
class SummedLineColumns {
 public:
  explicit SummedLineColumns(const Recordset& lines)
      : line_(lines.Column("LINE")),
        year_(lines.Column("YEARNO")),
        quantity_(lines.Column("QUANTITY")),
        amount_(lines.Column("AMOUNT")) {}

  [[nodiscard]] MovedLine Read(const Recordset::Row& row) const;
  [[nodiscard]] std::int32_t Year(const Recordset::Row& row) const { return row.Int32(year_); }

 private:
  ColumnHandle line_, year_, quantity_, amount_;
};

// The order in which an index has the lines. Their sums need none.
inline constexpr std::string_view kByKeyAndYear =
    "GODOWNITEM1.ITEM_ID , GODOWNITEM1.GODOWN_ID , GODOWNITEM1.BATCH_ID , GODOWNITEM1.YEARNO";

}  // namespace pstolvane1
