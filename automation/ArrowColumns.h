// What the columns of a rowset are in Arrow, and their cells as Arrow arrays.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "automation/pstolvane1_arrow.h"
#include "session/data/Recordset.h"

namespace pstolvane1::automation {

// The columns of a rowset; those of its chapters are known where any row has children.
struct ArrowColumns {
  explicit ArrowColumns(const Recordset& rowset);

  struct Column {
    std::string name;
    DataType type;
    std::unique_ptr<ArrowColumns> chapter;  // of an adChapter
  };
  std::vector<Column> columns;
};

// Fills *schema with a struct of the columns. Whoever gets it releases it.
void MakeSchema(const ArrowColumns& columns, ArrowSchema& schema);

// Fills *array with a struct of the rows' cells. Whoever gets it releases it. Error 6 where the
// texts of a column pass 2 GiB.
void MakeArray(const ArrowColumns& columns, const std::vector<Recordset::Row>& rows,
               ArrowArray& array);

}  // namespace pstolvane1::automation
