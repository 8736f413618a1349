// The figures of the average's source rows.
#pragma once

#include "session/data/Recordset.h"
#include "valuation/AverageFold.h"

namespace pstolvane1 {

struct AverageColumns {
  explicit AverageColumns(const Recordset& rows)
      : qtybal(rows.Column("QtyBal")),
        total_value(rows.Column("TotalValue")),
        qtyop(rows.Column("QtyOp")),
        value_op(rows.Column("ValueOp")),
        qtyin(rows.Column("QtyIn")),
        value_in(rows.Column("ValueIn")),
        qtyout(rows.Column("QtyOut")),
        value_out(rows.Column("ValueOut")) {}

  ColumnHandle qtybal, total_value, qtyop, value_op, qtyin, value_in, qtyout, value_out;

  [[nodiscard]] StockFigures Read(const Recordset::Row& row) const {
    return {.opening = {row.Single(qtyop), row.Money(value_op)},
            .inwards = {row.Single(qtyin), row.Money(value_in)},
            .outwards = {row.Single(qtyout), row.Money(value_out)},
            .closing = {row.Single(qtybal), row.Money(total_value)}};
  }
};

}  // namespace pstolvane1
