#include "bills/BillLines.h"
#include "session/RowLoop.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

// Overduedays and Dueon stay empty: a host reckons them itself.
constexpr ReportLayout kColumns = {
    Display("Billno"),
    Display("Date"),
    Display("LedgerName"),
    Display("PendingAmount"),
    Display("Overduedays"),
    Display("VoucherType"),
    Display("VoucherType1"),
    Display("itemname"),
    Display("rate"),
    Display("Amount"),
    Display("Receiptrefno"),
    Display("ReceiptDate"),
    Display("Receiptno"),
    Display("Amountcr"),
    Display("Voucher_id"),
    Display("Desr_Id"),
    Marker("Line"),
    Display("Dueon"),
    Display("ReceiptVoucherType"),
    Display("TotalAmount"),
    Display("VoucherNo"),
    Display("Indent"),
    TextTwin("BillnoSort"),
    DateTwin("DateSort"),
    TextTwin("LedgerNameSort"),
    TextTwin("VoucherType1Sort"),
    MoneyTwin("TotalAmountSort"),
    NumberTwin("DummySort"),
};
constexpr RuleColumn kRule = kColumns.Rule("Line", 1000);
constexpr ReceiptTargets kReceipt = ReceiptTargetsOf(kColumns, kColumns.At("Amountcr"));

class EntryReport {
 public:
  explicit EntryReport(ReportFrame& frame)
      : frame_(frame),
        arguments_(frame.module.Kept<BillWiseArguments>()),
        source_(frame.Rowset(Source::rsReport)),
        items_(ItemsOf(frame, arguments_)),
        writer_(kColumns, StyleOf(frame)) {}

  RecordsetPtr Write() {
    ForEachSourceRow(frame_, *source_, [&](const Recordset::Row& row) {
      WriteEntry(row);
      if (!arguments_.blnDetailed) return;
      WriteItems(row);
      WriteReceipts(row);
    });
    writer_.AddRuleLine(kRule);
    return writer_.Finish();
  }

 private:
  void WriteEntry(const Recordset::Row& row) {
    writer_.AddLine();
    writer_.Copy(kColumns.Twinned("Billno"), row, number_);
    writer_.Date(kColumns.Twinned("Date"), row[date_]);
    writer_.Copy(kColumns.Twinned("LedgerName"), row, ledger_);
    writer_.Copy(kColumns.Twinned("VoucherType1"), row, type_);
    Money(kColumns.At("PendingAmount"), row, amount_);
    Money(kColumns.Twinned("TotalAmount"), row, amount_);
    writer_.Copy(kColumns.At("Voucher_id"), row, voucher_);
  }

  void WriteItems(const Recordset::Row& entry) {
    const RecordsetPtr lines = entry.Chapter(lines_);
    const ColumnHandle item = lines->Column("Item_Id");
    const ColumnHandle quantity = lines->Column("QtyOut");
    const ColumnHandle rate = lines->Column("Rate");
    int indent = 0;
    for (const Recordset::Row line : lines->Rows()) {
      writer_.AddSubLine();
      writer_.Value(kColumns.At("itemname"), ItemName(items_, line, item));
      Money(kColumns.At("rate"), line, rate);
      if (!line.IsNull(quantity) && !line.IsNull(rate)) {
        writer_.Money(kColumns.At("Amount"), AmountOf(line.Single(quantity), line.Money(rate)));
      }
      writer_.Text(kColumns.At("Indent"), std::to_string(++indent));
    }
  }

  void WriteReceipts(const Recordset::Row& entry) {
    receipts_.ForEach(entry, [&](const Receipt& receipt) {
      writer_.AddSubLine();
      receipt.Write(writer_, kReceipt);
      writer_.Copy(kColumns.At("Desr_Id"), entry, document_);
    });
  }

  void Money(Target to, const Recordset::Row& row, ColumnHandle amount) {
    WriteMoney(writer_, to, row, amount);
  }

  [[nodiscard]] ColumnHandle Column(std::string_view name) const { return source_->Column(name); }
  [[nodiscard]] ColumnHandle Chapter(std::string_view name) const {
    return arguments_.blnDetailed ? Column(name) : Target::kNone;
  }

  ReportFrame& frame_;
  const BillWiseArguments arguments_;
  const RecordsetPtr source_;
  const ColumnHandle number_ = Column("Refno"), date_ = Column("Date"),
                     ledger_ = Column("LedgerName"), type_ = Column("VoucherType"),
                     amount_ = Column("AmountDr"), voucher_ = Column("Voucher_Id"),
                     document_ = Column("Desr_Id"), lines_ = Chapter("chSaleBill");
  Receipts receipts_{Chapter("chSaleReceiptBill")};
  const std::optional<HostItems> items_;
  ReportWriter writer_;
};

}  // namespace

RecordsetPtr mBillWiseQuery1(ReportFrame& frame) { return EntryReport(frame).Write(); }

}  // namespace pstolvane1
