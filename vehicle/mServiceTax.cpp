#include <optional>

#include "movements/HostItems.h"
#include "session/RowLoop.h"
#include "session/data/RowGroups.h"
#include "session/rowset/ReportWriter.h"
#include "vehicle/ServiceTax.h"

namespace pstolvane1 {
namespace {

// TotalServicetax holds the sum of the rates and TotalServicetaxPerc the sum of the tax: hosts bind
// to it so.
constexpr ReportLayout kColumns = {
    Display("Refno"),
    Display("date"),
    Display("Ledgername"),
    Display("itemname"),
    Display("TotalServicetax"),
    Display("Servicetax"),
    Display("TotalServicetaxPerc"),
    Display("ServicetaxPerc"),
    Display("LabourAmt"),
    Display("LabourAmtDet"),
    Key("desr_id", adBSTR),
    Key("Voucher_id", adBSTR),
    Display("TotalTax"),
    Display("GTotalTax"),
    Display("GTotalLabour"),
    Marker("Line"),
    TextTwin("refnoSort"),
    ReportColumn{"DateSort", adDate},
    MoneyTextTwin("Totalservicetaxpercsort"),
    MoneyTextTwin("LabouramtSort"),
    TextTwin("LedgerNameSort"),
    TextTwin("itemNameSort"),
    MoneyTextTwin("ServiceTaxSort"),
    MoneyTextTwin("servicetaxpercSort"),
    NumberTwin("DummySort"),
};

constexpr RuleColumn kRule = kColumns.Rule("Line", 255);

struct SourceColumns {
  explicit SourceColumns(const Recordset& source)
      : item_id(source.Column("item_id")),
        desr_id(source.Column("desr_id")),
        tax(source.Column("salestax")),
        quantity(source.Column("QtyOut")),
        rate(source.Column("rate")),
        ledger_id(source.Column("Ledger_id")),
        voucher_id(source.Column("voucher_id")),
        number(source.Column("Refno")),
        date(source.Column("Date")) {}

  ColumnHandle item_id, desr_id, tax, quantity, rate, ledger_id, voucher_id, number, date;
};

// The host's ledgers by their ids.
class HostLedgers {
 public:
  explicit HostLedgers(const RecordsetPtr& ledgers)
      : ledgers_(ledgers->Clone(adLockUnspecified)),
        by_id_(ledgers_->GroupBy({"Ledger_id"})),
        name_(ledgers_->Column("Ledgername")) {}

  // The name, Null for a ledger that the host left out.
  [[nodiscard]] Variant NameOf(const Recordset::Row& line, ColumnHandle ledger_id) const {
    const RowGroups::Group rows = by_id_.Find(line, {ledger_id});
    return rows.Empty() ? Null : rows.First()[name_];
  }

 private:
  RecordsetPtr ledgers_;
  RowGroups by_id_;
  ColumnHandle name_;
};

struct LineTax {
  Currency rate;     // per cent
  Currency taxable;  // not scaled
  Currency tax;      // of a rate over the scale
};

LineTax ReckonTax(double quantity, double rate, Currency tax_rate) {
  const Currency taxable = Currency::FromDouble(quantity * rate);
  return {.rate = tax_rate,
          .taxable = taxable,
          .tax = Currency::FromDouble(taxable.ToDouble() * tax_rate.ToDouble() / 100)};
}

class TaxedBills {
 public:
  TaxedBills(ReportFrame& frame, const ServiceTaxArguments& arguments, const Recordset& source)
      : detailed_(arguments.blnDetailed), from_(source), writer_(kColumns, StyleOf(frame)) {
    if (arguments.recLedger) ledgers_.emplace(arguments.recLedger);
    if (detailed_ && arguments.recitem) items_.emplace(frame);
  }

  void Write(const Recordset::Row& row) {
    const auto voucher = row.IsNull(from_.voucher_id) ? 0 : row.Int64(from_.voucher_id);
    if (voucher != voucher_) {
      CloseBill();
      voucher_ = voucher;
      AddBill(row);
    }
    const LineTax line = ReckonTax(row[from_.quantity].ToDouble(), row[from_.rate].ToDouble(),
                                   row[from_.tax].ToCurrency());
    bill_rates_ += line.rate;
    // It stands on the line added last, with the tax in it; that is meant.
    writer_.Money(kColumns.Twinned("LabourAmt"), line.taxable + line.tax);
    labour_ += line.taxable + line.tax;
    if (detailed_) AddItem(row, line);
    bill_tax_ += line.tax;
  }

  RecordsetPtr Finish() {
    CloseBill();
    writer_.AddRuleLine(kRule, counter_ + 1);
    writer_.AddLine(counter_ + 2);
    writer_.Rule(kRule);
    writer_.Value(kColumns.At("TotalTax"), tax_);
    writer_.Value(kColumns.At("GTotalTax"), tax_);
    writer_.Value(kColumns.At("GTotalLabour"), labour_);
    return writer_.Finish();
  }

 private:
  void AddBill(const Recordset::Row& row) {
    writer_.AddLine(detailed_ ? counter_ + 1 : ReportWriter::kNoNumber);
    if (detailed_) counter_ += 2;
    bill_ = writer_.Line();
    if (ledgers_) ledger_ = ledgers_->NameOf(row, from_.ledger_id);
    writer_.Date(kColumns.Twinned("date"), row[from_.date]);
    writer_.Copy(kColumns.Twinned("Refno"), row, from_.number);
    writer_.Value(kColumns.Twinned("Ledgername"), ledger_);
    writer_.Copy(kColumns.At("Voucher_id"), row, from_.voucher_id);
    writer_.Copy(kColumns.At("desr_id"), row, from_.desr_id);
    WriteBillSums();
  }

  void AddItem(const Recordset::Row& row, const LineTax& line) {
    writer_.AddLine(counter_);
    if (items_) {
      if (const auto item = items_->Find(row, from_.item_id)) {
        writer_.Copy(kColumns.Twinned("itemname"), *item, items_->Name());
      }
    }
    writer_.Value(kColumns.Twinned("Servicetax"), line.rate);
    writer_.Value(kColumns.Twinned("ServicetaxPerc"), line.tax);
    writer_.Copy(kColumns.At("DateSort"), row, from_.date);
    writer_.Copy(kColumns.At("refnoSort"), row, from_.number);
    writer_.Value(kColumns.At("LedgerNameSort"), ledger_);
  }

  void CloseBill() {
    if (!bill_) return;
    writer_.ReturnTo(*bill_);
    WriteBillSums();
    tax_ += bill_tax_;
    bill_rates_ = bill_tax_ = {};
    bill_.reset();
  }

  void WriteBillSums() {
    writer_.Value(kColumns.At("TotalServicetax"), bill_rates_);
    writer_.Value(kColumns.At("TotalServicetaxPerc"), bill_tax_);
    writer_.Value(kColumns.At("Totalservicetaxpercsort"), bill_tax_);
  }

  bool detailed_;
  SourceColumns from_;
  ReportWriter writer_;
  std::optional<HostLedgers> ledgers_;
  std::optional<HostItems> items_;
  std::optional<std::int64_t> voucher_;
  std::optional<Bookmark> bill_;
  Variant ledger_ = Null;
  std::int64_t counter_ = 0;
  Currency bill_rates_, bill_tax_, tax_, labour_;
};

}  // namespace

RecordsetPtr mServiceTax(ReportFrame& frame) {
  const auto arguments = frame.module.Kept<ServiceTaxArguments>();
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  TaxedBills bills(frame, arguments, *source);
  ForEachSourceRow(frame, *source, [&](const Recordset::Row& row) { bills.Write(row); });
  return bills.Finish();
}

}  // namespace pstolvane1
