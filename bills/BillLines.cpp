#include "bills/BillLines.h"

namespace pstolvane1 {

std::optional<HostItems> ItemsOf(const ReportFrame& frame, const BillWiseArguments& arguments) {
  if (!arguments.has_items) return std::nullopt;
  return HostItems(frame);
}

Variant ItemName(const std::optional<HostItems>& items, const Recordset::Row& line,
                 ColumnHandle item_id) {
  if (!items) return Null;
  const std::optional<Recordset::Row> item = items->Find(line, item_id);
  return item ? (*item)[items->Name()] : Variant(Null);
}

Currency AmountOf(float quantity, Currency rate) {
  return Currency::FromDouble(static_cast<double>(quantity) * rate.ToDouble());
}

}  // namespace pstolvane1
