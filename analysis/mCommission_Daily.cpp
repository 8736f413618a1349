#include "analysis/Commission.h"
#include "session/RowLoop.h"
#include "session/rowset/ReportWriter.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kColumns = {
    Display("Date"),
    Display("Particulars"),
    Display("VhrType"),
    Display("RefNo"),
    Display("Quantity"),
    Display("Amount"),
    Display("ComPerc"),
    Display("ComAmount"),
    Display("Total"),
    Display("TotalAmount"),
    Display("TotalCommission"),
    Marker("Line"),
    Key("Desr_Id", adBigInt),
    Key("Voucher_Id", adBigInt),
    DateTwin("DateSort"),
    TextTwin("ParticularsSort"),
    TextTwin("VhrTypeSort"),
    NumberTwin("RefNoSort"),
    TextTwin("PrefixSort"),
    TextTwin("SuffixSort"),
    QuantityTwin("QuantitySort"),
    QuantityTwin("AmountSort"),
    QuantityTwin("ComPercSort"),
    ReportColumn{"ComAmountSort", adCurrency, 0, adFldDefault},
    NumberTwin("DummySort"),
};

constexpr RuleColumn kRule = kColumns.Rule("Line", 85);

struct SourceColumns {
  explicit SourceColumns(const Recordset& source)
      : desr_id(source.Column("Desr_id")),
        voucher_id(source.Column("Voucher_id")),
        date(source.Column("Date")),
        party(source.Column("Ledgername")),
        type(source.Column("Vouchertype")),
        number(source),
        quantity(source.Column("qtysupplied")),
        sales(source.Column("SalesValue")),
        percent(source.Column("compercent")),
        commission(source.Column("ComAmount")) {}

  ColumnHandle desr_id, voucher_id, date, party, type;
  DocumentNumberSource number;
  ColumnHandle quantity, sales, percent, commission;
};

class Documents {
 public:
  Documents(ReportFrame& frame, const Recordset& source)
      : from_(source), writer_(kColumns, StyleOf(frame)) {}

  void WriteLine(const Recordset::Row& row) {
    writer_.AddLine(ReportWriter::kNoNumber);
    writer_.Copy(kColumns.At("Desr_Id"), row, from_.desr_id);
    writer_.Copy(kColumns.At("Voucher_Id"), row, from_.voucher_id);
    writer_.Date(kColumns.Twinned("Date"), row[from_.date]);
    writer_.Copy(kColumns.Twinned("Particulars"), row, from_.party);
    writer_.Copy(kColumns.Twinned("VhrType"), row, from_.type);
    writer_.DocumentNumber(kColumns.DocumentNumber("RefNo"), row, from_.number,
                           ReportWriter::NullParts::kBecomeEmpty);
    writer_.Number(kColumns.Twinned("Quantity"), row[from_.quantity]);
    writer_.Money(kColumns.Twinned("Amount"), writer_.Scaled(row[from_.sales]));
    WriteCommission(row);
    sales_ += Currency::FromDouble(row.Double(from_.sales));
  }

  RecordsetPtr Finish() {
    writer_.AddSpacer(kColumns.At("Particulars"), 1);
    writer_.Rule(kRule);
    writer_.AddTotalLine(kColumns.At("Total"), kRule, 2);
    writer_.ScaledMoney(kColumns.At("TotalAmount"), sales_);
    writer_.ScaledMoney(kColumns.At("TotalCommission"), commission_);
    return writer_.Finish();
  }

 private:
  // A line that reaches no slab has empty cells, and 0 in their twins.
  void WriteCommission(const Recordset::Row& row) {
    if (row.IsNull(from_.percent)) {
      writer_.Value(kColumns.Twinned("ComPerc").twin, 0);
    } else {
      writer_.Number(kColumns.Twinned("ComPerc"), row[from_.percent]);
    }
    if (row.IsNull(from_.commission)) {
      writer_.Value(kColumns.Twinned("ComAmount").twin, 0);
      return;
    }
    // The twin is not scaled, that of the amount is; both are meant.
    writer_.ScaledMoney(kColumns.Twinned("ComAmount"), row[from_.commission]);
    commission_ += Currency::FromDouble(row.Double(from_.commission));
  }

  SourceColumns from_;
  ReportWriter writer_;
  Currency sales_, commission_;
};

}  // namespace

RecordsetPtr mCommission_Daily(ReportFrame& frame) {
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  Documents documents(frame, *source);
  ForEachSourceRow(frame, *source, [&](const Recordset::Row& row) { documents.WriteLine(row); });
  return documents.Finish();
}

}  // namespace pstolvane1
