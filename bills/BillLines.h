// What the two bill-wise reports read alike below a bill: its items, and the receipts against it.
#pragma once

#include <optional>
#include <string>

#include "bills/BillWise.h"
#include "movements/HostItems.h"

namespace pstolvane1 {

// The items of the host; none where it gave no rowset. Error 3265 for one without Itemnew_id or
// itemname.
[[nodiscard]] std::optional<HostItems> ItemsOf(const ReportFrame& frame,
                                               const BillWiseArguments& arguments);
// The name of a line's item, Null for one that is not there.
[[nodiscard]] Variant ItemName(const std::optional<HostItems>& items, const Recordset::Row& line,
                               ColumnHandle item_id);

// The columns of a receipt.
struct ReceiptColumns {
  explicit ReceiptColumns(const Recordset& receipts)
      : number(receipts.Column("receiptno")),
        reference(receipts.Column("Refno")),
        type(receipts.Column("Vouchertype")),
        date(receipts.Column("Date")),
        amount(receipts.Column("amountcr")),
        voucher(receipts.Column("Voucher_Id")) {}
  ColumnHandle number, reference, type, date, amount, voucher;
};

// Calls write(receipt, columns, indent) for the receipts of all entries of a row, in their order;
// indent counts them from 1.
template <typename Write>
void ForEachReceipt(const Recordset::Row& row, ColumnHandle entries_column, Write&& write) {
  const RecordsetPtr entries = row.Chapter(entries_column);
  const ColumnHandle receipts_column = entries->Column("chReceiptbills");
  int indent = 0;
  for (const Recordset::Row entry : entries->Rows()) {
    const RecordsetPtr receipts = entry.Chapter(receipts_column);
    const ReceiptColumns columns(*receipts);
    for (const Recordset::Row receipt : receipts->Rows()) {
      write(receipt, columns, std::to_string(++indent));
    }
  }
}

// Quantity times rate, as money.
[[nodiscard]] Currency AmountOf(float quantity, Currency rate);

}  // namespace pstolvane1
