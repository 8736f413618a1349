#include <optional>

#include "movements/HostItems.h"
#include "session/RowLoop.h"
#include "session/rowset/ReportWriter.h"
#include "vehicle/BuyerReport.h"

namespace pstolvane1 {
namespace {

constexpr ReportLayout kColumns = {
    Display("Particulars"),
    Display("Total"),
    Marker("TotalLine"),
    Display("TotalSales"),
    Display("LedgerName"),
    Display("Itemname"),
    Display("ChasisNo"),
    Display("EngineNo"),
    Display("Sales"),
    Key("Desr_id", adBSTR),
    Key("Voucher_id", adBSTR),
    TextTwin("ParticularsSort"),
    TextTwin("LedgernameSort"),
    TextTwin("ItemNameSort"),
    TextTwin("ChasisNoSort"),
    TextTwin("EngineNoSort"),
    TextTwin("SalesSort"),
    NumberTwin("DummySort"),
    Display("Address1"),
    Display("Address2"),
    Display("City"),
    Display("State"),
    Display("Pin"),
    Display("District"),
    Display("DateOFPurchase"),
};

constexpr RuleColumn kRule = kColumns.Rule("TotalLine", 90);
constexpr std::int32_t kVehicleSale = 10;

enum LineClass { kRuleLine = 1, kTotalLine = 2 };

struct SourceColumns {
  explicit SourceColumns(const Recordset& source)
      : buyer(source.Column("BuyerName")),
        ledger(source.Column("Ledgername")),
        item_id(source.Column("Item_id")),
        kind(source.Column("Subrelatedto")),
        chassis(source.Column("Batchcode")),
        engine(source.Column("EngineNo")),
        document_chassis(source.Column("TChasisNo")),
        document_engine(source.Column("TEngineNo")),
        amount(source.Column("TotalAmount")),
        address1(source.Column("DespatchtoAdd1")),
        address2(source.Column("DespatchtoAdd2")),
        city(source.Column("City")),
        district(source.Column("District")),
        date(source.Column("Date")),
        desr_id(source.Column("Desr_id")),
        voucher_id(source.Column("Related_id")) {}

  ColumnHandle buyer, ledger, item_id, kind, chassis, engine, document_chassis, document_engine,
      amount, address1, address2, city, district, date, desr_id, voucher_id;
};

class Buyers {
 public:
  Buyers(ReportFrame& frame, const Recordset& source)
      : frame_(frame), from_(source), writer_(kColumns, GeneralDates(frame)) {}

  void Write(const Recordset::Row& row) {
    if (!items_) items_.emplace(frame_);
    writer_.AddLine(ReportWriter::kNoNumber);
    writer_.Copy(kColumns.Twinned("LedgerName"), row, from_.ledger);
    writer_.Copy(kColumns.Twinned("Particulars"), row, from_.buyer);
    WriteVehicle(row);
    if (const auto item = items_->Find(row, from_.item_id)) {
      writer_.Copy(kColumns.Twinned("Itemname"), *item, items_->Name());
    }
    writer_.Money(kColumns.Twinned("Sales"), row[from_.amount]);
    writer_.Copy(kColumns.At("Address1"), row, from_.address1);
    writer_.Copy(kColumns.At("Address2"), row, from_.address2);
    writer_.Copy(kColumns.At("City"), row, from_.city);
    writer_.Copy(kColumns.At("District"), row, from_.district);
    if (!row.IsNull(from_.date)) writer_.Date(kColumns.At("DateOFPurchase"), row[from_.date]);
    writer_.Copy(kColumns.At("Desr_id"), row, from_.desr_id);
    writer_.Copy(kColumns.At("Voucher_id"), row, from_.voucher_id);
    writer_.EndLine();
    total_ += row[from_.amount].ToCurrency();
  }

  RecordsetPtr Finish() {
    writer_.AddRuleLine(kRule, kRuleLine);
    writer_.AddTotalLine(kColumns.At("Particulars"), kRule, kTotalLine);
    writer_.Money(kColumns.At("TotalSales"), total_);
    return writer_.Finish();
  }

 private:
  // This report takes no date rule.
  static CellStyle GeneralDates(ReportFrame& frame) {
    CellStyle style = StyleOf(frame);
    style.long_date = false;
    return style;
  }

  // Only a sale moves its vehicle; other documents name one in their text. The twins always take
  // the batch's; that is meant.
  void WriteVehicle(const Recordset::Row& row) {
    const bool sale = !row.IsNull(from_.kind) && row.Int32(from_.kind) == kVehicleSale;
    writer_.Copy(kColumns.At("ChasisNo"), row, sale ? from_.chassis : from_.document_chassis);
    writer_.Copy(kColumns.At("EngineNo"), row, sale ? from_.engine : from_.document_engine);
    writer_.Copy(kColumns.At("ChasisNoSort"), row, from_.chassis);
    writer_.Copy(kColumns.At("EngineNoSort"), row, from_.engine);
  }

  ReportFrame& frame_;
  SourceColumns from_;
  ReportWriter writer_;
  std::optional<HostItems> items_;
  Currency total_;
};

}  // namespace

RecordsetPtr mBuyerReport(ReportFrame& frame) {
  const RecordsetPtr source = frame.Rowset(Source::rsReport);
  Buyers buyers(frame, *source);
  ForEachSourceRow(frame, *source, [&](const Recordset::Row& row) { buyers.Write(row); });
  return buyers.Finish();
}

}  // namespace pstolvane1
