// The rowset of items that a host hands to a report.
#pragma once

#include <optional>

#include "session/ReportFrame.h"
#include "session/data/RowGroups.h"

namespace pstolvane1 {

// Made at the first line that needs it: a report without such lines needs no rowset. All rows
// count, whatever the host has filtered.
class HostItems {
 public:
  // Error 91 where the host gave none, 3265 where it has no ItemNew_id or no itemname.
  explicit HostItems(const ReportFrame& frame);

  // The first row of the item that a line names; none for an item that the host left out.
  [[nodiscard]] std::optional<Recordset::Row> Find(const Recordset::Row& line,
                                                   ColumnHandle item_id) const;
  [[nodiscard]] std::optional<Recordset::Row> Find(const Variant& item_id) const;
  // A further column of the rowset. Error 3265.
  [[nodiscard]] ColumnHandle Column(std::string_view name) const { return items_->Column(name); }
  [[nodiscard]] ColumnHandle Name() const { return name_; }

 private:
  RecordsetPtr items_;
  RowGroups by_id_;
  ColumnHandle name_;
};

// Makes items the rowset that HostItems reads, for a report that is asked for with its lines. The
// errors of HostItems come at once then; without lines any rowset will do, and none.
void UseItems(ReportFrame& frame, const RecordsetPtr& items, bool blnDetailed);

}  // namespace pstolvane1
