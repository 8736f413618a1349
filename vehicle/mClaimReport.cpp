#include <optional>

#include "movements/HostItems.h"
#include "session/RowLoop.h"
#include "session/rowset/DisplayText.h"
#include "session/rowset/ReportWriter.h"
#include "vehicle/ClaimReport.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kColumns = {
    Display("Claimno"),
    Display("Chasisno"),
    Display("DefectCode"),
    Display("Saledate"),
    Display("RepairDate"),
    Display("Kms"),
    Display("ComponentNo"),
    Display("ComponenetName"),
    Display("Qty"),
    Display("VendorCode"),
    Display("VendorMfgDate"),
    Display("PerformanceCode"),
    Display("Billno"),
    Display("Discount"),
    Display("Salestax"),
    Display("TotalAmount"),
    Display("Total"),
    Display("GrandTotal"),
    Marker("Line"),
    Key("Voucher_id", adBSTR),
    Key("Desr_Id", adBSTR),
    TextTwin("ChasisnoSort"),
    TextTwin("DefectCodeSort"),
    DateTwin("SaledateSort"),
    DateTwin("RepairDateSort"),
    TextTwin("KmsSort"),
    TextTwin("ComponentNoSort"),
    TextTwin("ComponenetNameSort"),
    QuantityTwin("QtySort"),
    TextTwin("VendorCodeSort"),
    DateTwin("VendorMfgDateSort"),
    TextTwin("BillnoSort"),
    MoneyTwin("TotalAmountSort"),
    NumberTwin("DummySort"),
};

enum LineClass { kRuleLine = 1, kTotalLine = 2 };

class Claims {
 public:
  Claims(ReportFrame& frame, const Recordset& source)
      : frame_(frame),
        source_(source),
        claim_(source.Column("claimno")),
        chassis_(source.Column("chasisnumber")),
        sold_(source.Column("dateofsale")),
        repaired_(source.Column("repairdate")),
        kms_(source.Column("kms")),
        item_id_(source.Column("item_id")),
        quantity_(source.Column("quantity")),
        price_(source.Column("price")),
        made_(source.Column("vendormfgdate")),
        defect_(source.Column("defectname")),
        vendor_(source.Column("vendorname")),
        performance_(source.Column("perfomancename")),
        voucher_id_(source.Column("voucher_id")),
        desr_id_(source.Column("desr_id")),
        number_(source),
        writer_(kColumns, StyleOf(frame)) {}

  void Write(const Recordset::Row& row) {
    writer_.AddLine(ReportWriter::kNoNumber);
    writer_.Copy(kColumns.At("Claimno"), row, claim_);
    writer_.Copy(kColumns.Twinned("Chasisno"), row, chassis_);
    writer_.Text(kColumns.Twinned("Billno"), BillNumber(row));
    WriteAmount(row);
    writer_.Copy(kColumns.Twinned("DefectCode"), row, defect_);
    // Under long dates the day of the sale is asked for by a name that no column has. That is
    // meant.
    if (writer_.Style().long_date) (void)source_.Column("dateofsalw");
    WriteDate(kColumns.Twinned("Saledate"), row, sold_);
    WriteDate(kColumns.Twinned("RepairDate"), row, repaired_);
    writer_.Copy(kColumns.Twinned("Kms"), row, kms_);
    WriteComponent(row);
    writer_.Copy(kColumns.Twinned("Qty"), row, quantity_);
    writer_.Copy(kColumns.Twinned("VendorCode"), row, vendor_);
    WriteDate(kColumns.Twinned("VendorMfgDate"), row, made_);
    writer_.Copy(kColumns.At("PerformanceCode"), row, performance_);
    writer_.Copy(kColumns.At("Voucher_id"), row, voucher_id_);
    writer_.Copy(kColumns.At("Desr_Id"), row, desr_id_);
  }

  [[nodiscard]] RecordsetPtr Finish() {
    constexpr RuleColumn kRule = kColumns.Rule("Line", 100);
    writer_.AddRuleLine(kRule, kRuleLine);
    writer_.AddTotalLine(kColumns.At("Total"), kRule, kTotalLine);
    writer_.Money(kColumns.At("GrandTotal"), total_);
    return writer_.Finish();
  }

 private:
  [[nodiscard]] std::string BillNumber(const Recordset::Row& row) const {
    return JoinDocumentNumber(row.Text(number_.prefix),
                              row.IsNull(number_.number) ? "" : row[number_.number].ToText(),
                              row.Text(number_.suffix), writer_.Style().number_separator);
  }

  void WriteAmount(const Recordset::Row& row) {
    const double amount = writer_.Scaled(row.Double(quantity_) * row.Double(price_));
    writer_.Money(kColumns.At("TotalAmount"), amount);
    const Currency exact = Variant(amount).ToCurrency();
    writer_.Value(kColumns.At("TotalAmountSort"), exact);
    total_ += exact;
  }

  void WriteDate(TwinnedColumn to, const Recordset::Row& row, ColumnHandle date) {
    if (!row.IsNull(date)) writer_.Date(to, row[date]);
  }

  void WriteComponent(const Recordset::Row& row) {
    if (!items_) {
      items_.emplace(frame_);
      part_number_ = items_->Column("ITemPartno");
    }
    const std::optional<Recordset::Row> item = items_->Find(row, item_id_);
    if (!item) return;
    writer_.Copy(kColumns.Twinned("ComponentNo"), *item, part_number_);
    writer_.Copy(kColumns.Twinned("ComponenetName"), *item, items_->Name());
  }

  const ReportFrame& frame_;
  const Recordset& source_;
  ColumnHandle claim_, chassis_, sold_, repaired_, kms_, item_id_, quantity_, price_, made_;
  ColumnHandle defect_, vendor_, performance_, voucher_id_, desr_id_;
  DocumentNumberSource number_;
  std::optional<HostItems> items_;
  ColumnHandle part_number_{};
  ReportWriter writer_;
  Currency total_;
};

}  // namespace

RecordsetPtr mClaimReport(ReportFrame& frame) {
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  Claims claims(frame, *source);
  ForEachSourceRow(frame, *source, [&](const Recordset::Row& row) { claims.Write(row); });
  return claims.Finish();
}

}  // namespace pstolvane1
