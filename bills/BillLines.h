// What the two bill-wise reports read alike below a bill: its items, and the receipts against it.
#pragma once

#include <optional>

#include "bills/BillWise.h"
#include "movements/HostItems.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {

// The items of the host; none where it gave no rowset. Error 3265 for one without Itemnew_id or
// itemname.
[[nodiscard]] std::optional<HostItems> ItemsOf(const ReportFrame& frame,
                                               const BillWiseArguments& arguments);
// The name of a line's item, Null for one that is not there.
[[nodiscard]] Variant ItemName(const std::optional<HostItems>& items, const Recordset::Row& line,
                               ColumnHandle item_id);

// The columns of a rowset of receipts.
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
// Where a receipt stands in a report's layout.
struct ReceiptTargets {
  ColumnHandle number, reference, type, date;
  Target amount;
  ColumnHandle voucher, indent;
};
template <std::size_t kCount>
[[nodiscard]] consteval ReceiptTargets ReceiptTargetsOf(const ReportLayout<kCount>& layout,
                                                        Target amount) {
  return {.number = layout.At("Receiptno"),
          .reference = layout.At("Receiptrefno"),
          .type = layout.At("ReceiptVoucherType"),
          .date = layout.At("ReceiptDate"),
          .amount = amount,
          .voucher = layout.At("Voucher_id"),
          .indent = layout.At("Indent")};
}

// A receipt against a bill.
struct Receipt {
  Recordset::Row row;
  const ReceiptColumns& columns;
  int indent;  // its number among the receipts of the bill, from 1

  // Its cells of the line in hand. An amount that is Null stays empty.
  void Write(ReportWriter& writer, const ReceiptTargets& to) const;
};

// The receipts against the bills of a report.
class Receipts {
 public:
  // By the source's chapter of entries, whose own chapter chReceiptbills holds them.
  explicit Receipts(ColumnHandle entries) : entries_(entries) {}

  // Calls write(receipt) for those of all entries of a row, in their order.
  template <typename Write>
  void ForEach(const Recordset::Row& row, Write&& write) {
    const RecordsetPtr entries = row.Chapter(entries_);
    int indent = 0;
    for (const Recordset::Row entry : entries->Rows()) {
      const RecordsetPtr receipts = entry.Chapter(ReceiptsOf(*entries));
      for (const Recordset::Row receipt : receipts->Rows()) {
        write(Receipt{receipt, ColumnsOf(*receipts), ++indent});
      }
    }
  }

 private:
  // All entries have the same columns, and so have all receipts.
  [[nodiscard]] ColumnHandle ReceiptsOf(const Recordset& entries) {
    if (!receipts_) receipts_ = entries.Column("chReceiptbills");
    return *receipts_;
  }
  [[nodiscard]] const ReceiptColumns& ColumnsOf(const Recordset& receipts) {
    if (!columns_) columns_.emplace(receipts);
    return *columns_;
  }

  ColumnHandle entries_;
  std::optional<ColumnHandle> receipts_;
  std::optional<ReceiptColumns> columns_;
};

// Shows an amount that is not Null.
void WriteMoney(ReportWriter& writer, Target to, const Recordset::Row& row, ColumnHandle amount);

// Quantity times rate, as money.
[[nodiscard]] Currency AmountOf(float quantity, Currency rate);

}  // namespace pstolvane1
