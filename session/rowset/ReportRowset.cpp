#include "session/rowset/ReportRowset.h"

namespace pstolvane1 {

RecordsetPtr NewReportRowset(std::span<const ReportColumn> columns) {
  RecordsetPtr rowset = Recordset::New();
  for (const ReportColumn& column : columns) {
    rowset->Fields().Append(column.name, column.type, column.defined_size, column.attributes);
  }
  rowset->Open();
  return rowset;
}

}  // namespace pstolvane1
