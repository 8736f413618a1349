// What the lists of bills, day by day, write alike.
#pragma once

#include <optional>

#include "session/ReportFrame.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {

// Where a bill's cells stand in a list's layout.
struct BillColumns {
  TwinnedColumn date, particulars, type, buyer, amount;
  DocumentNumberColumns number;
  ColumnHandle desr_id, voucher_id, optional, record_no;
};
template <std::size_t kCount>
[[nodiscard]] consteval BillColumns BillColumnsOf(const ReportLayout<kCount>& layout) {
  return {.date = layout.Twinned("Date"),
          .particulars = layout.Twinned("Particulars"),
          .type = layout.Twinned("VhrType"),
          .buyer = layout.Twinned("Buyer"),
          .amount = layout.Twinned("Amount"),
          .number = layout.DocumentNumber("RefNo"),
          .desr_id = layout.At("Desr_Id"),
          .voucher_id = layout.At("Voucher_Id"),
          .optional = layout.At("Optional"),
          .record_no = layout.At("RecordNo")};
}

// Writes the bills of a list. A bill is a run of rows with one desr_id; its first row makes its
// line. Counts the lines in the session's lngRecordNo, from 1.
class BillList {
 public:
  // Every list's DummySort.
  enum LineClass { kLine = 2, kRule = 3, kTotal = 4 };

  // The source has date, vouchertype, prefix, refno, suffix, buyername, totalbill, desr_id,
  // voucher_id, optional and the column of the particulars, without which those stay Null.
  BillList(ReportFrame& frame, const Recordset& source, const BillColumns& columns,
           std::string_view particulars);

  [[nodiscard]] bool IsNewBill(const Recordset::Row& row) const {
    return row.Int64(desr_id_) != bill_;
  }
  // The bill's own line, left in hand.
  void AddBill(ReportWriter& writer, const Recordset::Row& row);
  [[nodiscard]] Currency Total() const { return total_; }

 private:
  modStolvane1& module_;
  BillColumns to_;
  ColumnHandle date_, type_, buyer_, amount_, desr_id_, voucher_id_, optional_;
  DocumentNumberSource number_;
  std::optional<ColumnHandle> particulars_;
  std::optional<std::int64_t> bill_;
  Currency total_;
};

// For a list that passes over errors.
[[nodiscard]] CellStyle PassingOverErrors(CellStyle style);
// Adds the amount; one that is Null adds nothing where the report passes over errors, and is error
// 94 otherwise.
void AddTo(Currency& sum, const Variant& amount, const CellStyle& style);

}  // namespace pstolvane1
