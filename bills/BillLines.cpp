#include "bills/BillLines.h"

#include <string>

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

void Receipt::Write(ReportWriter& writer, const ReceiptTargets& to) const {
  writer.Copy(to.reference, row, columns.reference);
  writer.Copy(to.type, row, columns.type);
  writer.Date(to.date, row[columns.date]);
  writer.Copy(to.number, row, columns.number);
  WriteMoney(writer, to.amount, row, columns.amount);
  writer.Copy(to.voucher, row, columns.voucher);
  writer.Text(to.indent, std::to_string(indent));
}

void WriteMoney(ReportWriter& writer, Target to, const Recordset::Row& row, ColumnHandle amount) {
  if (!row.IsNull(amount)) writer.Money(to, row[amount]);
}

Currency AmountOf(float quantity, Currency rate) {
  return Currency::FromDouble(static_cast<double>(quantity) * rate.ToDouble());
}

}  // namespace pstolvane1
