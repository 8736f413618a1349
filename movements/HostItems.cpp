#include "movements/HostItems.h"

#include "session/data/Error.h"

namespace pstolvane1 {
namespace {

RecordsetPtr AllItems(const ReportFrame& frame) {
  return frame.Rowset(Source::rsItems)->Clone(adLockUnspecified);
}

std::optional<Recordset::Row> FirstOf(const RowGroups::Group& rows) {
  if (rows.Empty()) return std::nullopt;
  return rows.First();
}

}  // namespace

HostItems::HostItems(const ReportFrame& frame)
    : items_(AllItems(frame)),
      by_id_(items_->GroupBy({"ItemNew_id"})),
      name_(items_->Column("itemname")) {}

std::optional<Recordset::Row> HostItems::Find(const Recordset::Row& line,
                                              ColumnHandle item_id) const {
  return FirstOf(by_id_.Find(line, {item_id}));
}

std::optional<Recordset::Row> HostItems::Find(const Variant& item_id) const {
  return FirstOf(by_id_.Find({item_id}));
}

void UseItems(ReportFrame& frame, const RecordsetPtr& items, bool blnDetailed) {
  frame.UseHostItems(items);
  if (!blnDetailed) return;
  try {
    const HostItems checked(frame);
  } catch (const Error& error) {
    throw error.While("reading the host's rowset of items");
  }
}

}  // namespace pstolvane1
