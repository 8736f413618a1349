#include "bills/BillLines.h"
#include "session/RowLoop.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kColumns = {
    Display("Billno"),
    Display("Date"),
    Display("LedgerName"),
    Display("VoucherType"),
    Display("VoucherType1"),
    Display("TotalAmount"),
    Display("itemname"),
    Display("rate"),
    Display("Amount"),
    Display("Receiptrefno"),
    Display("ReceiptDate"),
    Display("Receiptno"),
    Display("ReceiptVoucherType"),
    Display("Amountcr"),
    Display("Voucher_id"),
    Display("Desr_Id"),
    Display("GrandTotal"),
    Marker("Line"),
    Marker("Total"),
    Display("Indent"),
    Display("VoucherNo"),
    TextTwin("BillnoSort"),
    DateTwin("DateSort"),
    TextTwin("LedgerNameSort"),
    TextTwin("itemNameSort"),
    QuantityTwin("QtySort"),
    ReportColumn{"RateSort", adDouble, 0, adFldIsNullable},
    MoneyTwin("AmountSort"),
    MoneyTwin("AmountCrSort"),
    TextTwin("VoucherType1Sort"),
    MoneyTwin("TotalAmountSort"),
    NumberTwin("DummySort"),
};
constexpr RuleColumn kRule = kColumns.Rule("Line", 100);
constexpr ReceiptTargets kReceipt = ReceiptTargetsOf(kColumns, kColumns.Twinned("Amountcr"));

class BillReport {
 public:
  explicit BillReport(ReportFrame& frame)
      : frame_(frame),
        arguments_(frame.module.Kept<BillWiseArguments>()),
        source_(frame.Rowset(Source::rsReport)->Clone(adLockUnspecified)),
        items_(ItemsOf(frame, arguments_)),
        writer_(kColumns, StyleOf(frame)) {}

  RecordsetPtr Write() {
    // An engine would sort all cells of the rows.
    source_->Sort(
        "LedgerName, Voucher_Id, Date, Ledger_Id, VoucherType, Desr_Id, Item_Id, QtyOut, Rate");
    const Recordset::RowRange rows = source_->Rows();
    for (auto next = rows.begin(); next != rows.end();) {
      const auto first = next;
      while (++next != rows.end() && AreOfOneBill(*first, *next)) {
      }
      if (!WriteBill({first, next})) break;
    }
    writer_.AddRuleLine(kRule);
    writer_.AddTotalLine(kColumns.At("Total"), kRule);
    writer_.Money(kColumns.At("GrandTotal"), total_);
    return writer_.Finish();
  }

 private:
  // By voucher; a document without one is a bill of its own.
  [[nodiscard]] bool AreOfOneBill(const Recordset::Row& a, const Recordset::Row& b) const {
    const ColumnHandle key = a.IsNull(voucher_) && b.IsNull(voucher_) ? document_ : voucher_;
    return !a.IsNull(key) && !b.IsNull(key) && a.Int64(key) == b.Int64(key);
  }

  // False once the report is cancelled.
  bool WriteBill(const Recordset::RowRange& rows) {
    const Recordset::Row bill = *rows.begin();
    try {
      if (arguments_.blnDetailed) WriteReceipts(bill);
      WriteHead(bill);
    } catch (const Error& error) {
      throw WhileWritingRow(error, frame_, bill);
    }
    int indent = 0;
    std::optional<Recordset::Row> last;
    return ForEachSourceRow(frame_, *source_, rows, [&](const Recordset::Row& row) {
      if (!last || !AreAlike(*last, row)) WriteItem(row, std::to_string(++indent));
      last = row;
    });
  }

  // Lines of a document that are alike count once.
  [[nodiscard]] bool AreAlike(const Recordset::Row& a, const Recordset::Row& b) const {
    const auto same = [&](ColumnHandle column) {
      return a.IsNull(column) == b.IsNull(column) &&
             (a.IsNull(column) || a.Double(column) == b.Double(column));
    };
    return same(item_) && same(quantity_) && same(rate_) && same(document_);
  }

  void WriteReceipts(const Recordset::Row& bill) {
    receipts_.ForEach(bill, [&](const Receipt& receipt) {
      writer_.AddLine();
      WriteTwins(bill);
      receipt.Write(writer_, kReceipt);
      writer_.Copy(kColumns.At("Desr_Id"), bill, document_);
    });
  }

  void WriteHead(const Recordset::Row& bill) {
    writer_.AddLine();
    WriteTwins(bill);
    writer_.Copy(kColumns.At("Billno"), bill, number_);
    writer_.Date(kColumns.At("Date"), bill[date_]);
    writer_.Copy(kColumns.At("LedgerName"), bill, ledger_);
    writer_.Copy(kColumns.At("VoucherType1"), bill, type_);
    Money(kColumns.At("TotalAmount"), bill, amount_);
    writer_.Copy(kColumns.At("Voucher_id"), bill, voucher_);
    writer_.Copy(kColumns.At("Desr_Id"), bill, document_);
    if (!bill.IsNull(amount_)) total_ += bill.Money(amount_);
    bill_ = writer_.Line();
  }

  void WriteItem(const Recordset::Row& row, const std::string& indent) {
    writer_.AddSubLine(bill_);
    writer_.Value(kColumns.Twinned("itemname"), ItemName(items_, row, item_));
    Money(kColumns.Twinned("rate"), row, rate_);
    writer_.Copy(kColumns.At("QtySort"), row, quantity_);
    if (!row.IsNull(quantity_) && !row.IsNull(rate_)) {
      writer_.Money(kColumns.Twinned("Amount"), AmountOf(row.Single(quantity_), row.Money(rate_)));
    }
    writer_.Text(kColumns.At("Indent"), indent);
  }

  // The bill's own, which its receipts carry as well, and its items from its line.
  void WriteTwins(const Recordset::Row& bill) {
    writer_.Copy(kColumns.At("BillnoSort"), bill, number_);
    writer_.Copy(kColumns.At("DateSort"), bill, date_);
    writer_.Copy(kColumns.At("LedgerNameSort"), bill, ledger_);
    writer_.Copy(kColumns.At("VoucherType1Sort"), bill, type_);
    writer_.Copy(kColumns.At("TotalAmountSort"), bill, amount_);
  }

  void Money(Target to, const Recordset::Row& row, ColumnHandle amount) {
    WriteMoney(writer_, to, row, amount);
  }

  [[nodiscard]] ColumnHandle Column(std::string_view name) const { return source_->Column(name); }

  ReportFrame& frame_;
  const BillWiseArguments arguments_;
  const RecordsetPtr source_;
  const ColumnHandle voucher_ = Column("Voucher_Id"), document_ = Column("Desr_Id"),
                     number_ = Column("Refno"), date_ = Column("Date"),
                     ledger_ = Column("LedgerName"), type_ = Column("VoucherType"),
                     amount_ = Column("TotalAmount"), item_ = Column("Item_Id"),
                     quantity_ = Column("QtyOut"), rate_ = Column("Rate");
  Receipts receipts_{arguments_.blnDetailed ? Column("chSaleReceiptBill") : Target::kNone};
  const std::optional<HostItems> items_;
  ReportWriter writer_;
  Bookmark bill_{};  // the line of the bill in hand
  Currency total_;
};

}  // namespace

RecordsetPtr mBillWiseQuery(ReportFrame& frame) { return BillReport(frame).Write(); }

}  // namespace pstolvane1
