// Where a line of a stock key stands, the same in the lines of every key of a statement.
#pragma once

#include "session/data/Recordset.h"

namespace pstolvane1 {

struct LineColumns {
  explicit LineColumns(const Recordset& lines)
      : line(lines.Column("LINE")),
        year(lines.Column("YEARNO")),
        quantity(lines.Column("QUANTITY")),
        rate(lines.Column("RATE")) {}

  ColumnHandle line, year, quantity, rate;
};

}  // namespace pstolvane1
