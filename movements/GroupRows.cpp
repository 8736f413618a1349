#include "movements/GroupRows.h"

#include "movements/StockKeyColumns.h"

namespace pstolvane1 {

std::vector<StockGroup> ReadGroups(const Recordset& groups) {
  const ColumnHandle id = groups.Column(kGroupId);
  const ColumnHandle related_to = groups.Column("RelatedTo");
  const ColumnHandle name = groups.Column("Categoryname");
  std::vector<StockGroup> read;
  for (const Recordset::Row row : groups.Rows()) {
    read.push_back(
        {.id = row.Int64(id),
         .related_to = row.IsNull(related_to) ? std::nullopt : std::optional(row.Int64(related_to)),
         .name = NameText(row, name)});
  }
  return read;
}

}  // namespace pstolvane1
